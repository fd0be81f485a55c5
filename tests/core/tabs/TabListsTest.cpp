// The two lists of open tabs as the scripts give them, and what names a tab to a script.

#include "core/tabs/BrowserTabSnapshot.h"
#include "core/tabs/OpenBrowserTab.h"
#include "core/tabs/TabTarget.h"

#include "tests/core/Generated.h"

#include <gmock/gmock.h>

namespace brinmoor {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const OpenBrowserTab page{"com.google.Chrome", "Chrome",        "12", "77", 3,
                          "T \u00e9",          "https://a.com/"};
const std::vector<std::string> pageFields{R"("browserID":"com.google.Chrome")",
                                          R"("browserName":"Chrome")",
                                          R"("windowID":"12")",
                                          R"("tabID":"77")",
                                          R"("index":3)",
                                          R"("title":"T \u00e9")",
                                          R"("url":"https:\/\/a.com\/")"};

const BrowserTabSnapshot snapshot{"com.google.Chrome", "Chrome",         "12", 2,    "77", 3,
                                  "T \u00e9",          "https://a.com/", true, false};
std::vector<std::string> snapshotFields() {
    auto fields = pageFields;
    fields.insert(fields.end(), {R"("windowIndex":2)", R"("isActive":true)", R"("isEmpty":false)"});
    return fields;
}

std::string listOf(const std::vector<std::string>& fields, std::size_t without = SIZE_MAX) {
    std::string object;
    for (std::size_t i = 0; i < fields.size(); ++i)
        if (i != without)
            object += (object.empty() ? "" : ",") + fields[i];
    return "[{" + object + "}]";
}

TEST(OpenTabList, isReadWhole) {
    EXPECT_THAT(decodeOpenTabs(listOf(pageFields)).value(), ElementsAre(page));
    EXPECT_THAT(decodeOpenTabs(" [] \n").value(), IsEmpty());
    auto more = pageFields;
    more.push_back(R"("another":[{}])");
    EXPECT_THAT(decodeOpenTabs(listOf(more)).value(), ElementsAre(page));
}

TEST(SnapshotList, isReadWhole) {
    EXPECT_THAT(decodeTabSnapshots(listOf(snapshotFields())).value(), ElementsAre(snapshot));
    EXPECT_THAT(decodeTabSnapshots("[]").value(), IsEmpty());
}

TEST(TabLists, needEachKey) {
    for (std::size_t left = 0; left < pageFields.size(); ++left)
        EXPECT_FALSE(decodeOpenTabs(listOf(pageFields, left)).ok()) << pageFields[left];
    const auto fields = snapshotFields();
    for (std::size_t left = 0; left < fields.size(); ++left)
        EXPECT_FALSE(decodeTabSnapshots(listOf(fields, left)).ok()) << fields[left];
}

TEST(TabLists, needEachValueInItsType) {
    for (const char* wrong :
         {R"("browserID":1)", R"("browserName":null)", R"("windowID":12)", R"("tabID":null)",
          R"("index":"3")", R"("index":1.5)", R"("index":2147483648)", R"("index":true)",
          R"("title":[])", R"("url":{})", R"("windowIndex":"1")", R"("windowIndex":-2147483649)",
          R"("isActive":1)", R"("isActive":"true")", R"("isEmpty":null)"}) {
        auto fields = snapshotFields();
        const std::string key = std::string(wrong).substr(0, std::string(wrong).find(':') + 1);
        for (std::string& field : fields)
            if (field.starts_with(key))
                field = wrong;
        EXPECT_FALSE(decodeTabSnapshots(listOf(fields)).ok()) << wrong;
        const bool isOfPages = key != "\"windowIndex\":" && !key.starts_with("\"is");
        fields.resize(pageFields.size());
        EXPECT_EQ(decodeOpenTabs(listOf(fields)).ok(), !isOfPages) << wrong;
    }
}

TEST(TabLists, areRefusedWhenOneRecordIsBadOrCutOff) {
    for (const char* json : {"", "{}", "null", "[", "[1]", "[null]", "[[]]", "[{}]", "true\n"}) {
        EXPECT_FALSE(decodeOpenTabs(json).ok()) << json;
        EXPECT_FALSE(decodeTabSnapshots(json).ok()) << json;
    }
    const std::string whole = listOf(snapshotFields());
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_FALSE(decodeTabSnapshots(whole.substr(0, size)).ok()) << size;
    const std::string second = whole.substr(0, whole.size() - 1) + ",{}]";
    EXPECT_FALSE(decodeTabSnapshots(second).ok());
}

TEST(TabLists, moreThanTheBoundIsRefused) {
    constexpr std::size_t bound = std::size_t{64} << 20;
    std::string json = listOf(pageFields);
    json.insert(json.size() - 1, std::string(bound - json.size(), ' '));
    EXPECT_TRUE(decodeOpenTabs(json).ok());
    EXPECT_FALSE(decodeOpenTabs(json + " ").ok());
}

TEST(OpenTab, itsIdentityIsBrowserWindowTabAndPlace) {
    EXPECT_EQ(page.id(), "com.google.Chrome:12:77:3");
    EXPECT_EQ(snapshot.id(), "com.google.Chrome:12:77:3");
    OpenBrowserTab safari = page;
    safari.browserID = "com.apple.Safari";
    safari.tabID.clear();
    EXPECT_EQ(safari.id(), "com.apple.Safari:12::3");
}

TEST(OpenTab, theSameAddressTwiceIsTwoRows) {
    OpenBrowserTab other = page;
    other.index = 4;
    EXPECT_NE(other.id(), page.id());
    other = page;
    other.tabID = "78";
    EXPECT_NE(other.id(), page.id());
    other = page;
    other.windowID = "13";
    EXPECT_NE(other.id(), page.id());
}

TEST(OpenTab, itsDomainIsTheHostWithoutAnyWorldWideWeb) {
    struct Case {
        const char* url;
        const char* ofPage;
        const char* ofSnapshot;
    };
    for (const auto& [url, ofPage, ofSnapshot] :
         {Case{"https://www.a.com/x", "a.com", "a.com"},
          Case{"https://a.com:8080/", "a.com", "a.com"},
          Case{"https://a.www.b.com/", "a.b.com", "a.b.com"},
          Case{"https://www.www.com/", "com", "com"}, Case{"https://mywww.com/", "mycom", "mycom"},
          Case{"https://wwww.a.com/", "wa.com", "wa.com"},
          Case{"https://wwwwww..a.com/", "www.a.com", "www.a.com"}, Case{"https://www./", "", ""},
          Case{"https://A.Com/", "A.Com", "A.Com"},
          Case{"https://xn--4ca.example/", "xn--4ca.example", "xn--4ca.example"},
          Case{"https://me@a.com/", "a.com", "a.com"}, Case{"chrome://newtab/", "newtab", "newtab"},
          Case{"about:blank", "about:blank", ""},
          Case{"file:///tmp/www.x", "file:///tmp/www.x", ""}, Case{"no address", "no address", ""},
          Case{"", "", ""}}) {
        OpenBrowserTab tab = page;
        tab.url = url;
        EXPECT_EQ(tab.domain(), ofPage) << url;
        BrowserTabSnapshot other = snapshot;
        other.url = url;
        EXPECT_EQ(other.domain(), ofSnapshot) << url;
    }
}

TEST(TabTarget, isWrittenWithItsFiveKeys) {
    EXPECT_EQ(encoded(TabTarget{"12", "77", 3, "https://a.com/\"q\"", false}),
              R"({"windowID":"12","tabID":"77","index":3,"url":"https://a.com/\"q\"",)"
              R"("safari":false})");
    EXPECT_EQ(encoded(TabTarget{"1", "", 1, "", true}),
              R"({"windowID":"1","tabID":"","index":1,"url":"","safari":true})");
}

TEST(TabTarget, mayStandInAScript) {
    EXPECT_THAT(encoded(TabTarget{"1", "2", 1, "a\u2028\u2029\n'\\\x80</script>", false}),
                testing::HasSubstr(R"("url":"a\u2028\u2029\u000a'\\)"
                                   "\uFFFD</script>\""));
}

/// Whatever a page is called, its tab comes out of the list as it went in.
TEST(TabLists, keepEveryText) {
    const std::vector<std::string> pieces{"a", "\"", "\\", "/", "\n", "é", "\u2028", "👩", "\x7F"};
    tests::forSeeds(2000, [&](tests::Generated& generated) {
        const TabTarget target{generated.textOf(pieces, 6), generated.textOf(pieces, 6),
                               static_cast<int>(generated.engine()()), generated.textOf(pieces, 6),
                               generated.oneIn(2)};
        std::string json = "[" + encoded(target);
        json.insert(json.size() - 1, R"(,"browserID":"b","browserName":"n","title":"t")");
        const auto read = decodeOpenTabs(json + "]");
        ASSERT_TRUE(read.ok());
        EXPECT_EQ(read->front(), (OpenBrowserTab{"b", "n", target.windowID, target.tabID,
                                                 target.index, "t", target.url}));
    });
}

} // namespace
} // namespace brinmoor
