#include "core/capture/CaptureShortcut.h"

#include "core/text/Wording.h"
#include "tests/core/Generated.h"

#include <gtest/gtest.h>

namespace brinmoor {
namespace {

using enum CaptureAction;
using namespace ShortcutModifier;

struct Default {
    CaptureAction action;
    std::uint32_t keyCode;
    std::uint32_t modifiers;
    const char* character;
    const char* label;
};

TEST(CaptureShortcut, everyActionHasItsDefault) {
    for (const auto& [action, keyCode, modifiers, character, label] :
         {Default{quick, 40, 0x300, "K", "⇧⌘K"},
          {note, 40, 0x900, "K", "⌥⌘K"},
          {selected, 40, 0x1300, "K", "⌃⇧⌘K"},
          {window, 40, 0xb00, "K", "⌥⇧⌘K"},
          {search, 31, 0x300, "O", "⇧⌘O"},
          {duplicates, 2, 0x300, "D", "⇧⌘D"}}) {
        const CaptureShortcut expected{keyCode, modifiers, character};
        EXPECT_EQ(defaultShortcut(action), expected) << label;
        EXPECT_EQ(defaultShortcuts().at(action), expected) << label;
        EXPECT_EQ(expected.label(), label);
    }
    EXPECT_EQ(defaultShortcuts().size(), 6U);
    EXPECT_FALSE(hasClash(defaultShortcuts()));
}

TEST(CaptureShortcut, aLabelNamesTheModifiersInOneOrder) {
    EXPECT_EQ((CaptureShortcut{0, command | shift | option | control, "A"}.label()), "⌃⌥⇧⌘A");
    EXPECT_EQ((CaptureShortcut{49, command, "Space"}.label()), "⌘Space");
    EXPECT_EQ((CaptureShortcut{0, 0, "A"}.label()), "A");
    EXPECT_EQ((CaptureShortcut{40, shift | command, "K"}.keys()),
              (std::vector<std::string>{"⇧", "⌘", "K"}));
}

TEST(CaptureShortcut, eachSignOfALabelIsWorded) {
    text::setWording(
        [](std::string_view sign) { return std::string(sign == "⌃" ? "Ctrl+" : "?+"); });
    EXPECT_EQ((CaptureShortcut{0, shift | control, "A"}.label()), "Ctrl+?+A");
    EXPECT_EQ((CaptureShortcut{0, shift | control, "A"}.keys()),
              (std::vector<std::string>{"Ctrl", "?", "A"}));
    text::setWording(nullptr);
}

TEST(CaptureShortcut, theCharacterIsOnlyForDisplay) {
    const CaptureShortcut k{40, command, "K"};
    EXPECT_TRUE(k.sameKeys({40, command, "Q"}));
    EXPECT_FALSE(k.sameKeys({41, command, "K"}));
    EXPECT_FALSE(k.sameKeys({40, command | shift, "K"}));
}

TEST(CaptureShortcut, theMemorablePresetChangesTwoActions) {
    ShortcutMap shortcuts = defaultShortcuts();
    shortcuts[quick] = {1, command, "S"};
    ShortcutMap expected = defaultShortcuts();
    expected[note] = {45, 0x300, "N"};
    EXPECT_EQ(withMemorablePreset(shortcuts), expected);
    EXPECT_EQ(expected.at(note).label(), "⇧⌘N");
}

TEST(CaptureShortcut, twoActionsWithTheSameKeysClash) {
    ShortcutMap shortcuts = defaultShortcuts();
    shortcuts[search] = {45, 0x300, "N"};
    EXPECT_FALSE(hasClash(shortcuts));
    EXPECT_TRUE(hasClash(withMemorablePreset(shortcuts)));
    EXPECT_FALSE(hasClash({}));
}

std::optional<CaptureShortcut> pressed(std::uint32_t keyCode, std::uint32_t modifiers,
                                       std::optional<std::string> character) {
    return shortcutFrom({keyCode, modifiers, std::move(character)});
}

TEST(ShortcutRecording, aKeyNeedsCommandOptionOrControl) {
    for (const std::uint32_t modifier : {command, option, control}) {
        EXPECT_EQ(pressed(3, modifier, "f"), (CaptureShortcut{3, modifier, "F"}));
        EXPECT_EQ(pressed(3, modifier | shift, "f"), (CaptureShortcut{3, modifier | shift, "F"}));
    }
    EXPECT_EQ(pressed(3, shift, "f"), std::nullopt);
    EXPECT_EQ(pressed(3, 0, "f"), std::nullopt);
}

TEST(ShortcutRecording, otherModifierBitsAreNotStored) {
    EXPECT_EQ(pressed(3, command | 0x400 | 0x1, "f"), (CaptureShortcut{3, command, "F"}));
    EXPECT_EQ(pressed(3, 0x400, "f"), std::nullopt);
}

TEST(ShortcutRecording, reservedKeysAreRefused) {
    for (const std::uint32_t keyCode : {36U, 48U, 51U, 53U, 76U, 117U})
        EXPECT_EQ(pressed(keyCode, command, "x"), std::nullopt) << keyCode;
}

TEST(ShortcutRecording, aKeyNeedsACharacterThatIsTyped) {
    EXPECT_EQ(pressed(3, command, std::nullopt), std::nullopt);
    for (const char* character :
         {"", "\x1B", "\t", "\x7F", "\u0085", "\uF700", "\uF704", "\uFFFF", "a\n"})
        EXPECT_EQ(pressed(3, command, character), std::nullopt)
            << testing::PrintToString(character);
    EXPECT_TRUE(pressed(3, command, "\uF6FF"));
}

TEST(ShortcutRecording, theCharacterIsUpperCaseOrTheWordSpace) {
    EXPECT_EQ(pressed(49, command, " ")->label(), "⌘Space");
    EXPECT_EQ(pressed(3, command, "é")->character, "É");
    EXPECT_EQ(pressed(3, command, "ß")->character, "SS");
    EXPECT_EQ(pressed(3, command, "1")->character, "1");
}

TEST(StoredShortcuts, areReadBackAsTheyWereWritten) {
    const std::vector<std::string> characters{"K", "Space", "\"", "\\", "É", "👩"};
    tests::forSeeds(500, [&](tests::Generated& generated) {
        ShortcutMap shortcuts;
        for (const CaptureAction action : allCaptureActions)
            shortcuts[action] = {static_cast<std::uint32_t>(generated.engine()()),
                                 static_cast<std::uint32_t>(generated.engine()()),
                                 generated.oneOf(characters)};
        EXPECT_EQ(decodeShortcuts(encodeShortcuts(shortcuts)), shortcuts);
    });
}

TEST(StoredShortcuts, areAMapByStoredNames) {
    EXPECT_EQ(encodeShortcuts({}), "{}");
    EXPECT_EQ(encodeShortcuts({{quick, {40, 0x300, "K"}}, {note, {45, 256, "\""}}}),
              R"({"quick":{"character":"K","keyCode":40,"modifiers":768},)"
              R"("note":{"character":"\"","keyCode":45,"modifiers":256}})");
}

TEST(StoredShortcuts, anActionWithoutAnEntryHasItsDefault) {
    ShortcutMap expected = defaultShortcuts();
    expected[note] = {45, 256, "N"};
    EXPECT_EQ(decodeShortcuts(R"({"note":{"keyCode":45,"modifiers":256.0,"character":"N","x":0},)"
                              R"("other":{"keyCode":1,"modifiers":1,"character":"A"}})"),
              expected);
}

TEST(StoredShortcuts, missingOrBrokenDataGivesAllDefaults) {
    EXPECT_EQ(decodeShortcuts(std::nullopt), defaultShortcuts());
    const std::string good = R"("note":{"keyCode":45,"modifiers":256,"character":"N"})";
    for (const std::string broken :
         {R"("quick":1)", R"("quick":{})", R"("quick":null)", R"("other":{"keyCode":1})",
          R"("quick":{"keyCode":"1","modifiers":1,"character":"A"})",
          R"("quick":{"keyCode":-1,"modifiers":1,"character":"A"})",
          R"("quick":{"keyCode":4294967296,"modifiers":1,"character":"A"})",
          R"("quick":{"keyCode":1.5,"modifiers":1,"character":"A"})",
          R"("quick":{"keyCode":1,"modifiers":1,"character":null})"})
        EXPECT_EQ(decodeShortcuts("{" + good + "," + broken + "}"), defaultShortcuts()) << broken;
    for (const char* json : {"", "[]", "null", "{", "\xFF"})
        EXPECT_EQ(decodeShortcuts(json), defaultShortcuts()) << json;
}

TEST(OlderShortcut, isTheQuickOneAndTheOthersHaveTheirDefaults) {
    auto expected = defaultShortcuts();
    expected[CaptureAction::quick] = {38, 0x300, "J"};
    EXPECT_EQ(decodeOlderShortcut(R"({"keyCode":38,"modifiers":768,"character":"J"})"), expected);
}

TEST(OlderShortcut, thatIsNotWholeGivesTheDefaults) {
    for (const std::string broken :
         {"", "null", "[]", "\xFF", "{", R"({"modifiers":768,"character":"J"})",
          R"({"keyCode":38,"character":"J"})", R"({"keyCode":38,"modifiers":768})",
          R"({"keyCode":-1,"modifiers":768,"character":"J"})",
          R"({"quick":{"keyCode":38,"modifiers":768,"character":"J"}})"})
        EXPECT_EQ(decodeOlderShortcut(broken), defaultShortcuts()) << broken;
    EXPECT_EQ(decodeOlderShortcut(R"({"keyCode":38,"modifiers":768,"character":"J"})" +
                                  std::string(1 << 20, ' ')),
              defaultShortcuts());
}

} // namespace
} // namespace brinmoor
