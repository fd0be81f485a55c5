#include "screens/QuickCaptureForm.h"

#include "tests/support/Waiting.h"

#include <QCoroFuture>
#include <QPromise>

#include <gmock/gmock.h>

namespace brinmoor {
namespace {

using testing::settle;

SavedLink page() {
    return {"https://www.tidewatch.org.uk/tables",
            "How tide tables are made",
            "Chromium",
            "Inbox",
            Uuid{},
            Instant{}};
}

class QuickCaptureFormTest : public ::testing::Test {
protected:
    QuickCaptureFormTest() { answer_.start(); }
    ~QuickCaptureFormTest() override {
        // A save that waits for ever would wake in the next test.
        if (!answered_)
            answer(false);
    }

    QuickCaptureForm make(SavedLink link = page()) {
        return QuickCaptureForm(std::move(link), known,
                                {[this](SavedLink saved) {
                                     saves.push_back(std::move(saved));
                                     return waiting();
                                 },
                                 [this] { ++cancels; }});
    }
    QCoro::Task<bool> waiting() {
        const QFuture<bool> future = answer_.future();
        const bool saved = co_await future;
        co_return saved;
    }
    void answer(bool saved) {
        answered_ = true;
        answer_.addResult(saved);
        answer_.finish();
        settle();
    }

    std::vector<std::string> known{"Café",  "reading", "recipes",  "spring",
                                   "sport", "sports",  "spelling", "special"};
    std::vector<SavedLink> saves;
    int cancels = 0;

private:
    QPromise<bool> answer_;
    bool answered_ = false;
};

TEST_F(QuickCaptureFormTest, piecesBetweenCommasAreTags) {
    auto form = make();
    form.setTagInput(u"sea, boats"_qs);
    form.commitInput();
    EXPECT_EQ(form.tags(), QStringList({u"sea"_qs, u"boats"_qs}));
    EXPECT_EQ(form.tagInput(), QString());
}

TEST_F(QuickCaptureFormTest, aRepeatInAnotherLetterCaseIsDropped) {
    auto form = make();
    form.addSuggestion(u"Sea"_qs);
    form.setTagInput(u"sea, SEA, #boats"_qs);
    form.commitInput();
    EXPECT_EQ(form.tags(), QStringList({u"Sea"_qs, u"boats"_qs}));
}

TEST_F(QuickCaptureFormTest, anEmptyInputLeavesTheTagsAsTheyAre) {
    auto form = make();
    form.addSuggestion(u"sea"_qs);
    form.commitInput();
    form.setTagInput(u" , "_qs);
    form.commitInput();
    EXPECT_EQ(form.tags(), QStringList{u"sea"_qs});
}

TEST_F(QuickCaptureFormTest, tabTakesTheFirstSuggestionInTheLetterCaseOfTheInput) {
    auto form = make();
    form.setTagInput(u"Re"_qs);
    EXPECT_TRUE(form.completes());
    EXPECT_TRUE(form.tab());
    EXPECT_EQ(form.tags(), QStringList{u"Reading"_qs});
    EXPECT_EQ(form.tagInput(), QString());
}

TEST_F(QuickCaptureFormTest, tabTakesNothingWithoutAMatchOrAnInput) {
    auto form = make();
    EXPECT_FALSE(form.tab());
    EXPECT_FALSE(form.completes());
    form.setTagInput(u"  "_qs);
    EXPECT_FALSE(form.tab());
    form.setTagInput(u"zzz"_qs);
    EXPECT_FALSE(form.tab());
    EXPECT_TRUE(form.tags().isEmpty());
    EXPECT_EQ(form.tagInput(), u"zzz"_qs);
}

TEST_F(QuickCaptureFormTest, sixSuggestionsAtMostAndNoneThatIsTakenAlready) {
    auto form = make();
    EXPECT_EQ(form.suggestions().size(), 6);
    form.setTagInput(u"sp"_qs);
    EXPECT_EQ(form.suggestions().size(), 5);
    form.addSuggestion(u"SPRING"_qs);
    form.setTagInput(u"sp"_qs);
    EXPECT_FALSE(form.suggestions().contains(u"spring"_qs));
    form.addSuggestion(u"cafe"_qs);
    form.setTagInput(u"caf"_qs);
    EXPECT_TRUE(form.suggestions().isEmpty());
}

TEST_F(QuickCaptureFormTest, aTagIsTakenAwayByItsName) {
    auto form = make();
    form.setTagInput(u"sea, boats"_qs);
    form.commitInput();
    form.removeTag(u"sea"_qs);
    EXPECT_EQ(form.tags(), QStringList{u"boats"_qs});
}

TEST_F(QuickCaptureFormTest, savesWhatIsWrittenAndWhatIsStillInTheTagInput) {
    auto form = make();
    form.setTitle(u"Tides"_qs);
    form.setNote(u"For Mara"_qs);
    form.setTagInput(u"sea"_qs);
    form.save();
    ASSERT_EQ(saves.size(), 1U);
    EXPECT_EQ(saves[0].title, "Tides");
    EXPECT_EQ(saves[0].note, "For Mara");
    EXPECT_EQ(saves[0].tags, std::vector<std::string>{"sea"});
    EXPECT_EQ(saves[0].url, page().url);
}

TEST_F(QuickCaptureFormTest, aSaveUnderWayIsNotBegunAgain) {
    auto form = make();
    form.save();
    form.save();
    EXPECT_TRUE(form.isSaving());
    EXPECT_EQ(saves.size(), 1U);
}

TEST_F(QuickCaptureFormTest, aFailedSaveKeepsWhatWasTyped) {
    auto form = make();
    form.setNote(u"For Mara"_qs);
    form.save();
    answer(false);
    EXPECT_FALSE(form.isSaving());
    EXPECT_EQ(form.note(), u"For Mara"_qs);
}

TEST_F(QuickCaptureFormTest, mayGoWhileItsSaveIsUnderWay) {
    {
        auto form = make();
        form.save();
    }
    answer(true);
    EXPECT_EQ(saves.size(), 1U);
}

TEST_F(QuickCaptureFormTest, cancelAsksForNothingElse) {
    auto form = make();
    form.cancel();
    EXPECT_EQ(cancels, 1);
    EXPECT_TRUE(saves.empty());
}

TEST_F(QuickCaptureFormTest, knowsItsSite) {
    EXPECT_EQ(make().domain(), u"tidewatch.org.uk"_qs);
}

} // namespace
} // namespace brinmoor
