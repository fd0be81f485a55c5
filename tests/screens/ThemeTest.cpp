#include "screens/Appearance.h"
#include "screens/ScreenModule.h"
#include "tests/support/Waiting.h"

#include <QColor>
#include <QQmlComponent>

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

namespace brinmoor {
namespace {

using testing::waitUntil;

class ThemeTest : public ::testing::TestWithParam<AppAppearance> {
protected:
    ThemeTest() {
        registerScreens();
        appearanceOf(engine_).setAppearance(GetParam());
        QQmlComponent component(&engine_);
        component.setData("import QtQml\nimport Brinmoor\nQtObject { property QtObject it: Theme }",
                          {});
        holder_.reset(component.create());
        theme_ = holder_ ? holder_->property("it").value<QObject*>() : nullptr;
    }
    void SetUp() override {
        ASSERT_NE(theme_, nullptr);
        const QColor ink = appearanceOf(engine_).ink();
        ASSERT_TRUE(waitUntil([&] { return color("ink") == ink; }));
    }
    [[nodiscard]] QColor color(const char* token) const {
        return theme_->property(token).value<QColor>();
    }
    /// What is seen of the tokens laid over each other, the lowest first.
    [[nodiscard]] QColor seen(std::initializer_list<const char*> tokens) const {
        QColor below;
        for (const char* token : tokens) {
            const QColor above = color(token);
            const float a = below.isValid() ? above.alphaF() : 1;
            const auto mixed = [&](float over, float under) { return over * a + under * (1 - a); };
            below = QColor::fromRgbF(mixed(above.redF(), below.redF()),
                                     mixed(above.greenF(), below.greenF()),
                                     mixed(above.blueF(), below.blueF()));
        }
        return below;
    }
    static double linear(double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    }
    static double luminance(const QColor& c) {
        return 0.2126 * linear(c.redF()) + 0.7152 * linear(c.greenF()) + 0.0722 * linear(c.blueF());
    }
    static double contrast(const QColor& a, const QColor& b) {
        const double first = luminance(a);
        const double second = luminance(b);
        return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
    }

    QQmlEngine engine_;
    std::unique_ptr<QObject> holder_;
    QObject* theme_ = nullptr;
};

TEST_P(ThemeTest, everyTextIsReadableOnEveryGroundItStandsOn) {
    for (const char* page : {"paper", "sidebar", "surface", "raised"}) {
        for (const char* over : {"paper", "hover", "press", "fill", "tint"}) {
            for (const char* text : {"ink", "ink2", "ink3"}) {
                if (std::string_view(over) == "paper" || std::string_view(text) == "ink3")
                    continue;
                EXPECT_GE(contrast(seen({page, over, text}), seen({page, over})), 4.5)
                    << text << " on " << over << " on " << page;
            }
        }
        for (const char* text : {"ink", "ink2", "ink3", "sage", "rust"})
            EXPECT_GE(contrast(seen({page, text}), seen({page})), 4.5) << text << " on " << page;
        EXPECT_GE(contrast(seen({page, "tint", "sage"}), seen({page, "tint"})), 4.5) << page;
        EXPECT_GE(contrast(seen({page, "rustTint", "rust"}), seen({page, "rustTint"})), 4.5)
            << page;
    }
    // The rail has no small text on a selected ground.
    for (const char* page : {"paper", "surface", "raised"})
        EXPECT_GE(contrast(seen({page, "tint", "ink3"}), seen({page, "tint"})), 4.5) << page;
    for (const char* button : {"sage", "rust"}) {
        EXPECT_GE(contrast(seen({button, "onAccent"}), seen({button})), 4.5) << button;
        EXPECT_GE(
            contrast(seen({button, "accentHover", "onAccent"}), seen({button, "accentHover"})), 4.5)
            << button << " hovered";
    }
}

struct BaseColour {
    const char* name;
    const AdaptiveColour& inPalette;
    AdaptiveColour expected;
};

const BaseColour baseColours[]{
    {"paper", Palette::paper, {{0.98, 0.976, 0.965}, {0.075, 0.079, 0.083}}},
    {"sidebar", Palette::sidebar, {{0.949, 0.949, 0.925}, {0.095, 0.101, 0.108}}},
    {"surface", Palette::surface, {{0.994, 0.993, 0.99}, {0.115, 0.122, 0.13}}},
    {"raised", Palette::raised, {{1, 1, 1}, {0.145, 0.154, 0.165}}},
    {"ink", Palette::ink, {{0.16, 0.18, 0.15}, {0.94, 0.95, 0.95}}},
    {"sage", Palette::sage, {{0.32, 0.39, 0.26}, {0.23, 0.82, 0.63}}},
    {"muted", Palette::muted, {{0.46, 0.49, 0.42}, {0.62, 0.65, 0.68}}},
    {"line", Palette::line, {{0.88, 0.89, 0.85}, {0.22, 0.24, 0.26}}},
    {"onAccent", Palette::onAccent, {{1, 1, 1}, {0.075, 0.079, 0.083}}},
};

TEST_P(ThemeTest, theBaseColoursAreTheseInThePaletteAndOnTheScreen) {
    for (const BaseColour& each : baseColours) {
        const Colour& expected = each.expected.in(GetParam());
        EXPECT_EQ(each.inPalette.in(GetParam()), expected) << each.name;
        const QColor onScreen =
            QColor::fromRgbF(float(expected.red), float(expected.green), float(expected.blue));
        EXPECT_EQ(color(each.name).name(), onScreen.name()) << each.name;
        EXPECT_EQ(color(each.name).alpha(), 255) << each.name;
    }
}

INSTANTIATE_TEST_SUITE_P(BothThemes, ThemeTest,
                         ::testing::Values(AppAppearance::cream, AppAppearance::black),
                         [](const auto& each) {
                             return each.param == AppAppearance::cream ? "cream" : "black";
                         });

TEST(AppearanceTest, isDarkUnlessSaidOtherwise) {
    EXPECT_TRUE(Appearance().isDark());
}

} // namespace
} // namespace brinmoor
