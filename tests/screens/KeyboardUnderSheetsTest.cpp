// Who has the keyboard while something stands above the sections: the whole shell in real windows,
// by real keys.

#include "app/AppDelegate.h"
#include "screens/AppRoot.h"
#include "screens/OnboardingScreen.h"
#include "tests/screens/PanelDesk.h"

namespace brinmoor {
namespace {

using namespace testing;

constexpr std::uint32_t comma = 0x2c;
constexpr std::uint32_t letterF = 0x66;
constexpr std::uint32_t letterN = 0x6e;

class KeyboardUnderSheetsTest : public PanelDesk {
protected:
    void launch() {
        given(libraryOf({link("https://a.example/", "Stored")}));
        shell_ = std::make_unique<AppDelegate>(parts(), panels);
        shell_->launch();
        ASSERT_TRUE(becomesActive(*shell_->libraryWindow()));
    }
    AppModel& shown() { return *shell_->model(); }
    QQuickView& view() { return viewOf(*shell_->libraryWindow()); }
    OnboardingScreen& tour() { return *view().findChild<AppRoot*>()->onboarding(); }
    [[nodiscard]] bool keyboardIsIn(const QString& type) {
        return waitUntil([&] {
            for (QQuickItem* item = view().activeFocusItem(); item; item = item->parentItem())
                if (QString::fromLatin1(item->metaObject()->className())
                        .startsWith(type + u"_QML"_qs))
                    return true;
            return false;
        });
    }
    [[nodiscard]] bool typed(const QString& text) {
        return waitUntil([&] {
            const QQuickItem* item = view().activeFocusItem();
            return item && item->property("text").toString() == text;
        });
    }
    void openDetail() {
        shown().setSelectedID(shown().library().links[0].id);
        ASSERT_TRUE(typed(u"Stored"_qs));
    }
    /// The keyboard stays in the sheet through everything that the keys and notices lead to.
    void goEverywhereUnder(const QString& sheet) {
        int searches = 0;
        const QObject context;
        QObject::connect(&shown(), &AppModel::searchFocusWanted, &context, [&] { ++searches; });
        desktop.press(letterF, {"Ctrl"});
        ASSERT_TRUE(waitUntil([&] { return searches == 1; }));
        EXPECT_TRUE(keyboardIsIn(sheet)) << "search";
        desktop.press(comma, {"Ctrl"});
        ASSERT_TRUE(waitUntil([&] { return shown().section() == AppSection::settings; }));
        EXPECT_TRUE(keyboardIsIn(sheet)) << "settings";
        shown().presentBrowserAccess();
        EXPECT_TRUE(keyboardIsIn(sheet)) << "browsers";
        shown().showAccount();
        EXPECT_TRUE(keyboardIsIn(sheet)) << "account";
        shown().setSection(AppSection::tags);
        EXPECT_TRUE(keyboardIsIn(sheet)) << "tags";
    }

private:
    std::unique_ptr<AppDelegate> shell_;
};

TEST_F(KeyboardUnderSheetsTest, aSheetKeepsItWhateverIsShownBelow) {
    launch();
    openDetail();
    goEverywhereUnder(u"DetailSheet"_qs);
    desktop.type("x");
    EXPECT_TRUE(typed(u"x"_qs) || typed(u"Storedx"_qs));
    EXPECT_TRUE(shown().view().query.empty());
}

TEST_F(KeyboardUnderSheetsTest, anAlertKeepsItToo) {
    launch();
    const auto adding = [&]() -> QCoro::Task<> {
        static_cast<void>(co_await shown().add("nonsense", "A page", "Inbox", "", {}));
    };
    adding();
    ASSERT_TRUE(keyboardIsIn(u"ErrorAlert"_qs));
    goEverywhereUnder(u"ErrorAlert"_qs);
    desktop.press(Key::enter);
    EXPECT_TRUE(waitUntil([&] { return !shown().error().has_value(); }));
}

TEST_F(KeyboardUnderSheetsTest, theSectionShownMeanwhileHasItAfterwards) {
    launch();
    openDetail();
    desktop.press(comma, {"Ctrl"});
    ASSERT_TRUE(waitUntil([&] { return shown().section() == AppSection::settings; }));
    desktop.press(Key::escape);
    ASSERT_TRUE(waitUntil([&] { return !shown().selectedID().has_value(); }));
    EXPECT_TRUE(keyboardIsIn(u"SettingsView"_qs));
    desktop.press(letterF, {"Ctrl"});
    EXPECT_TRUE(keyboardIsIn(u"SearchField"_qs));
}

TEST_F(KeyboardUnderSheetsTest, theCommandThatAddsALinkDoesNothingUnderASheet) {
    launch();
    openDetail();
    desktop.press(letterN, {"Ctrl"});
    desktop.type("x");
    EXPECT_TRUE(waitUntil(
        [&] { return view().activeFocusItem()->property("text").toString().endsWith(u'x'); }));
    settle();
    EXPECT_FALSE(shown().isShowingAdd());
    EXPECT_TRUE(keyboardIsIn(u"DetailSheet"_qs));
    desktop.press(Key::escape);
    ASSERT_TRUE(waitUntil([&] { return !shown().selectedID().has_value(); }));
    desktop.press(letterN, {"Ctrl"});
    EXPECT_TRUE(waitUntil([&] { return shown().isShowingAdd(); }));
    EXPECT_TRUE(keyboardIsIn(u"AddSheet"_qs));
}

TEST_F(KeyboardUnderSheetsTest, theTourHasItThoughARefusedShortcutOpensTheSettings) {
    preferences.values.erase("hasCompletedOnboarding");
    const auto keys = defaultShortcut(CaptureAction::quick);
    hotKeys.refused.insert({keys.keyCode, keys.modifiers});
    launch();
    ASSERT_EQ(shown().section(), AppSection::settings);
    ASSERT_TRUE(shown().isShowingOnboarding());
    ASSERT_TRUE(keyboardIsIn(u"OnboardingSheet"_qs));
    desktop.press(Key::enter);
    EXPECT_TRUE(waitUntil([&] { return tour().step() == 1; }));
    desktop.press(Key::escape);
    EXPECT_TRUE(waitUntil([&] { return !shown().isShowingOnboarding(); }));
    EXPECT_TRUE(keyboardIsIn(u"SettingsView"_qs));
}

} // namespace
} // namespace brinmoor
