#include "platform/linux/DesktopEntries.h"

#include "platform/linux/AtomicFile.h"

#include <algorithm>
#include <filesystem>
#include <sstream>

namespace brinmoor {
namespace {

namespace fs = std::filesystem;

struct Entry {
    std::optional<std::string> name;
    std::optional<std::string> windowClass;
};

std::string lowered(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return text;
}

std::optional<std::string> valueOf(const std::string& line, std::string_view key) {
    if (!line.starts_with(key))
        return std::nullopt;
    const auto sign = line.find_first_not_of(' ', key.size());
    if (sign == std::string::npos || line[sign] != '=')
        return std::nullopt;
    const auto start = line.find_first_not_of(' ', sign + 1);
    if (start == std::string::npos)
        return std::nullopt;
    return line.substr(start, line.find_last_not_of(" \r") - start + 1);
}

/// Only the first group counts: the later ones are actions with names of their own.
Entry readEntry(const std::string& path) {
    constexpr std::size_t largestEntry = std::size_t{256} << 10;
    const auto contents = readFile(path, largestEntry);
    Entry entry;
    if (!contents)
        return entry;
    std::istringstream lines(*contents);
    bool inside = false;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with('[')) {
            if (inside)
                break;
            inside = line.starts_with("[Desktop Entry]");
        } else if (inside) {
            if (auto name = valueOf(line, "Name"))
                entry.name = std::move(name);
            else if (auto windowClass = valueOf(line, "StartupWMClass"))
                entry.windowClass = std::move(windowClass);
        }
    }
    return entry;
}

} // namespace

std::optional<std::string> DesktopEntries::nameOf(const std::string& instance,
                                                  const std::string& windowClass) {
    const auto key = std::pair(instance, windowClass);
    const auto found = known_.find(key);
    if (found != known_.end())
        return found->second;
    return known_.emplace(key, find(instance, windowClass)).first->second;
}

std::optional<std::string> DesktopEntries::find(const std::string& instance,
                                                const std::string& windowClass) {
    for (const auto& entry : {windowClass, lowered(windowClass), instance, lowered(instance)}) {
        if (auto name = nameInEntry(entry))
            return name;
    }
    const auto& byClass = namesByClass();
    for (const auto& asked : {lowered(windowClass), lowered(instance)}) {
        if (const auto found = byClass.find(asked); found != byClass.end())
            return found->second;
    }
    return std::nullopt;
}

std::optional<std::string> DesktopEntries::nameInEntry(const std::string& entry) const {
    // A window's class is what another program says: it names a file in these folders and no other.
    if (entry.empty() || entry.find('/') != std::string::npos)
        return std::nullopt;
    for (const auto& folder : folders_) {
        std::string file = folder;
        file.append("/").append(entry).append(".desktop");
        if (auto name = readEntry(file).name)
            return name;
    }
    return std::nullopt;
}

const DesktopEntries::Names& DesktopEntries::namesByClass() {
    if (byClass_)
        return *byClass_;
    byClass_.emplace();
    for (const auto& folder : folders_) {
        std::error_code ignored;
        for (fs::directory_iterator file(folder, ignored), end; file != end;
             file.increment(ignored)) {
            if (file->path().extension() != ".desktop")
                continue;
            auto entry = readEntry(file->path().string());
            if (entry.name && entry.windowClass)
                byClass_->emplace(lowered(*entry.windowClass), std::move(*entry.name));
        }
    }
    return *byClass_;
}

std::vector<std::string> desktopEntryFolders(const Environment& environment) {
    std::vector<std::string> folders{placesIn(environment).dataHome + "/applications"};
    auto system = environment("XDG_DATA_DIRS").value_or("");
    if (system.empty())
        system = "/usr/local/share:/usr/share";
    std::istringstream parts(system);
    for (std::string part; std::getline(parts, part, ':');) {
        if (part.starts_with('/'))
            folders.push_back(part + "/applications");
    }
    return folders;
}

} // namespace brinmoor
