// Saving a tab out of the search of open tabs.

#include "app/AppModel.h"

#include "core/links/LinkTitle.h"
#include "core/tabs/OpenBrowserTab.h"
#include "platform/Clock.h"

namespace brinmoor {

QCoro::Task<bool> AppModel::saveOpenTab(OpenBrowserTab tab) {
    const auto address = Library::validatedURL(tab.url);
    if (!address) {
        say("No tabs to save",
            "Open a web page first. Empty tabs and browser settings can’t be saved.",
            Tone::failure);
        co_return false;
    }
    const LinkTitle::Metadata unread;
    std::vector<SavedLink> links{
        SavedLink(address->string(), LinkTitle::best(tab.url, tab.title, unread), tab.browserName,
                  "Inbox", clock_.newUuid(), clock_.now())};
    co_return saveCaptured(std::move(links), Tagging::suggested);
}

} // namespace brinmoor
