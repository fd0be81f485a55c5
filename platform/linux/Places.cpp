#include "platform/linux/Places.h"

#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

namespace brinmoor {
namespace {

std::optional<std::string> absolutePath(const Environment& environment, const char* name) {
    auto path = environment(name);
    if (!path || !path->starts_with('/'))
        return std::nullopt;
    while (path->size() > 1 && path->ends_with('/'))
        path->pop_back();
    return path;
}

std::string homeOfUser() {
    const auto* entry = ::getpwuid(::getuid());
    return entry != nullptr && entry->pw_dir != nullptr ? entry->pw_dir : "/";
}

} // namespace

Places placesIn(const Environment& environment) {
    Places places;
    const auto home = absolutePath(environment, "HOME");
    places.home = home ? *home : homeOfUser();
    const auto base = [&](const char* name, const char* otherwise) {
        return absolutePath(environment, name).value_or(places.home + otherwise);
    };
    places.configHome = base("XDG_CONFIG_HOME", "/.config");
    places.dataHome = base("XDG_DATA_HOME", "/.local/share");
    places.libraryFile = places.dataHome + "/Brinmoor/library.json";
    places.preferencesFolder = places.configHome + "/app.brinmoor.mac";
    places.preferencesFile = places.preferencesFolder + "/preferences.json";
    places.iconsFolder = base("XDG_CACHE_HOME", "/.cache") + "/app.brinmoor.mac/SiteIcons";
    if (const auto runtime = absolutePath(environment, "XDG_RUNTIME_DIR"))
        places.runtimeFolder = *runtime + "/brinmoor";
    return places;
}

Places systemPlaces() {
    return placesIn([](const char* name) -> std::optional<std::string> {
        const char* value = std::getenv(name);
        return value ? std::optional<std::string>(value) : std::nullopt;
    });
}

} // namespace brinmoor
