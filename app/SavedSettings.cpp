#include "app/SavedSettings.h"

#include "platform/Preferences.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace brinmoor {
namespace {

/// A JSON array of strings; empty when it is anything else.
std::vector<std::string> decodeTexts(const std::string& bytes) {
    const auto document = QJsonDocument::fromJson(QByteArray::fromStdString(bytes));
    std::vector<std::string> texts;
    const QJsonArray array = document.array();
    for (const auto& value : array) {
        if (!value.isString())
            return {};
        texts.push_back(value.toString().toStdString());
    }
    return texts;
}

} // namespace

SavedSettings SavedSettings::read(const Preferences& preferences) {
    SavedSettings saved;
    saved.closeAfterQuickSave = preferences.boolean("closeAfterQuickSave");
    saved.clipboardEnabled = preferences.boolean("clipboardEnabled");
    saved.analyticsEnabled = preferences.boolean("analyticsEnabled", true);
    saved.learningEnabled = preferences.boolean("learningEnabled", true);
    saved.autoTaggingEnabled = preferences.boolean("autoTaggingEnabled", true);
    saved.tabCleanupEnabled = preferences.boolean("tabCleanupEnabled");
    if (preferences.text("tabCleanupApproval") == "immediate")
        saved.tabCleanupApproval = TabCleanupApproval::immediate;
    if (const auto domains = preferences.data("tabCleanupDomains"))
        saved.tabCleanupDomains = decodeTexts(*domains);
    return saved;
}

ShortcutMap savedShortcuts(const Preferences& preferences) {
    const auto older = preferences.data("captureShortcut");
    if (older && !preferences.object("captureShortcuts"))
        return decodeOlderShortcut(*older);
    const auto stored = preferences.data("captureShortcuts");
    return decodeShortcuts(stored ? std::optional<std::string_view>(*stored) : std::nullopt);
}

AppAppearance savedAppearance(const Preferences& preferences) {
    return preferences.text("appAppearance") == "cream" ? AppAppearance::cream
                                                        : AppAppearance::black;
}

} // namespace brinmoor
