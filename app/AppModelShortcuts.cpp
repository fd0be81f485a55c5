// The rules by which a change of the system-wide shortcuts is accepted or refused. Every path ends
// with a registered set: the old one, the new one, or what was possible of them.

#include "app/AppModel.h"

#include "app/GlobalShortcut.h"
#include "core/text/Wording.h"
#include "platform/Preferences.h"

#include <algorithm>

namespace brinmoor {

using text::worded;

void AppModel::setShortcutError(CaptureAction action, std::string text) {
    shortcutErrors_[action] = std::move(text);
    Q_EMIT shortcutsChanged();
}

void AppModel::restoreShortcuts() {
    for (const CaptureAction failed : hotkey_->registerAll(shortcuts_))
        setShortcutError(failed, worded("Unavailable. Choose another shortcut."));
}

void AppModel::suspendShortcuts() {
    hotkey_->unregister();
}

void AppModel::configureShortcut(std::optional<CaptureShortcut> shortcut, CaptureAction action) {
    if (!shortcut) {
        restoreShortcuts();
        return;
    }
    const auto holder = std::ranges::find_if(shortcuts_, [&](const auto& entry) {
        return entry.first != action && entry.second.sameKeys(*shortcut);
    });
    if (holder != shortcuts_.end()) {
        restoreShortcuts();
        setShortcutError(action, worded("Already used by ‘") + worded(messageName(holder->first)) +
                                     worded("’."));
        return;
    }
    ShortcutMap changed = shortcuts_;
    changed.insert_or_assign(action, std::move(*shortcut));
    const auto failed = hotkey_->registerAll(changed);
    if (std::ranges::find(failed, action) != failed.end()) {
        hotkey_->registerAll(shortcuts_);
        setShortcutError(action, worded("Unavailable. Your previous shortcut is unchanged."));
        return;
    }
    shortcutErrors_.erase(action);
    adoptShortcuts(std::move(changed), failed);
}

void AppModel::adoptShortcuts(ShortcutMap shortcuts, const std::vector<CaptureAction>& failed) {
    shortcuts_ = std::move(shortcuts);
    for (const CaptureAction action : failed)
        shortcutErrors_[action] = worded("Already in use. Choose another shortcut.");
    preferences_.set("captureShortcuts", PreferenceData{encodeShortcuts(shortcuts_)});
    Q_EMIT shortcutsChanged();
}

void AppModel::applyMemorableShortcuts() {
    ShortcutMap changed = withMemorablePreset(shortcuts_);
    if (hasClash(changed)) {
        setError(worded("The preset conflicts with another Brinmoor shortcut. Change that "
                        "shortcut first."));
        return;
    }
    if (!hotkey_->registerAll(changed).empty()) {
        hotkey_->registerAll(shortcuts_);
        setError(worded("One of the preset shortcuts is unavailable. Your shortcuts are "
                        "unchanged."));
        return;
    }
    shortcutErrors_.clear();
    adoptShortcuts(std::move(changed), {});
}

} // namespace brinmoor
