#include "screens/NoticeContent.h"

namespace brinmoor {

// Each action may take the panel and this object away, so it is called through a copy. A shell may
// leave out those that no notice of its own asks for.

void NoticeContent::dismiss() {
    const auto action = actions_.dismiss;
    if (action)
        action();
}

void NoticeContent::openSettings() {
    const auto action = actions_.openSettings;
    if (action)
        action();
}

void NoticeContent::saveClipboard(bool withNote) {
    if (!notice_.clipboardURL)
        return;
    const auto action = actions_.saveClipboard;
    const std::string url = *notice_.clipboardURL;
    if (action)
        action(url, withNote);
}

} // namespace brinmoor
