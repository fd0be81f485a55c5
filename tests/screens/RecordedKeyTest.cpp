#include "screens/RecordedKey.h"

#include <QKeyEvent>

#include <gtest/gtest.h>

namespace brinmoor {
namespace {

using Characters = std::optional<std::string>;

/// A press as it comes from the X server: the key by its meaning and by its place.
QKeyEvent pressOf(int key, quint32 place, Qt::KeyboardModifiers held = Qt::NoModifier) {
    return {QEvent::KeyPress, key, held, place, 0, 0};
}

struct Recorded {
    int key;
    quint32 place;
    Qt::KeyboardModifiers held;
    KeyPress expected;
};

const Recorded recordedKeys[]{
    {Qt::Key_J, 44, Qt::MetaModifier, {38, 0x100, "J"}},
    {Qt::Key_J, 44, Qt::MetaModifier | Qt::ShiftModifier, {38, 0x300, "J"}},
    {Qt::Key_J, 44, Qt::AltModifier | Qt::ControlModifier, {38, 0x1800, "J"}},
    // The character is that of the user's layout, the number that of the place.
    {Qt::Key_Z, 29, Qt::MetaModifier, {16, 0x100, "Z"}},
    {Qt::Key_Odiaeresis, 47, Qt::MetaModifier, {41, 0x100, "Ö"}},
    {Qt::Key_Space, 65, Qt::MetaModifier, {49, 0x100, " "}},
    {Qt::Key_1, 10, Qt::MetaModifier, {18, 0x100, "1"}},
    {Qt::Key_Exclam, 10, Qt::MetaModifier | Qt::ShiftModifier, {18, 0x300, "1"}},
    {Qt::Key_1, 87, Qt::MetaModifier | Qt::KeypadModifier, {83, 0x100, "1"}},
    {Qt::Key_Plus, 86, Qt::MetaModifier | Qt::KeypadModifier, {69, 0x100, "+"}},
    // Keys that write nothing.
    {Qt::Key_F5, 71, Qt::ControlModifier, {96, 0x1000, {}}},
    {Qt::Key_F12, 96, Qt::MetaModifier, {111, 0x100, {}}},
    {Qt::Key_Return, 36, Qt::MetaModifier, {36, 0x100, {}}},
    {Qt::Key_Enter, 104, Qt::MetaModifier | Qt::KeypadModifier, {76, 0x100, {}}},
    {Qt::Key_Left, 113, Qt::MetaModifier, {123, 0x100, {}}},
    {Qt::Key_End, 87, Qt::MetaModifier | Qt::KeypadModifier, {83, 0x100, {}}},
};

TEST(RecordedKey, isThePlaceTheModifiersAndTheCharacter) {
    for (const Recorded& each : recordedKeys) {
        const auto recorded = recordedKey(pressOf(each.key, each.place, each.held));
        ASSERT_TRUE(recorded) << each.key;
        EXPECT_EQ(recorded->keyCode, each.expected.keyCode) << each.key;
        EXPECT_EQ(recorded->modifiers, each.expected.modifiers) << each.key;
        EXPECT_EQ(recorded->plainCharacter, each.expected.plainCharacter) << each.key;
        const bool writes = each.expected.plainCharacter.has_value();
        EXPECT_EQ(shortcutFrom(*recorded).has_value(), writes) << each.key;
    }
}

TEST(RecordedKey, aModifierAloneIsNone) {
    for (const int key : {Qt::Key_Shift, Qt::Key_Control, Qt::Key_Meta, Qt::Key_Alt, Qt::Key_AltGr,
                          Qt::Key_Super_L, Qt::Key_CapsLock, Qt::Key_NumLock})
        EXPECT_FALSE(recordedKey(pressOf(key, 50, Qt::ShiftModifier))) << key;
}

TEST(RecordedKey, aKeyWhosePlaceIsNotKnownIsNoShortcut) {
    const auto recorded = recordedKey(pressOf(Qt::Key_J, 0, Qt::MetaModifier));
    ASSERT_TRUE(recorded);
    EXPECT_EQ(recorded->plainCharacter, Characters());
    EXPECT_FALSE(shortcutFrom(*recorded));
}

TEST(RecordedKey, escapeIsKnownByItsMeaningAndByItsPlace) {
    EXPECT_TRUE(isEscape(pressOf(Qt::Key_Escape, 9)));
    EXPECT_TRUE(isEscape(pressOf(Qt::Key_Escape, 66, Qt::MetaModifier)));
    EXPECT_TRUE(isEscape(pressOf(Qt::Key_QuoteLeft, 9)));
    EXPECT_FALSE(isEscape(pressOf(Qt::Key_J, 44)));
}

} // namespace
} // namespace brinmoor
