#include "screens/QuickFileDialogs.h"
#include "screens/QuickPanels.h"
#include "tests/screens/TestDesktop.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Waiting.h"

#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <QUrl>
#include <QWindow>

#include <gmock/gmock.h>

namespace brinmoor::testing {
namespace {

using ::testing::ElementsAre;

/// The dialogs as the user meets them: in windows of their own, by key presses.
class FileDialogsTest : public ::testing::Test {
protected:
    // The windows of the test before are gone.
    FileDialogsTest() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(waitUntil([] { return QGuiApplication::focusWindow() == nullptr; }));
    }
    FileDialogs::Chosen remember() {
        return [this](std::optional<std::string> path) { answers.push_back(std::move(path)); };
    }
    [[nodiscard]] bool isShown() const {
        return dialogs.open() != nullptr && dialogs.open()->property("visible").toBool();
    }
    void answer(const char* method) {
        QMetaObject::invokeMethod(dialogs.open(), method);
        ASSERT_TRUE(waitUntil([&] { return !answers.empty(); }));
    }

    /// Asks for a place to write to and accepts this file.
    void choose(const std::string& path) {
        dialogs.chooseToWrite(path, remember());
        ASSERT_TRUE(waitUntil([&] { return isShown(); }));
        QMetaObject::invokeMethod(dialogs.open(), "accept");
    }
    [[nodiscard]] bool asksToReplace() const {
        return dialogs.open() && dialogs.open()->property("replacing").toBool();
    }
    /// The window in which Qt draws the dialog.
    [[nodiscard]] QQuickWindow& drawnIn() const {
        auto* dialog = dialogs.open()->property("dialog").value<QObject*>();
        return *dialog->property("parentWindow").value<QQuickWindow*>();
    }
    /// The keyboard is on this button, and that is seen.
    [[nodiscard]] bool focusIsOn(const QString& text) const {
        return waitUntil([&] {
            const QQuickItem* item = drawnIn().activeFocusItem();
            return drawnIn().isActive() && item && item->isVisible() &&
                   item->property("text").toString() == text;
        });
    }

    TestDesktop desktop;
    QuickPanels panels;
    QuickFileDialogs dialogs{panels.engine()};
    TemporaryFolder folder;
    std::vector<std::optional<std::string>> answers;
};

TEST_F(FileDialogsTest, theNameOfABackupIsSuggested) {
    dialogs.chooseToWrite("Brinmoor-backup.json", remember());
    ASSERT_TRUE(waitUntil([&] { return isShown(); }));
    answer("accept");
    ASSERT_TRUE(answers[0]);
    EXPECT_TRUE(answers[0]->ends_with("/Brinmoor-backup.json")) << *answers[0];
}

TEST_F(FileDialogsTest, aCancelledDialogGivesNoPlace) {
    dialogs.chooseToRead(remember());
    ASSERT_TRUE(waitUntil([&] { return isShown(); }));
    answer("cancel");
    EXPECT_THAT(answers, ElementsAre(std::nullopt));
    EXPECT_EQ(dialogs.open(), nullptr);
}

TEST_F(FileDialogsTest, aSecondDialogIsRefusedWhileOneIsOpen) {
    dialogs.chooseToRead(remember());
    ASSERT_TRUE(waitUntil([&] { return isShown(); }));
    int refused = 0;
    dialogs.chooseToWrite("x.json",
                          [&](const std::optional<std::string>& path) { refused += path ? 0 : 1; });
    EXPECT_EQ(refused, 1);
    EXPECT_TRUE(isShown());
    EXPECT_TRUE(answers.empty());
}

TEST_F(FileDialogsTest, aFileIsReplacedOnlyAfterAnAnswer) {
    const std::string path = folder.path("Brinmoor-backup.json");
    writeBytes(path, "the only good one");
    choose(path);
    ASSERT_TRUE(waitUntil([&] { return asksToReplace(); }));
    ASSERT_TRUE(focusIsOn(u"Cancel"_qs));
    EXPECT_TRUE(answers.empty());
    desktop.press(Key::enter);
    // Back in the dialog, where another name can be chosen.
    ASSERT_TRUE(waitUntil([&] { return isShown() && !asksToReplace(); }));
    EXPECT_TRUE(answers.empty());
    EXPECT_EQ(bytesOf(path), "the only good one");
    QMetaObject::invokeMethod(dialogs.open(), "accept");
    ASSERT_TRUE(waitUntil([&] { return asksToReplace(); }));
    ASSERT_TRUE(focusIsOn(u"Cancel"_qs));
    desktop.press(Key::tab);
    ASSERT_TRUE(focusIsOn(u"Replace"_qs));
    desktop.press(Key::enter);
    ASSERT_TRUE(waitUntil([&] { return !answers.empty(); }));
    EXPECT_THAT(answers, ElementsAre(path));
}

TEST_F(FileDialogsTest, escapeLeavesTheFileAsItIs) {
    const std::string path = folder.path("Brinmoor-backup.json");
    writeBytes(path, "the only good one");
    choose(path);
    ASSERT_TRUE(waitUntil([&] { return asksToReplace(); }));
    ASSERT_TRUE(focusIsOn(u"Cancel"_qs));
    desktop.press(Key::escape);
    ASSERT_TRUE(waitUntil([&] { return isShown() && !asksToReplace(); }));
    EXPECT_TRUE(answers.empty());
}

TEST_F(FileDialogsTest, aNewFileIsNotAskedAbout) {
    const std::string path = folder.path("another.json");
    choose(path);
    ASSERT_TRUE(waitUntil([&] { return !answers.empty(); }));
    EXPECT_THAT(answers, ElementsAre(path));
}

TEST_F(FileDialogsTest, aFileToReadIsNotAskedAbout) {
    const std::string path = folder.path("Brinmoor-backup.json");
    writeBytes(path, "{}");
    dialogs.chooseToRead(remember());
    ASSERT_TRUE(waitUntil([&] { return isShown(); }));
    QMetaObject::invokeMethod(dialogs.open(), "chosen",
                              Q_ARG(QUrl, QUrl::fromLocalFile(QString::fromStdString(path))));
    EXPECT_THAT(answers, ElementsAre(path));
}

TEST_F(FileDialogsTest, aFileThatIsNotOnThisComputerIsNone) {
    dialogs.chooseToRead(remember());
    ASSERT_TRUE(waitUntil([&] { return isShown(); }));
    QMetaObject::invokeMethod(dialogs.open(), "chosen",
                              Q_ARG(QUrl, QUrl(u"sftp://host.example/backup.json"_qs)));
    EXPECT_THAT(answers, ElementsAre(std::nullopt));
    EXPECT_EQ(dialogs.open(), nullptr);
}

} // namespace
} // namespace brinmoor::testing
