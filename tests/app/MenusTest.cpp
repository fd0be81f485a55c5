#include "tests/app/ShellDesk.h"

#include "app/TabCleanup.h"
#include "browser/TabSearchModel.h"
#include "platform/memory/MemoryUpdater.h"

#include <gmock/gmock.h>

namespace brinmoor {
namespace {

using ::testing::ElementsAre;
using testing::settle;

using Rows = std::vector<std::pair<std::string, std::string>>;

class MenusTest : public testing::ShellDesk {
protected:
    MenusTest() { shell(); }

    static Rows rows(const Menu& menu) {
        Rows found;
        for (const MenuItem& each : menu.items)
            found.emplace_back(each.title, each.key);
        return found;
    }
    /// The entries with this title, in the menus of the window and of the status item.
    std::vector<const MenuItem*> entries(const std::string& title) {
        std::vector<const Menu*> menus{&panels.statusMenu};
        for (const Menu& each : panels.mainMenu)
            menus.push_back(&each);
        std::vector<const MenuItem*> found;
        for (const Menu* menu : menus)
            for (const MenuItem& item : menu->items)
                if (item.title == title)
                    found.push_back(&item);
        if (found.empty())
            throw std::out_of_range(title);
        return found;
    }
    const MenuItem& entry(const std::string& title) { return *entries(title).front(); }
    void choose(const std::string& title) {
        for (const MenuItem* each : entries(title)) {
            each->run();
            settle();
        }
    }
    /// How often the browser was asked for something.
    [[nodiscard]] std::size_t asked() const { return scripts.runs.size(); }
};

TEST_F(MenusTest, theMainMenuHasThreeMenusWithTheirKeys) {
    ASSERT_EQ(panels.mainMenu.size(), 3U);
    EXPECT_EQ(rows(panels.mainMenu[0]), (Rows{{"Account…", ""},
                                              {"Settings…", ","},
                                              {"", ""},
                                              {"Check for Updates…", ""},
                                              {"", ""},
                                              {"Hide Brinmoor", "H"},
                                              {"Quit Brinmoor", "Q"}}));
    EXPECT_EQ(panels.mainMenu[1].title, "File");
    EXPECT_EQ(rows(panels.mainMenu[1]), (Rows{{"Search Open Tabs…", ""},
                                              {"Close Duplicate Tabs", ""},
                                              {"Clean Up Tabs…", ""},
                                              {"Save Copied Link", ""},
                                              {"Add Link…", "N"},
                                              {"Open Library", "0"},
                                              {"", ""},
                                              {"Save Current Browser Tab", ""},
                                              {"Save with a Note…", ""},
                                              {"Save Selected Tabs…", ""},
                                              {"Save Browser Window", ""},
                                              {"", ""},
                                              {"Import Backup…", ""},
                                              {"Export Backup…", ""},
                                              {"", ""},
                                              {"Close Window", "W"}}));
    EXPECT_EQ(panels.mainMenu[2].title, "Edit");
    EXPECT_EQ(rows(panels.mainMenu[2]), (Rows{{"Undo", "Z"},
                                              {"Cut", "X"},
                                              {"Copy", "C"},
                                              {"Paste", "V"},
                                              {"Select All", "A"},
                                              {"", ""},
                                              {"Find…", "F"}}));
}

TEST_F(MenusTest, theStatusItemHasItsOwnWords) {
    EXPECT_EQ(rows(panels.statusMenu), (Rows{{"Open Brinmoor", ""},
                                             {"Search open tabs…", ""},
                                             {"Close duplicate tabs", ""},
                                             {"Clean up tabs…", ""},
                                             {"", ""},
                                             {"Save current tab", ""},
                                             {"Save copied link", ""},
                                             {"Save with a note…", ""},
                                             {"Save selected tabs…", ""},
                                             {"Save all tabs in this window", ""},
                                             {"Add a link…", ""},
                                             {"", ""},
                                             {"Account…", ""},
                                             {"Settings…", ""},
                                             {"Check for Updates…", ""},
                                             {"Quit Brinmoor", "Q"}}));
}

TEST_F(MenusTest, menusComeAfterTheWindowAndBeforeItIsShown) {
    EXPECT_THAT(panels.log,
                ElementsAre("black", "make library", "menus", "status item", "key library"));
}

TEST_F(MenusTest, theTabSearchOpensEmptyAndFreshAndIsMadeOnce) {
    choose("Search Open Tabs…");
    const std::size_t readings = asked();
    EXPECT_GT(readings, 0U);
    auto* panel = panels.named("tab search");
    ASSERT_NE(panel, nullptr);
    shellModel().tabSearch().setQuery("old words");
    shellModel().tabSearch().close();
    EXPECT_FALSE(panel->visible);
    choose("Search open tabs…");
    EXPECT_TRUE(panel->visible);
    EXPECT_EQ(asked(), 2 * readings);
    EXPECT_EQ(shellModel().tabSearch().query(), "");
    EXPECT_EQ(panels.count("tab search"), 1);
    EXPECT_EQ(panel->centered, 1);
}

TEST_F(MenusTest, addingALinkShowsTheLibraryFirst) {
    shellModel().setShowingOnboarding(false);
    entry("Add a link…").run();
    EXPECT_EQ(panels.log.back(), "key library");
    EXPECT_FALSE(shellModel().isShowingAdd());
    settle();
    EXPECT_TRUE(shellModel().isShowingAdd());
}

TEST_F(MenusTest, findShowsTheLibraryAndItsSearch) {
    shellModel().setSection(AppSection::tags);
    int wanted = 0;
    QObject context;
    QObject::connect(&shellModel(), &AppModel::searchFocusWanted, &context, [&] { ++wanted; });
    choose("Find…");
    EXPECT_EQ(wanted, 1);
    EXPECT_EQ(shellModel().section(), AppSection::library);
    EXPECT_EQ(panels.log.back(), "key library");
}

TEST_F(MenusTest, capturesSaveFromTheMenuToo) {
    pageIs("https://tidewatch.org.uk/", "Tide tables");
    choose("Save current tab");
    ASSERT_EQ(shellModel().library().links.size(), 1U);
    EXPECT_EQ(shellModel().library().links.front().title, "Tide tables");
}

TEST_F(MenusTest, textIsUndoneBeforeTheLibrary) {
    pageIs("https://tidewatch.org.uk/", "Tide tables");
    choose("Save Current Browser Tab");
    panels.textCanUndo = true;
    choose("Undo");
    EXPECT_THAT(panels.performed, ElementsAre(WindowCommand::undoText));
    EXPECT_EQ(shellModel().library().links.size(), 1U);
    panels.textCanUndo = false;
    choose("Undo");
    EXPECT_TRUE(shellModel().library().links.empty());
}

TEST_F(MenusTest, undoIsOfferedOnlyWhereThereIsSomethingToUndo) {
    EXPECT_FALSE(entry("Undo").isEnabled());
    panels.textCanUndo = true;
    EXPECT_TRUE(entry("Undo").isEnabled());
    panels.textCanUndo = false;
    pageIs("https://tidewatch.org.uk/", "Tide tables");
    choose("Save current tab");
    EXPECT_TRUE(entry("Undo").isEnabled());
}

TEST_F(MenusTest, everyCaptureCanBeChosenInBothMenus) {
    int page = 0;
    const auto chosen = [&](const std::string& title) {
        const std::string number = std::to_string(++page);
        tabsAre({Desk::entry("https://a.example/" + number, "First"),
                 Desk::entry("https://b.example/" + number, "Second")});
        choose(title);
    };
    for (const char* title : {"Save Browser Window", "Save all tabs in this window"}) {
        const std::size_t before = shellModel().library().links.size();
        chosen(title);
        EXPECT_EQ(shellModel().library().links.size(), before + 2) << title;
    }
    for (const char* title : {"Save with a Note…", "Save with a note…"}) {
        chosen(title);
        EXPECT_TRUE(shellModel().draft()) << title;
        shellModel().discardDraft();
    }
    for (const char* title : {"Save Selected Tabs…", "Save selected tabs…"}) {
        chosen(title);
        EXPECT_TRUE(shellModel().tabSelection()) << title;
        shellModel().discardTabSelection();
    }
}

TEST_F(MenusTest, aCopiedLinkIsSavedFromBothMenus) {
    for (const char* title : {"Save Copied Link", "Save copied link"}) {
        const std::size_t before = shellModel().library().links.size();
        pasteboard.copy("https://a.example/" + std::to_string(before));
        choose(title);
        EXPECT_EQ(shellModel().library().links.size(), before + 1) << title;
    }
}

TEST_F(MenusTest, tabsAreCleanedUpFromBothMenus) {
    const auto said = [&](const char* title) {
        shellModel().dismissToast();
        choose(title);
        return shellModel().toast() ? shellModel().toast()->title : "nothing";
    };
    for (const char* title : {"Close Duplicate Tabs", "Close duplicate tabs"})
        EXPECT_EQ(said(title), "Tabs already tidy") << title;
    for (const char* title : {"Clean Up Tabs…", "Clean up tabs…"})
        EXPECT_EQ(said(title), "Tab Cleanup is off") << title;
}

TEST_F(MenusTest, backupsAndTheLibraryAreInTheFileMenu) {
    choose("Import Backup…");
    EXPECT_EQ(files.opened, 1);
    choose("Export Backup…");
    EXPECT_EQ(files.suggested.size(), 1U);
    for (const char* title : {"Open Library", "Open Brinmoor"}) {
        panels.log.clear();
        choose(title);
        EXPECT_THAT(panels.log, ElementsAre("key library")) << title;
    }
}

TEST_F(MenusTest, withoutAnUpdaterUpdatesCannotBeChosenInEitherMenu) {
    const auto updates = entries("Check for Updates…");
    ASSERT_EQ(updates.size(), 2U);
    for (const MenuItem* each : updates)
        EXPECT_FALSE(each->isEnabled());
}

TEST_F(MenusTest, bothMenusAskTheSameUpdater) {
    endShell();
    MemoryUpdater updater;
    AppParts official = parts();
    official.build = {
        .identifier = "app.brinmoor.mac", .updatesEnabled = true, .version = "1.0", .number = "1"};
    official.updater = &updater;
    AppDelegate released(official, panels);
    released.launch();
    for (const MenuItem* each : entries("Check for Updates…")) {
        EXPECT_TRUE(each->isEnabled());
        each->run();
    }
    EXPECT_EQ(updater.starts, 1);
    EXPECT_EQ(updater.checks, 2);
    updater.set(false, false);
    for (const MenuItem* each : entries("Check for Updates…"))
        EXPECT_FALSE(each->isEnabled()) << "a check is in progress";
}

TEST_F(MenusTest, whatTheWindowDoesIsLeftToIt) {
    for (const char* title :
         {"Hide Brinmoor", "Quit Brinmoor", "Close Window", "Cut", "Copy", "Paste", "Select All"})
        choose(title);
    EXPECT_THAT(panels.performed,
                ElementsAre(WindowCommand::hide, WindowCommand::quit, WindowCommand::quit,
                            WindowCommand::closeWindow, WindowCommand::cut, WindowCommand::copy,
                            WindowCommand::paste, WindowCommand::selectAll));
}

TEST_F(MenusTest, settingsAndAccountOpenInTheLibraryWindow) {
    choose("Settings…");
    EXPECT_EQ(shellModel().section(), AppSection::settings);
    choose("Account…");
    EXPECT_EQ(shellModel().section(), AppSection::account);
    EXPECT_EQ(panels.log.back(), "key library");
}

} // namespace
} // namespace brinmoor
