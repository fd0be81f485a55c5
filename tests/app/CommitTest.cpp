#include "tests/app/Desk.h"

#include <gmock/gmock.h>

namespace brinmoor {
namespace {

using namespace std::chrono_literals;
using testing::Desk;
using ::testing::HasSubstr;
using ::testing::StartsWith;
using testing::Words;

constexpr auto lockedWords = "Your library couldn’t be opened. Restore a valid backup and restart "
                             "Brinmoor. Your original file is unchanged.";

class CommitTest : public Desk {
protected:
    bool add(const std::string& url, const std::string& title = "A page") {
        bool result = false;
        auto task = [&]() -> QCoro::Task<> {
            result = co_await model().add(url, title, "Inbox", "", {});
        };
        task();
        return result;
    }
};

TEST_F(CommitTest, theFileIsNotWrittenAtStart) {
    EXPECT_FALSE(model().loadFailed());
    EXPECT_FALSE(std::filesystem::exists(libraryPath()));
}

TEST_F(CommitTest, aChangeIsInTheFileBeforeItIsInTheModel) {
    QObject::connect(&model(), &AppModel::libraryChanged, &model(),
                     [&] { EXPECT_THAT(fileBytes(), HasSubstr("a.example")); });
    ASSERT_TRUE(add("https://a.example/"));
    EXPECT_EQ(LibraryFile(libraryPath()).load().value(), model().library());
}

TEST_F(CommitTest, aFileThatCannotBeReadLocksEveryWriteAndStaysByteForByte) {
    for (const std::string bytes :
         {"", "{", "not json", "[]", R"({"version":2,"links":[],"collections":[]})",
          R"({"version":0,"links":[],"collections":[]})", R"({"links":[],"collections":[]})"}) {
        endModel();
        notices.clear();
        givenBytes(bytes);
        EXPECT_TRUE(model().loadFailed()) << bytes;
        EXPECT_EQ(model().library(), Library());
        EXPECT_THAT(*model().error(),
                    StartsWith("Your saved library couldn’t be opened. The original file has been "
                               "kept untouched at " +
                               libraryPath() +
                               ". Restore a valid backup there, then restart Brinmoor. "));

        EXPECT_FALSE(add("https://a.example/"));
        EXPECT_EQ(model().error(), lockedWords);
        pageIs("https://b.example/", "B");
        press(CaptureAction::quick);
        EXPECT_EQ(lastWords(), Words("Couldn’t save your tab", lockedWords));
        EXPECT_TRUE(notices.back().isError);
        EXPECT_EQ(fileBytes(), bytes);
    }
}

TEST_F(CommitTest, aFailedWriteKeepsMemoryFileAndUndo) {
    ASSERT_TRUE(add("https://a.example/"));
    const Library before = model().library();
    breakWrites();
    EXPECT_FALSE(add("https://b.example/"));
    EXPECT_THAT(*model().error(), StartsWith("Couldn’t write to your library. "));
    EXPECT_EQ(model().library(), before);
    EXPECT_TRUE(model().hasLibraryUndo());
}

TEST_F(CommitTest, aFailedWriteLeavesNoUndoBehind) {
    breakWrites();
    // A folder in the file's place can't be read either, so the fault must come after the start.
    std::filesystem::remove_all(libraryPath());
    model();
    breakWrites();
    EXPECT_FALSE(add("https://b.example/"));
    EXPECT_FALSE(model().hasLibraryUndo());
}

TEST_F(CommitTest, aFailedWriteDuringACaptureIsAPassingNotice) {
    model();
    breakWrites();
    pageIs("https://b.example/", "B");
    press(CaptureAction::quick);
    EXPECT_EQ(lastWords().first, "Couldn’t save your tab");
    EXPECT_THAT(lastWords().second, StartsWith("Couldn’t write to your library. "));
    EXPECT_EQ(model().error(), std::nullopt);
    EXPECT_TRUE(model().library().links.empty());
}

TEST_F(CommitTest, aDocumentEqualToThePresentOneChangesNothingNotEvenTheUndo) {
    pageIs("https://a.example/", "A page");
    given(libraryOf({link("https://a.example/", "A page")}));
    int changes = 0;
    QObject::connect(&model(), &AppModel::libraryChanged, &model(), [&] { ++changes; });
    press(CaptureAction::quick);
    EXPECT_EQ(lastWords().first, "Already saved");
    EXPECT_EQ(changes, 0);
    EXPECT_FALSE(model().hasLibraryUndo());
}

TEST_F(CommitTest, anErrorStandsUntilItIsDismissed) {
    EXPECT_FALSE(add("no address"));
    EXPECT_EQ(model().error(), "Enter a complete web address beginning with https:// or http://.");
    clock.advance(1h);
    EXPECT_TRUE(model().error());
    model().dismissError();
    EXPECT_EQ(model().error(), std::nullopt);
}

// Passing notices.

CaptureNotice notice(std::uint8_t id, bool isError = false) {
    Uuid uuid;
    uuid.bytes[0] = id;
    return {.id = uuid, .title = "T", .message = "M", .isError = isError, .clipboardURL = {}};
}

TEST_F(CommitTest, aPlainNoticeStaysThreeSecondsAnErrorEightAnOfferTwelve) {
    auto offer = notice(3);
    offer.clipboardURL = "https://a.example/";
    for (const auto& [shown, stay] :
         {std::pair(notice(1), 3000ms), std::pair(notice(2, true), 8000ms),
          std::pair(offer, 12000ms)}) {
        model().notify(shown);
        clock.advance(stay - 1ms);
        EXPECT_EQ(model().toast(), shown);
        clock.advance(1ms);
        EXPECT_EQ(model().toast(), std::nullopt);
    }
}

TEST_F(CommitTest, aNewerNoticeReplacesAnOlderOneWhoseTimerThenDoesNothing) {
    model().notify(notice(1));
    clock.advance(2s);
    model().notify(notice(2));
    EXPECT_EQ(model().toast(), notice(2));
    clock.advance(2s);
    EXPECT_EQ(model().toast(), notice(2));
    clock.advance(1s);
    EXPECT_EQ(model().toast(), std::nullopt);
}

// The add sheet's door.

TEST_F(CommitTest, aLinkTypedByHandIsSavedAsItWasTyped) {
    ASSERT_TRUE(add(" HTTPS://A.example/x "));
    const SavedLink& stored = model().library().links.at(0);
    EXPECT_EQ(stored.url, "HTTPS://A.example/x");
    EXPECT_EQ(stored.browser, "Manual");
    EXPECT_EQ(lastWords(), Words("Brinmoor", "Link saved"));
}

TEST_F(CommitTest, aKnownLinkTypedByHandWritesNothingAndClosesTheSheet) {
    given(libraryOf({link("https://a.example/", "A page")}));
    model();
    const auto before = std::filesystem::last_write_time(libraryPath());
    EXPECT_TRUE(add("https://A.EXAMPLE"));
    EXPECT_EQ(lastWords(),
              Words("Already saved", "This link is already in your library. No duplicate added."));
    EXPECT_EQ(std::filesystem::last_write_time(libraryPath()), before);
}

} // namespace
} // namespace brinmoor
