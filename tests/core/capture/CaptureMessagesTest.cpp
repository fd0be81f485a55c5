#include "core/capture/CaptureAction.h"
#include "core/capture/CaptureError.h"
#include "core/text/Wording.h"

#include <gtest/gtest.h>

#include <set>

namespace brinmoor {
namespace {

using Cause = CaptureError::Cause;

struct Named {
    CaptureAction action;
    const char* stored;
    const char* message;
};

TEST(CaptureActions, haveTheirNamesAndHotKeys) {
    std::uint32_t id = 0;
    for (const auto& [action, stored, message] :
         {Named{CaptureAction::quick, "quick", "Save link"},
          {CaptureAction::note, "note", "Save with a note"},
          {CaptureAction::selected, "selected", "Save selected tabs"},
          {CaptureAction::window, "window", "Save all tabs in window"},
          {CaptureAction::search, "search", "Search open tabs"},
          {CaptureAction::duplicates, "duplicates", "Close duplicate tabs"}}) {
        EXPECT_EQ(storedName(action), stored);
        EXPECT_EQ(captureAction(stored), action);
        EXPECT_EQ(messageName(action), message);
        EXPECT_EQ(hotKeyId(action), ++id);
        EXPECT_EQ(captureActionOfHotKey(id), action);
    }
}

TEST(CaptureActions, otherNamesAndHotKeysStandForNone) {
    for (const char* name : {"", "Quick", "save"})
        EXPECT_EQ(captureAction(name), std::nullopt) << name;
    for (const std::uint32_t id : {0U, 7U, 0xFFFFFFFFU})
        EXPECT_EQ(captureActionOfHotKey(id), std::nullopt) << id;
}

TEST(CaptureNotices, stayLongerTheMoreTheyAskOfTheUser) {
    CaptureNotice notice;
    EXPECT_EQ(notice.duration(), std::chrono::seconds(3));
    notice.isError = true;
    EXPECT_EQ(notice.duration(), std::chrono::seconds(8));
    notice.clipboardURL = "https://a.com/";
    EXPECT_EQ(notice.duration(), std::chrono::seconds(12));
    notice.isError = false;
    EXPECT_EQ(notice.duration(), std::chrono::seconds(12));
}

struct Words {
    CaptureError error;
    const char* title;
    const char* message;
    const char* description;
};

const std::vector<Words> words{
    {{Cause::unsupported, "Firefox"},
     "Firefox isn’t supported yet",
     "Copy the page address and use Add link → Paste URL, or open it in Safari or Chrome.",
     "Direct tab capture isn’t available for Firefox yet. Copy the page address and use Add link → "
     "Paste URL, or open it in Safari or Chrome."},
    {{Cause::permission, "Brave"},
     "Browser access needed",
     "Allow Brinmoor to read tabs from Brave in macOS Automation settings.",
     "Allow Brinmoor to read tabs from Brave in System Settings → Privacy & Security → Automation, "
     "then try again."},
    {{Cause::failed, "A detail."},
     "Couldn’t capture this tab",
     "Check that your browser has a web page open, then try again.",
     "Couldn’t read this browser window. A detail."},
    {{Cause::noBrowser, ""},
     "No browser found",
     "Open a page in Safari or Chrome, then try your shortcut again.",
     "No browser tab found. Open a page in Safari or Chrome, then press your shortcut again. "
     "Brinmoor will remember that browser for captures from other apps."},
    {{Cause::noTabs, ""},
     "No tabs to save",
     "Open a web page first. Empty tabs and browser settings can’t be saved.",
     "There are no web pages to save in this window. New tabs, browser settings, and local files "
     "are skipped."},
};

TEST(CaptureErrors, haveTheirWords) {
    const Uuid id{{1, 2, 3}};
    for (const auto& [error, title, message, description] : words) {
        CaptureNotice expected;
        expected.id = id;
        expected.title = title;
        expected.message = message;
        expected.isError = true;
        expected.opensAutomationSettings = error.cause == Cause::permission;
        EXPECT_EQ(error.notice(id), expected) << title;
        EXPECT_EQ(error.errorDescription(), description);
    }
}

TEST(CaptureErrors, anUnnamedBrowserIsCalledThisBrowser) {
    EXPECT_EQ((CaptureError{Cause::unsupported, "this browser"}.notice({}).title),
              "this browser isn’t supported yet");
}

std::set<std::string>& wordedPieces() {
    static std::set<std::string> pieces;
    return pieces;
}

/// A wording can put a text right only if it meets it whole and without the names inside.
TEST(CaptureErrors, composedMessagesWordEachFixedPiece) {
    text::setWording([](std::string_view piece) {
        wordedPieces().emplace(piece);
        return std::string("_");
    });
    EXPECT_EQ((CaptureError{Cause::permission, "Brave"}.notice({}).message), "_Brave_");
    EXPECT_EQ((CaptureError{Cause::unsupported, "Zen"}.notice({}).title), "Zen_");
    EXPECT_EQ((CaptureError{Cause::unsupported, "Zen"}.errorDescription()), "_Zen_");
    EXPECT_EQ((CaptureError{Cause::failed, "Detail"}.errorDescription()), "_Detail");
    EXPECT_EQ((CaptureError{Cause::noTabs, ""}.errorDescription()), "_");
    text::setWording(nullptr);
    EXPECT_TRUE(wordedPieces().contains("Allow Brinmoor to read tabs from "));
    EXPECT_TRUE(wordedPieces().contains(" in macOS Automation settings."));
}

} // namespace
} // namespace brinmoor
