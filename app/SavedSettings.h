#pragma once

#include "core/capture/CaptureShortcut.h"

#include <string>
#include <vector>

namespace brinmoor {

class Preferences;

enum class TabCleanupApproval { ask, immediate };

/// What the preferences say at start. Absent is not false: a switch that is on for a fresh user is
/// off only where a boolean false was stored.
struct SavedSettings {
    bool closeAfterQuickSave = false;
    bool clipboardEnabled = false;
    bool analyticsEnabled = true;
    bool learningEnabled = true;
    bool autoTaggingEnabled = true;
    bool tabCleanupEnabled = false;
    TabCleanupApproval tabCleanupApproval = TabCleanupApproval::ask;
    std::vector<std::string> tabCleanupDomains;

    [[nodiscard]] static SavedSettings read(const Preferences& preferences);
};

/// The system-wide shortcuts; the single one of an older time counts only without the map of all.
[[nodiscard]] ShortcutMap savedShortcuts(const Preferences& preferences);

enum class AppAppearance { cream, black };

/// "cream" is the light theme; anything else, and no value, is the dark one.
[[nodiscard]] AppAppearance savedAppearance(const Preferences& preferences);

} // namespace brinmoor
