#include "tests/screens/PanelDesk.h"

#include <QAccessible>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>

#include <gmock/gmock.h>

namespace brinmoor {
namespace {

using namespace testing;

class NoticePanelTest : public PanelDesk {
protected:
    static CaptureNotice saved() {
        return {.id = {},
                .title = "Tab saved",
                .message = "Ready in your library whenever you need it.",
                .clipboardURL = {}};
    }
    static CaptureNotice offer() {
        return {.id = {},
                .title = "Save copied link?",
                .message = "letterpress.studio",
                .clipboardURL = "https://letterpress.studio/"};
    }
    std::unique_ptr<Panel> shown(const CaptureNotice& notice) {
        NoticeActions actions;
        actions.dismiss = [this] { ++dismissed; };
        actions.openSettings = [this] { ++settingsOpened; };
        actions.saveClipboard = [this](const std::string& url, bool withNote) {
            savedLinks.emplace_back(url, withNote);
        };
        auto panel = panels.notice(notice, std::move(actions));
        panel->setOrigin({800, 20});
        panel->orderFrontRegardless();
        EXPECT_TRUE(waitUntil([&] { return viewOf(*panel).isExposed(); }));
        return panel;
    }
    bool has(Panel& panel, const QString& type, const QString& text) {
        return itemOf(viewOf(panel).rootObject(), type, text) != nullptr;
    }

    int dismissed = 0;
    int settingsOpened = 0;
    std::vector<std::pair<std::string, bool>> savedLinks;
};

TEST_F(NoticePanelTest, neverTakesTheKeyboard) {
    otherInFront();
    const auto focused = desktop.focusedWindow();
    const auto panel = shown(saved());
    EXPECT_EQ(desktop.activeWindow(), desktop.otherWindow());
    EXPECT_EQ(desktop.focusedWindow(), focused);

    click(*panel, u"IconButton"_qs);
    ASSERT_TRUE(waitUntil([&] { return dismissed == 1; }));
    EXPECT_EQ(desktop.activeWindow(), desktop.otherWindow());
    EXPECT_EQ(desktop.focusedWindow(), focused);
}

TEST_F(NoticePanelTest, aPlainNoticeHasOnlyItsCross) {
    const auto panel = shown(saved());
    EXPECT_TRUE(has(*panel, u"IconButton"_qs, u"Dismiss notification"_qs));
    EXPECT_FALSE(has(*panel, u"PrimaryButton"_qs, {}));
    EXPECT_FALSE(has(*panel, u"SecondaryButton"_qs, {}));
}

TEST_F(NoticePanelTest, anOfferHasOnlyItsSaveButtonsAndItsCross) {
    const auto panel = shown(offer());
    EXPECT_TRUE(has(*panel, u"IconButton"_qs, u"Dismiss notification"_qs));
    EXPECT_FALSE(has(*panel, u"SecondaryButton"_qs, u"Open Automation Settings ↗"_qs));

    click(*panel, u"PrimaryButton"_qs, u"Save"_qs);
    ASSERT_TRUE(waitUntil([&] { return savedLinks.size() == 1; }));
    click(*panel, u"SecondaryButton"_qs, u"Add note"_qs);
    ASSERT_TRUE(waitUntil([&] { return savedLinks.size() == 2; }));
    EXPECT_EQ(savedLinks[0], std::pair(std::string("https://letterpress.studio/"), false));
    EXPECT_EQ(savedLinks[1], std::pair(std::string("https://letterpress.studio/"), true));
}

TEST_F(NoticePanelTest, aRefusalOpensTheSettings) {
    CaptureNotice refused = saved();
    refused.isError = true;
    refused.opensAutomationSettings = true;
    const auto panel = shown(refused);
    click(*panel, u"SecondaryButton"_qs, u"Open Automation Settings ↗"_qs);
    EXPECT_TRUE(waitUntil([&] { return settingsOpened == 1; }));
}

TEST_F(NoticePanelTest, itsPlaceAndSizeAreThoseOfTheCard) {
    const auto plain = shown(saved());
    EXPECT_EQ(plain->size(), (PanelSize{380, 68}));
    EXPECT_EQ(viewOf(*plain).position(), QPoint(800, 20));

    desktop.pretendCompositing();
    const auto shadowed = shown(saved());
    EXPECT_EQ(shadowed->size(), (PanelSize{380, 68}));
    EXPECT_EQ(viewOf(*shadowed).size(), QSize(380 + 64, 68 + 64));
    EXPECT_EQ(viewOf(*shadowed).position(), QPoint(800 - 32, 20 - 32));
}

TEST_F(NoticePanelTest, aClickBesideTheCardReachesWhatLiesBehind) {
    desktop.pretendCompositing();
    otherInFront();
    const auto panel = shown(saved());
    const auto library = panels.libraryWindow(model());
    library->setOrigin({500, 40});
    library->makeKeyAndOrderFront();
    ASSERT_TRUE(becomesActive(*library));
    desktop.showOther(100, 500, 300, 300);
    ASSERT_TRUE(waitUntil([&] { return desktop.activeWindow() == desktop.otherWindow(); }));
    desktop.click(790, 100);
    EXPECT_TRUE(becomesActive(*library));
}

TEST_F(NoticePanelTest, twoLinesMakeItHigher) {
    CaptureNotice longer = saved();
    longer.message = "Check that your browser has a web page open, then try again. It helps.";
    const auto panel = shown(longer);
    EXPECT_EQ(panel->size(), (PanelSize{380, 86}));
}

TEST_F(NoticePanelTest, goingIsAtOnceForAllButTheEye) {
    const auto panel = shown(saved());
    panel->orderOut();
    EXPECT_FALSE(panel->isVisible());
    EXPECT_TRUE(waitUntil([&] { return !viewOf(*panel).isVisible(); }));
}

/// What a screen reader does when it starts.
void turnAccessibilityOn() {
    QDBusMessage message = QDBusMessage::createMethodCall(
        u"org.a11y.Bus"_qs, u"/org/a11y/bus"_qs, u"org.freedesktop.DBus.Properties"_qs, u"Set"_qs);
    message << u"org.a11y.Status"_qs << u"IsEnabled"_qs << QVariant::fromValue(QDBusVariant(true));
    const QDBusMessage answer = QDBusConnection::sessionBus().call(message);
    ASSERT_EQ(answer.type(), QDBusMessage::ReplyMessage) << answer.errorMessage().toStdString();
}

std::vector<std::pair<QObject*, QAccessible::Event>> heard;

TEST_F(NoticePanelTest, isSaidToAssistiveTechnology) {
    const auto panel = shown(saved());
    QObject* root = viewOf(*panel).rootObject();
    heard.clear();
    turnAccessibilityOn();
    ASSERT_TRUE(waitUntil([] { return QAccessible::isActive(); }));
    const auto former = QAccessible::installUpdateHandler(
        [](QAccessibleEvent* event) { heard.emplace_back(event->object(), event->type()); });
    panels.announce(*panel, "Tab saved. Ready in your library whenever you need it.");
    QAccessible::installUpdateHandler(former);

    EXPECT_THAT(heard, ::testing::Contains(std::pair(root, QAccessible::Alert)));
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(root);
    ASSERT_NE(spoken, nullptr);
    EXPECT_EQ(spoken->role(), QAccessible::AlertMessage);
    EXPECT_EQ(spoken->text(QAccessible::Name),
              u"Tab saved. Ready in your library whenever you need it."_qs);
    EXPECT_EQ(viewOf(*panel).title(), u"Brinmoor notification"_qs);
}

} // namespace
} // namespace brinmoor
