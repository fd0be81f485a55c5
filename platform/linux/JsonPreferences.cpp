#include "platform/linux/JsonPreferences.h"

#include "platform/linux/AtomicFile.h"
#include "platform/linux/FileDescriptor.h"
#include "platform/linux/PreferencesDocument.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>

namespace brinmoor {
namespace {

/// Far more than every preference together takes.
constexpr std::size_t largestFile = std::size_t{16} << 20;

enum class Standing { whole, absent, broken, unreadable };

struct Reading {
    Standing standing;
    QJsonObject document;
};

Reading readPreferences(const std::string& path) {
    const auto contents = readFile(path, largestFile);
    if (!contents) {
        const bool absent = contents.error() == std::errc::no_such_file_or_directory;
        return {absent ? Standing::absent : Standing::unreadable, {}};
    }
    auto document = decodePreferences(QByteArray::fromStdString(*contents));
    if (!document)
        return {Standing::broken, {}};
    return {Standing::whole, std::move(*document)};
}

std::string folderOf(const std::string& path) {
    return std::filesystem::path(path).parent_path().string();
}

/// Holds every other copy of the program off for as long as it lives.
class WriteLock {
public:
    explicit WriteLock(const std::string& path)
        : file_(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
        if (!file_)
            return;
        while (::flock(file_.get(), LOCK_EX) != 0) {
            if (errno != EINTR) {
                file_ = FileDescriptor();
                return;
            }
        }
    }
    [[nodiscard]] bool held() const { return static_cast<bool>(file_); }

private:
    FileDescriptor file_;
};

/// Under a name that nothing has yet: an earlier broken file is the user's too.
bool setAside(const std::string& path) {
    constexpr int names = 1000;
    for (int number = 1; number <= names; ++number) {
        const auto aside = path + ".broken" + (number > 1 ? "." + std::to_string(number) : "");
        if (::renameat2(AT_FDCWD, path.c_str(), AT_FDCWD, aside.c_str(), RENAME_NOREPLACE) == 0)
            return true;
        if (errno != EEXIST)
            return false;
    }
    return false;
}

} // namespace

JsonPreferences::JsonPreferences(std::string path) : path_(std::move(path)) {
    // Where the folder can't be made, the first write says so.
    (void)makeFolders(folderOf(path_));
    document_ = readPreferences(path_).document;
    QObject::connect(&watcher_, &QFileSystemWatcher::fileChanged, &watcher_, [this] { reload(); });
    QObject::connect(&watcher_, &QFileSystemWatcher::directoryChanged, &watcher_,
                     [this] { reload(); });
    watch();
}

std::optional<PreferenceValue> JsonPreferences::object(std::string_view key) const {
    if (const auto unsaved = unsaved_.find(key); unsaved != unsaved_.end())
        return unsaved->second;
    return preferenceIn(document_, key);
}

bool JsonPreferences::set(std::string_view key, std::optional<PreferenceValue> value) {
    const auto before = observedValues();
    const std::string name(key);
    const bool saved = write(name, value, document_);
    if (saved)
        unsaved_.erase(name);
    else
        unsaved_.insert_or_assign(name, std::move(value));
    watch();
    tellChangesSince(before);
    return saved;
}

bool JsonPreferences::write(std::string_view key, const std::optional<PreferenceValue>& value,
                            QJsonObject& written) const {
    if (!makeFolders(folderOf(path_)))
        return false;
    const WriteLock lock(path_ + ".lock");
    if (!lock.held())
        return false;
    const auto stored = readPreferences(path_);
    if (stored.standing == Standing::unreadable)
        return false;
    if (stored.standing == Standing::broken && !setAside(path_))
        return false;
    // What was known before the file broke is better than nothing.
    auto next = stored.standing == Standing::broken ? document_ : stored.document;
    setPreferenceIn(next, key, value);
    const bool asStored = stored.standing == Standing::whole && next == stored.document;
    if (!asStored && !replaceFile(path_, encodePreferences(next).toStdString()))
        return false;
    written = std::move(next);
    return true;
}

Subscription JsonPreferences::observe(std::string_view key, std::function<void()> changed) {
    return observers_[std::string(key)].add(std::move(changed));
}

void JsonPreferences::reload() {
    watch();
    auto reading = readPreferences(path_);
    if (reading.standing == Standing::broken || reading.standing == Standing::unreadable)
        return;
    if (reading.document == document_)
        return;
    const auto before = observedValues();
    document_ = std::move(reading.document);
    tellChangesSince(before);
}

/// A replaced file is another file to the watcher, so it is added again each time.
void JsonPreferences::watch() {
    const auto file = QString::fromStdString(path_);
    const auto folder = QString::fromStdString(folderOf(path_));
    std::error_code ignored;
    const bool standing = std::filesystem::is_directory(folderOf(path_), ignored);
    if (standing && !watcher_.directories().contains(folder))
        watcher_.addPath(folder);
    if (!watcher_.files().contains(file) && std::filesystem::exists(path_, ignored))
        watcher_.addPath(file);
}

JsonPreferences::Values JsonPreferences::observedValues() const {
    Values values;
    for (const auto& [key, observers] : observers_)
        values.emplace(key, object(key));
    return values;
}

void JsonPreferences::tellChangesSince(const Values& before) const {
    for (const auto& [key, value] : before) {
        if (object(key) == value)
            continue;
        if (const auto found = observers_.find(key); found != observers_.end())
            found->second.tell();
    }
}

} // namespace brinmoor
