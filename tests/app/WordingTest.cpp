#include "app/wording/LinuxWording.h"

#include "core/capture/CaptureError.h"
#include "core/capture/CaptureShortcut.h"
#include "core/text/Wording.h"

#include <gtest/gtest.h>

namespace brinmoor {
namespace {

class LinuxWordingTest : public ::testing::Test {
protected:
    LinuxWordingTest() { installLinuxWording(); }
    ~LinuxWordingTest() override { text::setWording(nullptr); }
};

TEST_F(LinuxWordingTest, shortcutsAreNamedByTheKeysOfTheKeyboardsHere) {
    EXPECT_EQ(defaultShortcut(CaptureAction::quick).label(), "Shift+Super+K");
    EXPECT_EQ(defaultShortcut(CaptureAction::note).label(), "Alt+Super+K");
    EXPECT_EQ(defaultShortcut(CaptureAction::selected).label(), "Ctrl+Shift+Super+K");
}

TEST_F(LinuxWordingTest, accessIsGrantedWhereThatIsPossibleHere) {
    const CaptureError refused{CaptureError::Cause::permission, "Chromium"};
    EXPECT_EQ(refused.notice({}).message,
              "Allow Brinmoor to read tabs from Chromium in browser access settings.");
}

TEST_F(LinuxWordingTest, everyOtherTextStaysAsItIs) {
    EXPECT_EQ(text::worded("Tab saved"), "Tab saved");
    EXPECT_EQ(text::worded(""), "");
}

} // namespace
} // namespace brinmoor
