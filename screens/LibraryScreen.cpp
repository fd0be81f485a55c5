#include "screens/LibraryScreen.h"

namespace brinmoor {

void LibraryScreen::setHint(const QString& shortcutLabel, bool closesAfterSave) {
    if (shortcutLabel == shortcutLabel_ && closesAfterSave == closesAfterSave_)
        return;
    shortcutLabel_ = shortcutLabel;
    closesAfterSave_ = closesAfterSave;
    Q_EMIT hintChanged();
}

} // namespace brinmoor
