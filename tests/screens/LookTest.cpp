#include "screens/LetterTile.h"
#include "screens/WindowFrame.h"

#include <gmock/gmock.h>

namespace brinmoor {
namespace {

TEST(DomainHue, isTheSumOfTheBytesRoundTheCircle) {
    EXPECT_EQ(domainHue(""), 0);
    EXPECT_EQ(domainHue("a"), 97);
    EXPECT_EQ(domainHue("aaaa"), (4 * 97) % 360);
    EXPECT_EQ(domainHue("é"), (0xC3 + 0xA9) % 360);
}

TEST(LetterTile, showsTheFirstCharacterInUpperCase) {
    EXPECT_EQ(letterTile("tidewatch.org", AppAppearance::cream).letter, u"T"_qs);
    EXPECT_EQ(letterTile("élan.fr", AppAppearance::cream).letter, u"É"_qs);
    EXPECT_EQ(letterTile("", AppAppearance::black).letter, QString());
}

TEST(LetterTile, takesItsTonesFromTheTheme) {
    const LetterTile light = letterTile("a", AppAppearance::cream);
    const LetterTile dark = letterTile("a", AppAppearance::black);
    EXPECT_EQ(light.ground.hsvHue(), 97);
    EXPECT_NEAR(light.ground.hsvSaturationF(), 0.1, 0.001);
    EXPECT_NEAR(light.ground.valueF(), 0.94, 0.001);
    EXPECT_NEAR(light.ink.hsvSaturationF(), 0.28, 0.001);
    EXPECT_NEAR(light.ink.valueF(), 0.5, 0.001);
    EXPECT_NEAR(dark.ground.hsvSaturationF(), 0.18, 0.001);
    EXPECT_NEAR(dark.ground.valueF(), 0.24, 0.001);
    EXPECT_NEAR(dark.ink.hsvSaturationF(), 0.22, 0.001);
    EXPECT_NEAR(dark.ink.valueF(), 0.84, 0.001);
    EXPECT_EQ(light.ground.alphaF(), 1);
}

TEST(WindowFrame, isReadBackAsItWasWritten) {
    const WindowFrame frame{{-20, 130, 700, 560}, {0, 0, 1280, 900}};
    EXPECT_EQ(frame.text(), u"-20 130 700 560 0 0 1280 900"_qs);
    EXPECT_EQ(WindowFrame::parse(frame.text()), frame);
}

TEST(WindowFrame, isAbsentForAnyOtherText) {
    for (const char* text : {"", "1 2 3", "1 2 3 4 5 6 7 x", "1 2 0 0 0 0 9 9", "1 2 3 4 5 6 7 8 9",
                             "99999999999 2 3 4 5 6 7 8"})
        EXPECT_EQ(WindowFrame::parse(QString::fromLatin1(text)), std::nullopt) << text;
}

TEST(WindowFrame, goesBackToItsPlaceAsFarAsAScreenShowsIt) {
    const QSize least(640, 520);
    const QList<QRect> screens{{0, 0, 1280, 900}, {1280, 0, 1920, 1080}};
    const WindowFrame second{{1500, 100, 700, 560}, {1280, 0, 1920, 1080}};
    EXPECT_EQ(second.placed(screens, least), second.frame);
    EXPECT_EQ(second.placed({screens[0]}, least), std::nullopt);
    const WindowFrame huge{{10, 10, 5000, 100}, {}};
    EXPECT_EQ(huge.placed(screens, least), QRect(10, 10, 1280, 520));
    EXPECT_EQ(huge.placed({}, least), std::nullopt);
}

} // namespace
} // namespace brinmoor
