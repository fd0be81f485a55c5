#include "platform/linux/Places.h"

#include <gmock/gmock.h>

#include <map>

using namespace brinmoor;

namespace {

Environment environmentOf(std::map<std::string, std::string> variables) {
    return [variables = std::move(variables)](const char* name) -> std::optional<std::string> {
        const auto found = variables.find(name);
        return found == variables.end() ? std::nullopt : std::optional(found->second);
    };
}

} // namespace

TEST(Places, variablesThatNameAbsoluteFoldersAreFollowed) {
    const auto places = placesIn(environmentOf({{"HOME", "/home/ada"},
                                                {"XDG_DATA_HOME", "/data"},
                                                {"XDG_CONFIG_HOME", "/config/"},
                                                {"XDG_CACHE_HOME", "/cache"},
                                                {"XDG_RUNTIME_DIR", "/run/user/7"}}));
    EXPECT_EQ(places.libraryFile, "/data/Brinmoor/library.json");
    EXPECT_EQ(places.preferencesFolder, "/config/app.brinmoor.mac");
    EXPECT_EQ(places.preferencesFile, "/config/app.brinmoor.mac/preferences.json");
    EXPECT_EQ(places.configHome, "/config");
    EXPECT_EQ(places.iconsFolder, "/cache/app.brinmoor.mac/SiteIcons");
    EXPECT_EQ(places.runtimeFolder, "/run/user/7/brinmoor");
}

TEST(Places, unsetEmptyAndRelativeVariablesGiveTheDefaults) {
    const auto places = placesIn(environmentOf({{"HOME", "/home/ada"},
                                                {"XDG_DATA_HOME", ""},
                                                {"XDG_CONFIG_HOME", "config"},
                                                {"XDG_RUNTIME_DIR", "run"}}));
    EXPECT_EQ(places.libraryFile, "/home/ada/.local/share/Brinmoor/library.json");
    EXPECT_EQ(places.preferencesFile, "/home/ada/.config/app.brinmoor.mac/preferences.json");
    EXPECT_EQ(places.iconsFolder, "/home/ada/.cache/app.brinmoor.mac/SiteIcons");
    EXPECT_EQ(places.runtimeFolder, std::nullopt);
}

TEST(Places, withoutHomeTheUserEntryTellsIt) {
    const auto places = placesIn(environmentOf({}));
    EXPECT_TRUE(places.home.starts_with('/'));
    EXPECT_TRUE(places.libraryFile.starts_with(places.home));
}
