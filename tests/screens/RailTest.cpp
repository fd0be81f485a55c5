// The rail beside the sections, and the alert above them.

#include "core/text/Wording.h"
#include "tests/screens/LibraryDesk.h"

namespace brinmoor {
namespace {

using namespace testing;

class RailTest : public LibraryDesk {
protected:
    QQuickItem* button(const QString& title) { return seen(u"RailButton"_qs, title); }
    void press(const QString& title) { clickOn(u"RailButton"_qs, title); }
    [[nodiscard]] bool sectionBecomes(AppSection section) {
        return waitUntil([&] { return model().section() == section; });
    }
};

TEST_F(RailTest, reviewImportanceNeverReacts) {
    openLibrary();
    QQuickItem* review = button(u"Review importance"_qs);
    ASSERT_NE(review, nullptr);
    EXPECT_FALSE(review->isEnabled());
    EXPECT_EQ(review->opacity(), 0.4);
    const auto runs = scripts.runs.size();
    press(u"Review importance"_qs);
    // What is pressed after it does answer, so its own press is over.
    press(u"Tags"_qs);
    ASSERT_TRUE(sectionBecomes(AppSection::tags));
    press(u"Review importance"_qs);
    press(u"Library"_qs);
    ASSERT_TRUE(sectionBecomes(AppSection::library));
    EXPECT_EQ(scripts.runs.size(), runs);
    EXPECT_FALSE(model().isShowingAdd() || model().selectedID() || model().sharingLink() ||
                 model().isShowingOnboarding() || model().error());
}

TEST_F(RailTest, everyOtherButtonDoesWhatItSays) {
    openLibrary();
    int searches = 0;
    int accounts = 0;
    model().showTabSearch = [&] { ++searches; };
    model().showAccount = [&] { ++accounts; };
    press(u"Search open tabs"_qs);
    EXPECT_TRUE(waitUntil([&] { return searches == 1; }));
    press(u"Account"_qs);
    EXPECT_TRUE(waitUntil([&] { return accounts == 1; }));
    press(u"Settings"_qs);
    EXPECT_TRUE(sectionBecomes(AppSection::settings));
    press(u"Tags"_qs);
    EXPECT_TRUE(sectionBecomes(AppSection::tags));
    press(u"Add a link"_qs);
    EXPECT_TRUE(waitUntil([&] { return model().isShowingAdd(); }));
}

TEST_F(RailTest, onlyTheShownSectionIsSelected) {
    openLibrary();
    for (const auto& [section, title] :
         {std::pair(AppSection::tags, u"Tags"_qs), std::pair(AppSection::account, u"Account"_qs),
          std::pair(AppSection::settings, u"Settings"_qs),
          std::pair(AppSection::library, u"Library"_qs)}) {
        model().setSection(section);
        for (const QString& each :
             {u"Library"_qs, u"Tags"_qs, u"Review importance"_qs, u"Search open tabs"_qs,
              u"Add a link"_qs, u"Account"_qs, u"Settings"_qs})
            EXPECT_EQ(button(each)->property("selected").toBool(), each == title)
                << each.toStdString();
    }
}

// What could not be done.

constexpr std::string_view refusal =
    "Enter a complete web address beginning with https:// or http://.";

std::string aboutAutomation(std::string_view source) {
    return source == refusal ? "Check Automation access for Chromium." : std::string(source);
}

std::string aboutBrowserAccess(std::string_view source) {
    if (source == refusal)
        return "Check Browser access for Chromium.";
    if (source == "Automation")
        return "browser access";
    return source == "Automation Settings" ? "Browser Access Settings" : std::string(source);
}

class ErrorAlertTest : public LibraryDesk {
protected:
    ~ErrorAlertTest() override { text::setWording(nullptr); }

    void fail() {
        openLibrary();
        const auto adding = [&]() -> QCoro::Task<> {
            static_cast<void>(co_await model().add("nonsense", "A page", "Inbox", "", {}));
        };
        adding();
        ASSERT_TRUE(appears(u"ErrorAlert"_qs));
        ASSERT_TRUE(focusIsOn(u"OK"_qs));
    }
    void expectWayToSettings(const QString& name) {
        clickOn(u"TextButton"_qs, name);
        EXPECT_TRUE(waitUntil([&] { return model().isShowingBrowserAccess(); }));
        EXPECT_EQ(model().section(), AppSection::settings);
        EXPECT_FALSE(model().error().has_value());
        EXPECT_TRUE(disappears(u"ErrorAlert"_qs));
        EXPECT_TRUE(appears(u"BrowserAccessView"_qs));
    }
};

TEST_F(ErrorAlertTest, anErrorAboutAnythingElseHasNoWayToTheSettings) {
    fail();
    EXPECT_NE(seen(u"PlainText"_qs, QString::fromLatin1(refusal.data(), qsizetype(refusal.size()))),
              nullptr);
    EXPECT_EQ(seen(u"TextButton"_qs, u"Automation Settings"_qs), nullptr);
    clickOn(u"BaseButton"_qs, u"OK"_qs);
    EXPECT_TRUE(waitUntil([&] { return !model().error().has_value(); }));
    EXPECT_FALSE(model().isShowingBrowserAccess());
}

TEST_F(ErrorAlertTest, oneThatNamesAutomationLeadsToTheBrowsers) {
    text::setWording(&aboutAutomation);
    fail();
    expectWayToSettings(u"Automation Settings"_qs);
}

TEST_F(ErrorAlertTest, soDoesOneInTheWordsOfThisPlatform) {
    text::setWording(&aboutBrowserAccess);
    fail();
    expectWayToSettings(u"Browser Access Settings"_qs);
}

} // namespace
} // namespace brinmoor
