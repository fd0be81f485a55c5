#include "screens/QuickFileDialogs.h"
#include "screens/QuickPanels.h"
#include "tests/screens/TestDesktop.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Waiting.h"

#include <QGuiApplication>
#include <QUrl>
#include <QWindow>

#include <gmock/gmock.h>

namespace brinmoor::testing {
namespace {

using ::testing::ElementsAre;

/// The dialogs as the user meets them: in windows of their own, by key presses.
class FileDialogsTest : public ::testing::Test {
protected:
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

} // namespace
} // namespace brinmoor::testing
