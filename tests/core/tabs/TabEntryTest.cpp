#include "core/tabs/TabEntry.h"

#include "tests/core/Generated.h"

#include <gmock/gmock.h>

namespace brinmoor {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const CapturedTabTarget chromium{
    "12", -1, "77", "https://a.com/\"q\"", false, "org.chromium.Chromium", 4321};
const CapturedTabTarget safari{"3", 0, std::nullopt, "https://a.com/", true, "com.apple.Safari", 0};

std::vector<TabEntry> decoded(std::string_view json) {
    auto entries = decodeTabEntries(json);
    EXPECT_TRUE(entries.ok()) << json;
    return entries ? std::move(entries).value() : std::vector<TabEntry>{};
}

std::string entryWithTarget(std::string_view target) {
    return R"([{"url":"u","title":"t","closeTarget":)" + std::string(target) + "}]";
}

TEST(CapturedTabTargets, areWrittenWithSortedKeysAndWithoutAnAbsentTab) {
    EXPECT_EQ(encoded(chromium),
              R"({"browserID":"org.chromium.Chromium","index":-1,"processID":4321,"safari":false,)"
              R"("tabID":"77","url":"https://a.com/\"q\"","windowID":"12"})");
    EXPECT_EQ(encoded(safari), R"({"browserID":"com.apple.Safari","index":0,"processID":0,)"
                               R"("safari":true,"url":"https://a.com/","windowID":"3"})");
}

TEST(CapturedTabTargets, mayStandInAScript) {
    CapturedTabTarget target = safari;
    target.url = "a\u2028\u2029\n\x01\\\x80z";
    EXPECT_THAT(encoded(target), testing::HasSubstr(R"("url":"a\u2028\u2029\u000a\u0001\\)"
                                                    "\uFFFDz\""));
}

TEST(CapturedTabTargets, areReadBackAsTheyWereWritten) {
    const std::vector<std::string> pieces{"a", "\"", "\\", "/", "\n", "é", "\u2028", "👩", "\x7F"};
    tests::forSeeds(2000, [&](tests::Generated& generated) {
        CapturedTabTarget target;
        target.windowID = generated.textOf(pieces, 6);
        target.index = static_cast<int>(generated.engine()());
        if (generated.oneIn(2))
            target.tabID = generated.textOf(pieces, 6);
        target.url = generated.textOf(pieces, 6);
        target.safari = generated.oneIn(2);
        target.browserID = generated.textOf(pieces, 6);
        target.processID = static_cast<std::int32_t>(generated.engine()());
        EXPECT_EQ(decoded(entryWithTarget(encoded(target))).at(0).closeTarget, target);
    });
}

TEST(TabEntries, anEmptyListIsNoFailure) {
    EXPECT_THAT(decoded("[]"), IsEmpty());
    EXPECT_THAT(decoded(" [ ]\n"), IsEmpty());
}

TEST(TabEntries, readsAllThatAnEntryHolds) {
    const std::string json = R"([{"url":"https:\/\/a.com\/","title":"T \u00e9 \ud83d\ude00",)"
                             R"("metadata":{"url":"u","post":""},"closeTarget":)" +
                             encoded(chromium) + R"(},{"url":"","title":""}])";
    EXPECT_THAT(
        decoded(json),
        ElementsAre(TabEntry{"https://a.com/", "T é 😀", {{"post", ""}, {"url", "u"}}, chromium},
                    TabEntry{"", "", {}, std::nullopt}));
}

TEST(TabEntries, nullStandsForAbsentAndUnknownKeysForNothing) {
    EXPECT_THAT(decoded(R"([{"title":"t","url":"u","metadata":null,"closeTarget":null,"x":[{}]}])"),
                ElementsAre(TabEntry{"u", "t", {}, std::nullopt}));
    const std::string target =
        R"({"windowID":"3","index":0,"tabID":null,"url":"https://a.com/",)"
        R"("safari":true,"browserID":"com.apple.Safari","processID":0,"z":1})";
    EXPECT_EQ(decoded(entryWithTarget(target)).at(0).closeTarget, safari);
}

TEST(TabEntries, oneBadEntryFailsTheList) {
    for (const char* json :
         {"", "{}", "null", "[", "[1]", "[null]", R"([{"url":"u"}])", R"([{"title":"t"}])",
          R"([{"url":null,"title":"t"}])", R"([{"url":1,"title":"t"}])",
          R"([{"url":"u","title":"t","metadata":[]}])",
          R"([{"url":"u","title":"t","metadata":"m"}])",
          R"([{"url":"u","title":"t","metadata":{"a":1}}])",
          R"([{"url":"u","title":"t","metadata":{"a":null}}])",
          R"([{"url":"u","title":"t","closeTarget":1}])", R"([{"url":"u","title":"t"}] x)",
          R"([{"url":"u","title":"t"},])", "[{\"url\":\"u\",\"title\":\"\xFF\"}]",
          R"([{"url":"u","title":"\ud8"}])"})
        EXPECT_FALSE(decodeTabEntries(json).ok()) << json;
}

TEST(TabEntries, aTargetNeedsEachOfItsKeys) {
    const std::vector<std::string> fields{R"("windowID":"3")",  R"("index":0)",
                                          R"("url":"u")",       R"("safari":true)",
                                          R"("browserID":"b")", R"("processID":1)"};
    const auto without = [&](std::size_t left) {
        std::string object = R"({"tabID":"1")";
        for (std::size_t i = 0; i < fields.size(); ++i)
            object += i == left ? "" : "," + fields[i];
        return entryWithTarget(object + "}");
    };
    EXPECT_TRUE(decodeTabEntries(without(fields.size())).ok());
    for (std::size_t left = 0; left < fields.size(); ++left)
        EXPECT_FALSE(decodeTabEntries(without(left)).ok()) << fields[left];
}

TEST(TabEntries, aTargetsValuesAreOfTheirTypes) {
    const auto read = [](std::string_view field) {
        return decodeTabEntries(
                   entryWithTarget(R"({"windowID":"3","url":"u","safari":true,"browserID":"b",)" +
                                   std::string(field) + "}"))
            .ok();
    };
    EXPECT_TRUE(read(R"("index":-1,"processID":2147483647)"));
    EXPECT_TRUE(read(R"("index":2.0,"processID":-2147483648)"));
    for (const char* field :
         {R"("index":"0","processID":1)", R"("index":0.5,"processID":1)",
          R"("index":0,"processID":2147483648)", R"("index":0,"processID":true)",
          R"("index":1e300,"processID":1)", R"("index":18446744073709551615,"processID":1)",
          R"("index":0,"processID":1,"tabID":7)", R"("index":null,"processID":1)"})
        EXPECT_FALSE(read(field)) << field;
}

/// Half a character in one page's title must not cost the user the whole window.
TEST(TabEntries, halvesOfSurrogatePairsAreReplaced) {
    struct Half {
        const char* escaped;
        const char* read;
    };
    for (const auto& [escaped, read] : {Half{R"(a\ud800z)", "a\uFFFDz"},
                                        {R"(\udc00)", "\uFFFD"},
                                        {R"(\uD83D\u0041)", "\uFFFDA"},
                                        {R"(\ud800\ud83d\ude00)", "\uFFFD😀"},
                                        {R"(\ud83d\n)", "\uFFFD\n"},
                                        {R"(\\ud800)", R"(\ud800)"},
                                        {R"(\\\ud800)", "\\\uFFFD"},
                                        {R"(\uDBFF)", "\uFFFD"}}) {
        const std::string json = R"([{"url":"u","title":")" + std::string(escaped) + R"("}])";
        EXPECT_THAT(decoded(json), ElementsAre(TabEntry{"u", read, {}, std::nullopt})) << escaped;
    }
}

TEST(TabEntries, moreThanTheBoundIsRefused) {
    constexpr std::size_t bound = std::size_t{64} << 20;
    std::string json = R"([{"url":"u","title":")";
    json.append(bound - json.size() - 3, 'x').append("\"}]");
    EXPECT_TRUE(decodeTabEntries(json).ok());
    EXPECT_FALSE(decodeTabEntries(json + " ").ok());
}

TEST(TabEntries, whateverIsCutOffIsRefused) {
    const std::string json =
        R"([{"url":"u","title":"é\ud83d\ude00","metadata":{"a":"b"},"closeTarget":)" +
        encoded(chromium) + "}]";
    for (std::size_t size = 0; size < json.size(); ++size)
        EXPECT_FALSE(decodeTabEntries(json.substr(0, size)).ok()) << size;
    EXPECT_TRUE(decodeTabEntries(json).ok());
}

} // namespace
} // namespace brinmoor
