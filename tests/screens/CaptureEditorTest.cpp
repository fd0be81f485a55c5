#include "screens/QuickCaptureForm.h"
#include "tests/screens/PanelDesk.h"

#include <QCloseEvent>

namespace brinmoor {
namespace {

using namespace testing;

class CaptureEditorTest : public PanelDesk {
protected:
    void SetUp() override {
        SavedLink tagged = link("https://letterpress.studio/", "Letterpress");
        tagged.tags = {"spring", "sport", "travel"};
        given(libraryOf({tagged}));
    }
    /// The editor of a new link, with the keyboard in it.
    void open() {
        model().beginDraft(link("https://tidewatch.org.uk/tables", "How tide tables are made"),
                           CaptureAction::note, {});
        panel = panels.captureEditor(model(), *model().draft(), "Save with a note");
        panel->willClose = [this] { ++closed; };
        panel->center();
        panel->makeKeyAndOrderFront();
        ASSERT_TRUE(becomesActive(*panel));
    }
    QuickCaptureForm& form() { return *viewOf(*panel).findChild<QuickCaptureForm*>(); }
    [[nodiscard]] bool noteBecomes(const QString& note) {
        return waitUntil([&] { return form().note() == note; });
    }
    void enterTags() { QMetaObject::invokeMethod(viewOf(*panel).rootObject(), "enterTags"); }
    [[nodiscard]] bool inputBecomes(const QString& input) {
        return waitUntil([&] { return form().tagInput() == input; });
    }
    [[nodiscard]] bool inTagField() {
        return viewOf(*panel).activeFocusItem()->property("hint").toString() == u"Add a tag";
    }

    std::unique_ptr<Panel> panel;
    int closed = 0;
};

TEST_F(CaptureEditorTest, takesTheKeyboardWithoutRaisingTheLibrary) {
    const auto library = panels.libraryWindow(model());
    library->makeKeyAndOrderFront();
    ASSERT_TRUE(becomesActive(*library));
    otherInFront();
    ASSERT_TRUE(desktop.isAbove(desktop.otherWindow(), windowOf(*library)));

    open();
    EXPECT_TRUE(desktop.isAbove(windowOf(*panel), desktop.otherWindow()));
    EXPECT_TRUE(desktop.isAbove(desktop.otherWindow(), windowOf(*library)));
    desktop.type("for mara");
    EXPECT_TRUE(noteBecomes(u"for mara"_qs));
}

TEST_F(CaptureEditorTest, leavesTheUserWithTheOtherProgram) {
    const auto library = panels.libraryWindow(model());
    library->makeKeyAndOrderFront();
    ASSERT_TRUE(becomesActive(*library));
    EXPECT_TRUE(panels.applicationIsActive());
    otherInFront();
    int returns = 0;
    panels.didBecomeActive = [&] { ++returns; };
    open();
    EXPECT_FALSE(panels.applicationIsActive());
    EXPECT_EQ(returns, 0);
    library->makeKeyAndOrderFront();
    ASSERT_TRUE(becomesActive(*library));
    EXPECT_TRUE(panels.applicationIsActive());
    EXPECT_EQ(returns, 1);
}

TEST_F(CaptureEditorTest, givesTheKeyboardBackWhenItGoes) {
    const auto library = panels.libraryWindow(model());
    library->makeKeyAndOrderFront();
    ASSERT_TRUE(becomesActive(*library));
    otherInFront();
    open();
    panel->orderOut();
    EXPECT_TRUE(waitUntil([&] { return desktop.activeWindow() == desktop.otherWindow(); }));
    EXPECT_TRUE(desktop.isAbove(desktop.otherWindow(), windowOf(*library)));
}

TEST_F(CaptureEditorTest, escapeCancels) {
    open();
    desktop.press(Key::escape);
    ASSERT_TRUE(waitUntil([&] { return closed == 1; }));
    EXPECT_FALSE(panel->isVisible());
    EXPECT_EQ(model().library().links.size(), 1U);
}

TEST_F(CaptureEditorTest, ctrlEnterSavesWithWhatIsStillInTheTagField) {
    open();
    desktop.type("for mara");
    ASSERT_TRUE(noteBecomes(u"for mara"_qs));
    enterTags();
    desktop.type("sea, boats");
    ASSERT_TRUE(inputBecomes(u"sea, boats"_qs));
    desktop.press(Key::enter, {"Ctrl"});
    ASSERT_TRUE(waitUntil([&] { return model().library().links.size() == 2; }));
    EXPECT_EQ(model().library().links[0].note, "for mara");
    EXPECT_EQ(model().library().links[0].tags, (std::vector<std::string>{"sea", "boats"}));
    EXPECT_EQ(editorsClosed, 1);
}

TEST_F(CaptureEditorTest, ctrlEnterInTheNoteMakesNoLine) {
    open();
    desktop.type("one");
    ASSERT_TRUE(noteBecomes(u"one"_qs));
    desktop.press(Key::enter);
    desktop.type("two");
    ASSERT_TRUE(noteBecomes(u"one\ntwo"_qs));
    desktop.press(Key::enter, {"Ctrl"});
    ASSERT_TRUE(waitUntil([&] { return editorsClosed == 1; }));
    EXPECT_EQ(model().library().links[0].note, "one\ntwo");
}

TEST_F(CaptureEditorTest, tabTakesTheFirstSuggestionAndStays) {
    open();
    enterTags();
    desktop.type("sp");
    ASSERT_TRUE(inputBecomes(u"sp"_qs));
    desktop.press(Key::tab);
    ASSERT_TRUE(waitUntil([&] { return form().tags() == QStringList{u"sport"_qs}; }));
    EXPECT_TRUE(inputBecomes({}));
    EXPECT_TRUE(inTagField());
}

TEST_F(CaptureEditorTest, tabWithoutASuggestionLeavesTheField) {
    open();
    enterTags();
    desktop.type("zzz");
    ASSERT_TRUE(inputBecomes(u"zzz"_qs));
    desktop.press(Key::tab);
    ASSERT_TRUE(waitUntil([&] { return !inTagField(); }));
    EXPECT_TRUE(form().tags().isEmpty());
    EXPECT_EQ(form().tagInput(), u"zzz"_qs);
}

TEST_F(CaptureEditorTest, shiftTabNeverCompletes) {
    open();
    enterTags();
    desktop.type("sp");
    ASSERT_TRUE(inputBecomes(u"sp"_qs));
    desktop.press(Key::tab, {"Shift"});
    ASSERT_TRUE(waitUntil([&] { return !inTagField(); }));
    EXPECT_TRUE(form().tags().isEmpty());
    EXPECT_EQ(form().tagInput(), u"sp"_qs);
}

TEST_F(CaptureEditorTest, tabInTheNoteGoesOn) {
    open();
    desktop.type("one");
    ASSERT_TRUE(noteBecomes(u"one"_qs));
    desktop.press(Key::tab);
    ASSERT_TRUE(waitUntil([&] { return inTagField(); }));
    EXPECT_EQ(form().note(), u"one"_qs);
}

TEST_F(CaptureEditorTest, enterMakesTagsOfTheInput) {
    open();
    enterTags();
    desktop.type("sea, boats");
    ASSERT_TRUE(inputBecomes(u"sea, boats"_qs));
    desktop.press(Key::enter);
    EXPECT_TRUE(waitUntil([&] { return form().tags() == QStringList({u"sea"_qs, u"boats"_qs}); }));
}

TEST_F(CaptureEditorTest, growsWithItsTags) {
    open();
    const int height = panel->size().height;
    EXPECT_EQ(panel->size().width, 428);
    for (int number = 0; number < 12; ++number)
        form().addSuggestion(u"a longer tag %1"_qs.arg(number));
    EXPECT_TRUE(waitUntil([&] { return panel->size().height > height + 60; }));
}

TEST_F(CaptureEditorTest, theTitleBarsCrossIsACancel) {
    open();
    QCloseEvent event;
    QCoreApplication::sendEvent(&viewOf(*panel), &event);
    EXPECT_EQ(closed, 1);
    EXPECT_FALSE(panel->isVisible());
}

} // namespace
} // namespace brinmoor
