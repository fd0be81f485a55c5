#pragma once

#include "platform/Observers.h"
#include "platform/Preferences.h"

#include <QFileSystemWatcher>
#include <QJsonObject>

#include <map>
#include <string>

namespace brinmoor {

/// Preferences in a JSON file (PreferencesDocument.h tells its form).
///
/// A write locks the file `<path>.lock`, reads the file again, changes its one key and replaces the
/// file whole, so that two copies of the program lose nothing of each other's. A change made by
/// another is read as soon as the folder reports it.
///
/// A file that is no JSON object is never overwritten. Reading leaves it where it is, so that a
/// slip of the user's editor can be put right, and the values known so far stay in force; the
/// next write moves it to `<path>.broken`, or `<path>.broken.2` and so on, and starts afresh.
class JsonPreferences final : public Preferences {
public:
    /// Reads the file and makes its folder where it is missing.
    explicit JsonPreferences(std::string path);

    [[nodiscard]] std::optional<PreferenceValue> object(std::string_view key) const override;
    bool set(std::string_view key, std::optional<PreferenceValue> value) override;
    [[nodiscard]] Subscription observe(std::string_view key,
                                       std::function<void()> changed) override;

private:
    using Values = std::map<std::string, std::optional<PreferenceValue>, std::less<>>;

    bool write(std::string_view key, const std::optional<PreferenceValue>& value,
               QJsonObject& written) const;
    void reload();
    void watch();
    [[nodiscard]] Values observedValues() const;
    void tellChangesSince(const Values& before) const;

    std::string path_;
    QJsonObject document_; ///< as it was last read whole
    Values unsaved_;       ///< values that couldn't be written, in force for this run
    std::map<std::string, Observers<>, std::less<>> observers_;
    QFileSystemWatcher watcher_;
};

} // namespace brinmoor
