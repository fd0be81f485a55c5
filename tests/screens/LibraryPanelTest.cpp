#include "screens/LibraryScreen.h"
#include "tests/screens/PanelDesk.h"

#include <QElapsedTimer>

namespace brinmoor {
namespace {

using namespace testing;

constexpr std::string_view frameKey = "NSWindow Frame Brinmoor.MinimalLibrary";

class LibraryPanelTest : public PanelDesk {
protected:
    void open() {
        panel = panels.libraryWindow(model());
        panel->makeKeyAndOrderFront();
        ASSERT_TRUE(becomesActive(*panel));
    }
    QQuickView& view() { return viewOf(*panel); }
    int rows() { return view().findChild<LibraryScreen*>()->links()->rowCount(); }
    QQuickItem* row(const QString& title) {
        return itemOf(view().rootObject(), u"LinkRow"_qs, {}) ? named(view().rootObject(), title)
                                                              : nullptr;
    }
    static QQuickItem* named(QQuickItem* item, const QString& title) {
        if (item->property("title").toString() == title)
            return item;
        for (QQuickItem* child : item->childItems())
            if (QQuickItem* found = named(child, title))
                return found;
        return nullptr;
    }
    static QQuickItem* textIn(QQuickItem* item, const QString& text) {
        if (item->property("text").toString() == text)
            return item;
        for (QQuickItem* child : item->childItems())
            if (QQuickItem* found = textIn(child, text))
                return found;
        return nullptr;
    }
    bool add(const std::string& url) {
        std::optional<bool> result;
        const auto adding = [&]() -> QCoro::Task<> {
            result = co_await model().add(url, "A page", "Inbox", "", {});
        };
        adding();
        EXPECT_TRUE(waitUntil([&] { return result.has_value(); }));
        return result.value_or(false);
    }

    std::unique_ptr<Panel> panel;
};

TEST_F(LibraryPanelTest, isOfItsUsualSizeAndNeverSmallerThanItsLeast) {
    open();
    EXPECT_EQ(panel->size(), (PanelSize{750, 680}));
    EXPECT_EQ(view().minimumSize(), QSize(640, 520));
}

TEST_F(LibraryPanelTest, comesBackWhereItWasLeft) {
    open();
    view().setGeometry(220, 130, 700, 560);
    ASSERT_TRUE(waitUntil([&] { return preferences.text(frameKey).has_value(); }));
    panel.reset();
    open();
    EXPECT_EQ(view().geometry(), QRect(220, 130, 700, 560));
}

TEST_F(LibraryPanelTest, aFrameThatNoScreenShowsIsNotTaken) {
    preferences.set(frameKey, std::string("9000 9000 700 560 8000 8000 1280 900"));
    open();
    const QRect screen(0, 0, 1280, 900);
    EXPECT_TRUE(screen.contains(view().geometry().center()));
    EXPECT_EQ(panel->size(), (PanelSize{750, 680}));
}

TEST_F(LibraryPanelTest, closingKeepsItForTheNextTime) {
    open();
    view().close();
    EXPECT_FALSE(panel->isVisible());
    panel->makeKeyAndOrderFront();
    EXPECT_TRUE(becomesActive(*panel));
}

TEST_F(LibraryPanelTest, followsTheLibrary) {
    open();
    EXPECT_EQ(rows(), 0);
    EXPECT_NE(textIn(view().rootObject(), u"A little room for good things."_qs), nullptr);
    ASSERT_TRUE(add("https://tidewatch.org.uk/"));
    EXPECT_EQ(rows(), 1);
    EXPECT_TRUE(waitUntil([&] { return row(u"A page"_qs) != nullptr; }));
}

TEST_F(LibraryPanelTest, saysWhatFailedUntilItIsRead) {
    open();
    ASSERT_FALSE(add("nonsense"));
    const QString words = u"Enter a complete web address beginning with https:// or http://."_qs;
    QQuickItem* alert = nullptr;
    ASSERT_TRUE(waitUntil([&] {
        alert = itemOf(view().rootObject(), u"ErrorAlert"_qs);
        return alert != nullptr;
    }));
    EXPECT_NE(textIn(alert, u"Couldn’t finish that"_qs), nullptr);
    EXPECT_NE(textIn(alert, words), nullptr);
    ASSERT_TRUE(waitUntil([&] {
        return view().activeFocusItem() &&
               view().activeFocusItem()->property("text").toString() == u"OK";
    }));
    desktop.press(Key::enter);
    EXPECT_TRUE(waitUntil([&] { return !model().error().has_value(); }));
    EXPECT_TRUE(waitUntil([&] { return !alert->isVisible(); }));
}

TEST_F(LibraryPanelTest, escapeDismissesTheAlertToo) {
    open();
    ASSERT_FALSE(add("nonsense"));
    desktop.press(Key::escape);
    EXPECT_TRUE(waitUntil([&] { return !model().error().has_value(); }));
}

TEST_F(LibraryPanelTest, titlesInAnyScriptStayOnOneLineInsideTheirRow) {
    std::string latin;
    std::string hebrew;
    std::string emoji;
    for (int times = 0; times < 40; ++times) {
        latin += "Typography for reading ";
        hebrew += "ספרייה של קישורים ";
        emoji += "👩‍👩‍👧‍👦🌱";
    }
    given(libraryOf({link("https://a.org/", latin), link("https://b.org/", hebrew),
                     link("https://c.org/", emoji)}));
    open();
    for (const std::string& title : {latin, hebrew, emoji}) {
        QQuickItem* shown = row(QString::fromStdString(title));
        ASSERT_NE(shown, nullptr);
        EXPECT_EQ(shown->height(), 62);
        QQuickItem* text = textIn(shown, QString::fromStdString(title));
        ASSERT_NE(text, nullptr);
        EXPECT_TRUE(text->property("truncated").toBool());
        EXPECT_LE(text->mapToItem(shown, QPointF(text->width(), 0)).x(), shown->width() - 72);
    }
}

TEST_F(LibraryPanelTest, aRowIsAsHighAsItsNote) {
    SavedLink plain = link("https://a.org/", "Plain");
    SavedLink noted = link("https://b.org/", "Noted");
    noted.note = "One line.";
    SavedLink told = link("https://c.org/", "Told");
    for (int times = 0; times < 60; ++times)
        told.note += "more and more words ";
    given(libraryOf({plain, noted, told}));
    open();
    EXPECT_EQ(row(u"Plain"_qs)->height(), 62);
    EXPECT_EQ(row(u"Noted"_qs)->height(), 83);
    EXPECT_EQ(row(u"Told"_qs)->height(), 102);
}

TEST_F(LibraryPanelTest, onlyRowsThatAreSeenAreMade) {
    std::vector<SavedLink> links;
    for (int number = 0; number < 10000; ++number)
        links.push_back(link("https://site" + std::to_string(number) + ".org/", "Page"));
    given(libraryOf(std::move(links)));
    open();
    EXPECT_EQ(rows(), 10000);
    int made = 0;
    const auto count = [&](auto&& self, QQuickItem* item) -> void {
        made += QString::fromLatin1(item->metaObject()->className()).startsWith(u"LinkRow");
        for (QQuickItem* child : item->childItems())
            self(self, child);
    };
    count(count, view().rootObject());
    EXPECT_GT(made, 5);
    EXPECT_LT(made, 30);
}

TEST_F(LibraryPanelTest, theThemeIsThatOfTheSetting) {
    open();
    const auto ground = [&] { return view().grabWindow().pixelColor(700, 600).name(); };
    panels.setAppearance(AppAppearance::cream);
    EXPECT_TRUE(waitUntil([&] { return ground() == u"#faf9f6"; }));
    panels.setAppearance(AppAppearance::black);
    EXPECT_TRUE(waitUntil([&] { return ground() == u"#131415"; }));
}

} // namespace
} // namespace brinmoor
