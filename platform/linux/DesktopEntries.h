#pragma once

#include "platform/linux/Places.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace brinmoor {

/// What the desktop calls its applications, by the desktop entries installed. Names are read when
/// they are first asked for and kept.
class DesktopEntries {
public:
    /// The folders to look in, the first entry found winning.
    explicit DesktopEntries(std::vector<std::string> folders) : folders_(std::move(folders)) {}

    /// The "Name" of the entry that a window of this class belongs to: the entry is named after the
    /// class or the instance, or names either of them as its StartupWMClass.
    [[nodiscard]] std::optional<std::string> nameOf(const std::string& instance,
                                                    const std::string& windowClass);

private:
    using Names = std::map<std::string, std::string, std::less<>>;

    [[nodiscard]] std::optional<std::string> find(const std::string& instance,
                                                  const std::string& windowClass);
    [[nodiscard]] std::optional<std::string> nameInEntry(const std::string& entry) const;
    [[nodiscard]] const Names& namesByClass();

    std::vector<std::string> folders_;
    std::map<std::pair<std::string, std::string>, std::optional<std::string>> known_;
    std::optional<Names> byClass_;
};

/// The user's own entries first, then the system's.
[[nodiscard]] std::vector<std::string> desktopEntryFolders(const Environment& environment);

} // namespace brinmoor
