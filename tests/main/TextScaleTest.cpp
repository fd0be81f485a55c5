// A desktop whose texts are twice as large: the whole program is drawn at twice its size, as it was
// laid out.

#include "platform/linux/X11Windows.h"
#include "tests/main/AccessibleProgram.h"

#include <map>

namespace brinmoor::testing {
namespace {

/// Letters are fitted to the pixels there are, so what stands beside a text may be off by a little.
constexpr int slack = 6;

/// Where each named control is that is shown once, by what it is and is called: in units of the
/// program from the corner of its window.
using Layout = std::map<std::string, QRect>;

struct Walk {
    QSize window; ///< in pixels
    std::vector<Layout> screens;
};

class TextScale : public AccessibleProgram {
protected:
    ~TextScale() override { setResources({}); }

    /// What the desktop says of its texts, where programs look for it.
    void setResources(const std::string& resources) const {
        auto* connection = keyboard.connection().get();
        xcb_change_property(connection, XCB_PROP_MODE_REPLACE, keyboard.connection().root(),
                            XCB_ATOM_RESOURCE_MANAGER, XCB_ATOM_STRING, 8,
                            std::uint32_t(resources.size()), resources.data());
        xcb_flush(connection);
    }
    [[nodiscard]] Layout layout() const {
        const auto all = controls();
        const auto frame = std::ranges::find(all, "frame", &Control::role);
        if (frame == all.end())
            return {};
        Layout found;
        std::map<std::string, int> times;
        for (const Control& each : all) {
            const std::string key = each.within + "/" + each.role + " " + each.name;
            if (!each.name.empty() && !each.within.empty() && ++times[key] == 1)
                found[key] = each.place.translated(-frame->place.topLeft());
        }
        std::erase_if(found, [&](const auto& each) { return times[each.first] > 1; });
        return found;
    }
    /// Once nothing moves any more.
    [[nodiscard]] Layout layoutAtRest() const {
        Layout last;
        EXPECT_TRUE(eventually([&] {
            const Layout before = std::exchange(last, layout());
            return !last.empty() && last == before;
        }));
        return last;
    }
    [[nodiscard]] QSize windowInPixels() const {
        auto* connection = keyboard.connection().get();
        const auto window = activeWindow(keyboard.connection());
        const XcbHeld<xcb_get_geometry_reply_t> place(xcb_get_geometry_reply(
            connection, xcb_get_geometry(connection, window.value_or(XCB_NONE)), nullptr));
        return place ? QSize(place->width, place->height) : QSize();
    }
    /// Through the tour, the library, the sheet of a new link and the settings.
    [[nodiscard]] Walk walk() {
        Walk walk;
        start();
        EXPECT_TRUE(says("Close onboarding"));
        walk.window = windowInPixels();
        walk.screens.push_back(layoutAtRest());
        keyboard.tap(XKey::escape);
        EXPECT_TRUE(says("Search open tabs"));
        walk.screens.push_back(layoutAtRest());
        keyboard.chord({XKey::controlLeft}, XKey::letterN);
        EXPECT_TRUE(says("Save link"));
        walk.screens.push_back(layoutAtRest());
        keyboard.tap(XKey::escape);
        keyboard.chord({XKey::controlLeft}, XKey::comma);
        EXPECT_TRUE(says("Share anonymous usage counts"));
        walk.screens.push_back(layoutAtRest());
        program.reset();
        return walk;
    }
};

TEST_F(TextScale, twiceAsLargeTextsAreTheSameScreensOfTwiceAsManyPixels) {
    const Walk usual = walk();
    setResources("Xft.dpi:\t192\n");
    const Walk large = walk();
    EXPECT_EQ(large.window, usual.window * 2);
    ASSERT_EQ(large.screens.size(), usual.screens.size());
    for (std::size_t screen = 0; screen < usual.screens.size(); ++screen) {
        EXPECT_GT(usual.screens[screen].size(), 10U) << screen;
        for (const auto& [control, place] : usual.screens[screen]) {
            const auto found = large.screens[screen].find(control);
            ASSERT_NE(found, large.screens[screen].end()) << control;
            EXPECT_LE(std::abs(found->second.left() - place.left()), slack) << control;
            EXPECT_LE(std::abs(found->second.top() - place.top()), slack) << control;
            EXPECT_LE(std::abs(found->second.right() - place.right()), slack) << control;
            EXPECT_LE(std::abs(found->second.bottom() - place.bottom()), slack) << control;
        }
    }
}

} // namespace
} // namespace brinmoor::testing
