#include "platform/linux/Desktop.h"
#include "tests/platform/linux/TestKeyboard.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/Eventually.h"

#include <QProcess>

#include <gmock/gmock.h>

#include <vector>

namespace brinmoor::testing {
namespace {

using ::testing::ElementsAre;

constexpr int half = 640;

/// The desktop split into a left and a right screen.
class TwoScreens : public ::testing::Test {
protected:
    TwoScreens() {
        split("right", u"640/169x900/238+640+0"_qs, u"none"_qs);
        split("left", u"640/169x900/238+0+0"_qs, u"screen"_qs);
    }
    ~TwoScreens() override {
        QProcess::execute(u"xrandr"_qs, {u"--delmonitor"_qs, u"right"_qs});
        QProcess::execute(u"xrandr"_qs, {u"--delmonitor"_qs, u"left"_qs});
    }

    static void split(const char* name, const QString& place, const QString& output) {
        EXPECT_EQ(QProcess::execute(u"xrandr"_qs,
                                    {u"--setmonitor"_qs, QString::fromLatin1(name), place, output}),
                  0);
    }
    void movePointer(int x, int y) const {
        auto* connection = keyboard.connection().get();
        xcb_warp_pointer(connection, XCB_NONE, keyboard.connection().root(), 0, 0, 0, 0,
                         std::int16_t(x), std::int16_t(y));
        xcb_flush(connection);
    }
    /// The middles of the notices on the desktop: the windows that the window manager leaves alone
    /// and that are as large as one.
    [[nodiscard]] std::vector<int> notices() const {
        auto* connection = keyboard.connection().get();
        const XcbHeld<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(
            connection, xcb_query_tree(connection, keyboard.connection().root()), nullptr));
        std::vector<int> middles;
        const xcb_window_t* windows = xcb_query_tree_children(tree.get());
        for (int at = 0; at < xcb_query_tree_children_length(tree.get()); ++at) {
            const XcbHeld<xcb_get_window_attributes_reply_t> attributes(
                xcb_get_window_attributes_reply(
                    connection, xcb_get_window_attributes(connection, windows[at]), nullptr));
            const XcbHeld<xcb_get_geometry_reply_t> place(xcb_get_geometry_reply(
                connection, xcb_get_geometry(connection, windows[at]), nullptr));
            if (attributes && place && attributes->override_redirect &&
                attributes->map_state == XCB_MAP_STATE_VIEWABLE && place->width > 200)
                middles.push_back(place->x + place->width / 2);
        }
        return middles;
    }
    /// Without a browser every capture ends with a notice.
    void capture() const { keyboard.chord({XKey::shiftLeft, XKey::superLeft}, XKey::letterK); }
    [[nodiscard]] bool oneNoticeBetween(int left, int right) const {
        return eventually([&] {
            const auto all = notices();
            return all.size() == 1 && all.front() > left && all.front() < right;
        });
    }

    TestKeyboard keyboard;
};

TEST_F(TwoScreens, aNoticeIsOnTheScreenOfThePointerAndReplacesTheOneBefore) {
    const auto desktop = makeWorkspace();
    const ChildProcess program(ChildOptions{{BRINMOOR}, {}, true});
    ASSERT_TRUE(eventually([&] {
        const auto front = desktop->frontmostApplication();
        return front && front->processIdentifier == program.process();
    }));
    ASSERT_THAT(notices(), ElementsAre());
    movePointer(half + 200, 500);
    capture();
    EXPECT_TRUE(oneNoticeBetween(half, 2 * half));
    movePointer(200, 500);
    capture();
    EXPECT_TRUE(oneNoticeBetween(0, half));
    EXPECT_TRUE(eventually([&] { return notices().empty(); })) << "it passes by itself";
}

} // namespace
} // namespace brinmoor::testing
