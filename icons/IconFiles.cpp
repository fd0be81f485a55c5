#include "icons/IconFiles.h"

#include <QFile>
#include <QTemporaryFile>

#include <algorithm>
#include <chrono>
#include <system_error>
#include <vector>

namespace brinmoor {
namespace {

namespace fs = std::filesystem;

Instant instantOf(fs::file_time_type time) {
    const auto since1970 = std::chrono::file_clock::to_sys(time).time_since_epoch();
    return {std::chrono::duration<double>(since1970).count() - unixSecondsAtInstantZero};
}

struct DatedFile {
    fs::path path;
    fs::file_time_type date = fs::file_time_type::min(); ///< long ago when it can't be told
};

std::vector<DatedFile> filesIn(const fs::path& folder) {
    std::vector<DatedFile> files;
    std::error_code failure;
    for (fs::directory_iterator at(folder, failure), end; !failure && at != end;
         at.increment(failure)) {
        std::error_code unreadable;
        const auto date = at->last_write_time(unreadable);
        files.push_back({at->path(), unreadable ? fs::file_time_type::min() : date});
    }
    return files;
}

} // namespace

fs::path IconFiles::file(const std::string& key) const {
    return folder_ / (key + ".png");
}

std::optional<QByteArray> IconFiles::read(const std::string& key, Instant now) const {
    const fs::path path = file(key);
    std::error_code failure;
    const auto date = fs::last_write_time(path, failure);
    if (failure || now.seconds - instantOf(date).seconds >= lifeInSeconds)
        return std::nullopt;
    QFile stored(QString::fromStdString(path.string()));
    if (!fs::is_regular_file(path, failure) || !stored.open(QIODevice::ReadOnly))
        return std::nullopt;
    QByteArray bytes = stored.read(largestFile + 1);
    const bool isWhole = stored.error() == QFileDevice::NoError;
    if (!isWhole || static_cast<std::size_t>(bytes.size()) > largestFile)
        return std::nullopt;
    return bytes;
}

void IconFiles::keep(const std::string& key, const QByteArray& bytes) const {
    std::error_code ignored;
    fs::create_directories(folder_, ignored);
    (void)write(file(key), bytes);
    removeOldest();
}

/// Under another name first. An icon is not worth waiting for the disk.
bool IconFiles::write(const fs::path& target, const QByteArray& bytes) const {
    QTemporaryFile temporary(QString::fromStdString((folder_ / ".XXXXXX.tmp").string()));
    if (!temporary.open() || temporary.write(bytes) != bytes.size() || !temporary.flush())
        return false;
    std::error_code failure;
    fs::rename(temporary.fileName().toStdString(), target, failure);
    temporary.setAutoRemove(static_cast<bool>(failure));
    return !failure;
}

void IconFiles::removeOldest() const {
    std::vector<DatedFile> files = filesIn(folder_);
    if (files.size() <= mostFiles)
        return;
    std::sort(files.begin(), files.end(),
              [](const DatedFile& a, const DatedFile& b) { return a.date < b.date; });
    files.resize(files.size() - mostFiles);
    std::error_code ignored;
    for (const DatedFile& oldest : files)
        fs::remove(oldest.path, ignored);
}

} // namespace brinmoor
