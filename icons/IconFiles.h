#pragma once

#include "core/library/Instant.h"

#include <QByteArray>

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

namespace brinmoor {

/// The icons that are kept on disk, one file for each key. Nothing here fails: what can't be read
/// is absent, and what can't be written is not kept.
class IconFiles {
public:
    static constexpr std::size_t mostFiles = 256;
    static constexpr std::size_t largestFile = std::size_t{1} << 20;
    static constexpr double lifeInSeconds = 604800; ///< 7 days

    explicit IconFiles(const std::string& folder) : folder_(folder) {}

    /// The bytes of a file that is younger than its life.
    [[nodiscard]] std::optional<QByteArray> read(const std::string& key, Instant now) const;
    /// Keeps the bytes and removes the oldest files beyond the limit.
    void keep(const std::string& key, const QByteArray& bytes) const;

private:
    [[nodiscard]] std::filesystem::path file(const std::string& key) const;
    bool write(const std::filesystem::path& target, const QByteArray& bytes) const;
    void removeOldest() const;

    std::filesystem::path folder_;
};

} // namespace brinmoor
