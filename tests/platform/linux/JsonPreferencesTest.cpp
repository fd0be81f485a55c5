#include "platform/linux/JsonPreferences.h"

#include "tests/platform/linux/EventLoop.h"
#include "tests/platform/linux/TestFolder.h"

#include <QJsonDocument>
#include <QProcess>

#include <gmock/gmock.h>

using namespace brinmoor;
using namespace brinmoor::testing;

namespace {

class JsonPreferencesTest : public ::testing::Test {
protected:
    TestFolder folder;
    std::string file = folder.path("config/app/preferences.json");
};

} // namespace

TEST_F(JsonPreferencesTest, everyTypeComesBackInAnotherRun) {
    const std::string bytes("\x00\xff{}", 4);
    {
        JsonPreferences preferences(file);
        EXPECT_TRUE(preferences.set("clipboardEnabled", true));
        EXPECT_TRUE(preferences.set("analyticsEnabled", false));
        EXPECT_TRUE(preferences.set("appAppearance", std::string("cr\xc3\xa8me")));
        EXPECT_TRUE(preferences.set("captureShortcuts", PreferenceData{bytes}));
        EXPECT_TRUE(preferences.set("tabCleanupDomains", PreferenceData{}));
    }
    const JsonPreferences preferences(file);
    EXPECT_TRUE(preferences.boolean("clipboardEnabled"));
    EXPECT_FALSE(preferences.boolean("analyticsEnabled", true));
    EXPECT_EQ(preferences.text("appAppearance"), "cr\xc3\xa8me");
    EXPECT_EQ(preferences.data("captureShortcuts"), bytes);
    EXPECT_EQ(preferences.data("tabCleanupDomains"), "");
}

TEST_F(JsonPreferencesTest, absentIsNotFalseAndARemovedKeyIsAbsentAgain) {
    JsonPreferences preferences(file);
    EXPECT_EQ(preferences.object("analyticsEnabled"), std::nullopt);
    EXPECT_TRUE(preferences.boolean("analyticsEnabled", true));
    EXPECT_TRUE(preferences.set("analyticsEnabled", false));
    EXPECT_FALSE(preferences.boolean("analyticsEnabled", true));
    EXPECT_TRUE(preferences.set("analyticsEnabled", std::nullopt));
    EXPECT_EQ(JsonPreferences(file).object("analyticsEnabled"), std::nullopt);
}

TEST_F(JsonPreferencesTest, aTextStoredForABooleanIsNoBoolean) {
    putFile(file, R"({"analyticsEnabled": "false", "clipboardEnabled": 1, "appAppearance": true})");
    const JsonPreferences preferences(file);
    EXPECT_TRUE(preferences.boolean("analyticsEnabled", true));
    EXPECT_FALSE(preferences.boolean("clipboardEnabled"));
    EXPECT_EQ(preferences.text("appAppearance"), std::nullopt);
    EXPECT_EQ(preferences.data("analyticsEnabled"), std::nullopt);
}

TEST_F(JsonPreferencesTest, valuesOfOtherFormsAreKeptAsTheyAre) {
    putFile(file, R"({"count": 9007199254740993, "list": [1, null, {"a": 1.5}],
                      "half": {"data": "!"}, "more": {"data": "AA==", "x": 1}})");
    JsonPreferences preferences(file);
    EXPECT_EQ(preferences.object("count"), std::nullopt);
    EXPECT_EQ(preferences.object("half"), std::nullopt);
    EXPECT_EQ(preferences.object("more"), std::nullopt);
    EXPECT_TRUE(preferences.set("clipboardEnabled", true));
    const auto written = QJsonDocument::fromJson(QByteArray::fromStdString(contentsOf(file)));
    EXPECT_EQ(written[u"count"].toInteger(), 9007199254740993);
    EXPECT_EQ(written[u"list"][2][u"a"].toDouble(), 1.5);
    EXPECT_EQ(written[u"half"][u"data"].toString(), u"!");
    EXPECT_EQ(written[u"more"][u"x"].toInt(), 1);
}

TEST_F(JsonPreferencesTest, aChangeByAnotherCopyIsTold) {
    JsonPreferences mine(file);
    JsonPreferences other(file);
    int changed = 0;
    int unrelated = 0;
    const auto first = mine.observe("appAppearance", [&] { ++changed; });
    const auto second = mine.observe("clipboardEnabled", [&] { ++unrelated; });
    for (const auto* value : {"cream", "black", "cream"}) {
        changed = 0;
        EXPECT_TRUE(other.set("appAppearance", std::string(value)));
        ASSERT_TRUE(eventually([&] { return changed == 1; })) << value;
        EXPECT_EQ(mine.text("appAppearance"), value);
    }
    EXPECT_EQ(unrelated, 0);
}

TEST_F(JsonPreferencesTest, aFileWrittenInPlaceByAnEditorIsReadToo) {
    JsonPreferences preferences(file);
    EXPECT_TRUE(preferences.set("clipboardEnabled", false));
    bool told = false;
    const auto subscription = preferences.observe("clipboardEnabled", [&] { told = true; });
    putFile(file, R"({"clipboardEnabled": true})");
    ASSERT_TRUE(eventually([&] { return told; }));
    EXPECT_TRUE(preferences.boolean("clipboardEnabled"));
}

TEST_F(JsonPreferencesTest, aWriteAlsoBringsWhatAnotherCopyChangedMeanwhile) {
    JsonPreferences mine(file);
    JsonPreferences other(file);
    EXPECT_TRUE(other.set("appAppearance", std::string("cream")));
    EXPECT_TRUE(mine.set("clipboardEnabled", true));
    EXPECT_EQ(mine.text("appAppearance"), "cream");
    const JsonPreferences later(file);
    EXPECT_EQ(later.text("appAppearance"), "cream");
    EXPECT_TRUE(later.boolean("clipboardEnabled"));
}

TEST_F(JsonPreferencesTest, ownChangesAreToldAndUnchangedValuesAreNot) {
    JsonPreferences preferences(file);
    int changed = 0;
    const auto subscription = preferences.observe("clipboardEnabled", [&] { ++changed; });
    EXPECT_TRUE(preferences.set("clipboardEnabled", true));
    EXPECT_TRUE(preferences.set("clipboardEnabled", true));
    letEventsRun(50);
    EXPECT_EQ(changed, 1);
}

TEST_F(JsonPreferencesTest, aBrokenFileIsSetAsideOnlyByAWriteAndNeverOverwritten) {
    putFile(file, "{\"analyticsEnabled\": false");
    putFile(file + ".broken", "an earlier one");
    JsonPreferences preferences(file);
    EXPECT_TRUE(preferences.boolean("analyticsEnabled", true));
    EXPECT_EQ(contentsOf(file), "{\"analyticsEnabled\": false");
    EXPECT_TRUE(preferences.set("clipboardEnabled", true));
    EXPECT_EQ(contentsOf(file + ".broken"), "an earlier one");
    EXPECT_EQ(contentsOf(file + ".broken.2"), "{\"analyticsEnabled\": false");
    EXPECT_TRUE(JsonPreferences(file).boolean("clipboardEnabled"));
}

TEST_F(JsonPreferencesTest, valuesKnownBeforeTheFileBrokeStayInForce) {
    JsonPreferences preferences(file);
    EXPECT_TRUE(preferences.set("appAppearance", std::string("cream")));
    putFile(file, "[");
    letEventsRun(50);
    EXPECT_EQ(preferences.text("appAppearance"), "cream");
    EXPECT_TRUE(preferences.set("clipboardEnabled", true));
    EXPECT_EQ(JsonPreferences(file).text("appAppearance"), "cream");
    EXPECT_EQ(contentsOf(file + ".broken"), "[");
}

TEST_F(JsonPreferencesTest, anEmptyFileHoldsNothing) {
    putFile(file, "");
    JsonPreferences preferences(file);
    EXPECT_TRUE(preferences.set("clipboardEnabled", true));
    EXPECT_FALSE(std::filesystem::exists(file + ".broken"));
}

TEST_F(JsonPreferencesTest, aValueThatCannotBeWrittenStaysInForceForThisRun) {
    putFile(folder.path("config"), "a file where the folder should be");
    JsonPreferences preferences(file);
    int changed = 0;
    const auto subscription = preferences.observe("clipboardEnabled", [&] { ++changed; });
    EXPECT_FALSE(preferences.set("clipboardEnabled", true));
    EXPECT_TRUE(preferences.boolean("clipboardEnabled"));
    EXPECT_EQ(changed, 1);
    std::filesystem::remove(folder.path("config"));
    EXPECT_TRUE(preferences.set("clipboardEnabled", true));
    EXPECT_TRUE(JsonPreferences(file).boolean("clipboardEnabled"));
}

TEST_F(JsonPreferencesTest, aDirectoryInPlaceOfTheFileIsLeftAlone) {
    std::filesystem::create_directories(file + "/inside");
    JsonPreferences preferences(file);
    EXPECT_FALSE(preferences.set("clipboardEnabled", true));
    EXPECT_TRUE(std::filesystem::exists(file + "/inside"));
}

TEST_F(JsonPreferencesTest, copiesThatWriteAtOnceLoseNothing) {
    constexpr int writes = 150;
    std::vector<std::unique_ptr<QProcess>> copies;
    for (const auto* prefix : {"first", "second", "third"}) {
        copies.push_back(std::make_unique<QProcess>());
        copies.back()->start(
            QStringLiteral(PREFERENCES_WRITER),
            {QString::fromStdString(file), QString::fromLatin1(prefix), QString::number(writes)});
    }
    for (auto& copy : copies) {
        ASSERT_TRUE(copy->waitForFinished(60000));
        EXPECT_EQ(copy->exitCode(), 0);
    }
    const JsonPreferences preferences(file);
    int missing = 0;
    for (const std::string prefix : {"first", "second", "third"}) {
        for (int i = 0; i < writes; ++i)
            missing += preferences.text(prefix + std::to_string(i)) == prefix ? 0 : 1;
    }
    EXPECT_EQ(missing, 0);
    EXPECT_EQ(filesIn(folder.path("config/app")), 2U) << "the file, its lock and nothing else";
}

TEST_F(JsonPreferencesTest, aFolderReadableByTheUserAloneIsMade) {
    const JsonPreferences preferences(file);
    const auto permissions = std::filesystem::status(folder.path("config/app")).permissions();
    EXPECT_EQ(permissions, std::filesystem::perms::owner_all);
}
