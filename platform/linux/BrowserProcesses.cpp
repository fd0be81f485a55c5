#include "platform/linux/BrowserProcesses.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cstdlib>
#include <memory>
#include <string>
#include <tuple>

namespace brinmoor {
namespace {

struct KnownName {
    std::string_view name; ///< an executable, window class or package identifier, lower case
    std::string_view browserID;
};

constexpr auto knownNames = std::to_array<KnownName>({
    {"chromium", "org.chromium.Chromium"},
    {"chromium-browser", "org.chromium.Chromium"},
    {"org.chromium.chromium", "org.chromium.Chromium"},
    {"google-chrome", "com.google.Chrome"},
    {"google-chrome-stable", "com.google.Chrome"},
    {"com.google.chrome", "com.google.Chrome"},
    {"google-chrome-beta", "com.google.Chrome.beta"},
    {"google-chrome-unstable", "com.google.Chrome.dev"},
    {"com.google.chromedev", "com.google.Chrome.dev"},
    {"brave", "com.brave.Browser"},
    {"brave-browser", "com.brave.Browser"},
    {"brave-browser-stable", "com.brave.Browser"},
    {"com.brave.browser", "com.brave.Browser"},
    {"msedge", "com.microsoft.edgemac"},
    {"microsoft-edge", "com.microsoft.edgemac"},
    {"microsoft-edge-stable", "com.microsoft.edgemac"},
    {"com.microsoft.edge", "com.microsoft.edgemac"},
    {"vivaldi", "com.vivaldi.Vivaldi"},
    {"vivaldi-bin", "com.vivaldi.Vivaldi"},
    {"vivaldi-stable", "com.vivaldi.Vivaldi"},
    {"com.vivaldi.vivaldi", "com.vivaldi.Vivaldi"},
    {"opera", "com.operasoftware.Opera"},
    {"opera-stable", "com.operasoftware.Opera"},
    {"com.opera.opera", "com.operasoftware.Opera"},
    {"firefox", "org.mozilla.firefox"},
    {"firefox-bin", "org.mozilla.firefox"},
    {"firefox-esr", "org.mozilla.firefox"},
    {"org.mozilla.firefox", "org.mozilla.firefox"},
    {"firefox-nightly", "org.mozilla.firefoxnightly"},
    {"firefox-devedition", "org.mozilla.firefoxdeveloperedition"},
    {"zen", "app.zen-browser.zen"},
    {"zen-bin", "app.zen-browser.zen"},
    {"zen-browser", "app.zen-browser.zen"},
    {"app.zen_browser.zen", "app.zen-browser.zen"},
});

/// Browsers built on Chromium often keep "chrome" as the name of the program; the folder tells
/// which of them it is. The first that occurs in the path wins.
constexpr auto foldersOfChrome = std::to_array<KnownName>({
    {"chromium", "org.chromium.Chromium"},
    {"chrome-beta", "com.google.Chrome.beta"},
    {"chrome-unstable", "com.google.Chrome.dev"},
    {"brave", "com.brave.Browser"},
});

std::string lowerCase(std::string_view text) {
    std::string lower(text);
    for (char& letter : lower)
        if (letter >= 'A' && letter <= 'Z')
            letter = static_cast<char>(letter - 'A' + 'a');
    return lower;
}

std::optional<std::string> browserOfChromePath(const std::string& path) {
    for (const KnownName& folder : foldersOfChrome)
        if (path.find(folder.name) != std::string::npos)
            return std::string(folder.browserID);
    return "com.google.Chrome";
}

std::string procPath(std::int32_t process, std::string_view file) {
    return "/proc/" + std::to_string(process) + "/" + std::string(file);
}

/// At most 64 KiB of a file that the kernel makes up.
std::string contentOf(const std::string& path) {
    std::string content;
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return content;
    content.resize(std::size_t{64} << 10);
    const ssize_t size = ::read(file, content.data(), content.size());
    content.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
    ::close(file);
    return content;
}

std::string executableOf(std::int32_t process) {
    std::array<char, 4096> path{};
    const ssize_t size = ::readlink(procPath(process, "exe").c_str(), path.data(), path.size());
    std::string_view executable(path.data(), size > 0 ? static_cast<std::size_t>(size) : 0);
    // What the kernel adds when the program was replaced by an update while it ran.
    constexpr std::string_view replaced = " (deleted)";
    if (executable.ends_with(replaced))
        executable.remove_suffix(replaced.size());
    return std::string(executable);
}

/// Renderers, GPU processes and the like carry one of these among their arguments. A process that
/// is only starting or already ending has none to tell by, and is no browser to speak to either.
bool isMainProcess(std::int32_t process) {
    const std::string arguments = contentOf(procPath(process, "cmdline"));
    std::string_view rest(arguments);
    while (!rest.empty()) {
        const std::string_view argument = rest.substr(0, rest.find('\0'));
        if (argument.starts_with("--type=") || argument == "-contentproc")
            return false;
        rest.remove_prefix(std::min(rest.size(), argument.size() + 1));
    }
    return !arguments.empty();
}

/// Inside a Flatpak the executable's path is the sandbox's own; the group of the process names the
/// application: ".../app-flatpak-org.chromium.Chromium-1234.scope".
std::optional<std::string> flatpakApplication(std::int32_t process) {
    constexpr std::string_view mark = "app-flatpak-";
    const std::string group = contentOf(procPath(process, "cgroup"));
    const auto start = group.find(mark);
    if (start == std::string::npos)
        return std::nullopt;
    const auto name = group.substr(start + mark.size());
    const auto end = name.find(".scope");
    return name.substr(0, name.rfind('-', end));
}

std::optional<std::string> identifierOf(std::int32_t process) {
    const std::string executable = executableOf(process);
    if (executable.empty())
        return std::nullopt;
    if (executable.starts_with("/app/"))
        if (const auto application = flatpakApplication(process))
            if (auto identifier = browserIdentifier(*application))
                return identifier;
    return browserIdentifier(executable);
}

struct ProcessOrigin {
    std::int32_t parent = 0;
    std::uint64_t startTime = 0;
};

/// Fields 4 and 22 of the process's line, counted behind its name, which may hold anything.
ProcessOrigin originOf(std::int32_t process) {
    const std::string line = contentOf(procPath(process, "stat"));
    ProcessOrigin origin;
    std::size_t position = line.rfind(") ");
    if (position == std::string::npos)
        return origin;
    position += 2;
    for (int field = 3; field <= 22 && position < line.size(); ++field) {
        const std::size_t end = std::min(line.find(' ', position), line.size());
        if (field == 4)
            std::from_chars(line.data() + position, line.data() + end, origin.parent);
        if (field == 22)
            std::from_chars(line.data() + position, line.data() + end, origin.startTime);
        position = end + 1;
    }
    return origin;
}

std::vector<std::int32_t> ownProcesses() {
    std::vector<std::int32_t> processes;
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(::opendir("/proc"), ::closedir);
    const uid_t user = ::geteuid();
    while (const dirent* entry = entries ? ::readdir(entries.get()) : nullptr) {
        const int number = std::atoi(entry->d_name);
        struct stat status {};
        if (number > 0 && ::fstatat(::dirfd(entries.get()), entry->d_name, &status, 0) == 0 &&
            status.st_uid == user)
            processes.push_back(number);
    }
    return processes;
}

struct Candidate {
    BrowserProcess browser;
    ProcessOrigin origin;
};

/// A browser that is about to start another program is there twice for a moment.
bool isCopyOfItsParent(const Candidate& candidate, const std::vector<Candidate>& all) {
    return std::any_of(all.begin(), all.end(), [&](const Candidate& other) {
        return other.browser.processIdentifier == candidate.origin.parent &&
               other.browser.browserID == candidate.browser.browserID;
    });
}

} // namespace

std::optional<std::string> browserIdentifier(std::string_view executableOrClass) {
    const std::string path = lowerCase(executableOrClass);
    const std::string name = path.substr(path.rfind('/') + 1);
    if (name == "chrome")
        return browserOfChromePath(path);
    const auto* known = std::find_if(knownNames.begin(), knownNames.end(),
                                     [&](const KnownName& each) { return each.name == name; });
    return known != knownNames.end() ? std::optional<std::string>(known->browserID) : std::nullopt;
}

std::optional<std::string> browserIdentifierOfProcess(std::int32_t process) {
    auto identifier = identifierOf(process);
    return identifier && isMainProcess(process) ? identifier : std::nullopt;
}

std::vector<BrowserProcess> runningBrowserProcesses() {
    std::vector<Candidate> candidates;
    for (const std::int32_t process : ownProcesses())
        if (auto identifier = browserIdentifierOfProcess(process))
            candidates.push_back({{std::move(*identifier), process}, originOf(process)});
    std::sort(candidates.begin(), candidates.end(), [](const Candidate& a, const Candidate& b) {
        return std::tie(a.origin.startTime, a.browser.processIdentifier) <
               std::tie(b.origin.startTime, b.browser.processIdentifier);
    });
    std::vector<BrowserProcess> browsers;
    for (const Candidate& candidate : candidates)
        if (!isCopyOfItsParent(candidate, candidates))
            browsers.push_back(candidate.browser);
    return browsers;
}

} // namespace brinmoor
