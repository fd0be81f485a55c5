#pragma once

#include "app/AppDelegate.h"
#include "main/RealParts.h"
#include "screens/QuickPanels.h"
#include "tests/platform/linux/TestKeyboard.h"
#include "tests/support/ChromiumSession.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/Waiting.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace brinmoor::testing {

using Words = std::pair<std::string, std::string>;

/// The pages of the pretended web of these tests.
[[nodiscard]] HttpAnswer roadPage(const HttpRequest& request);
/// A browser session on those pages.
[[nodiscard]] ChromiumOptions roadBrowser();
/// Ends the browser that the tests share.
void endRoadBrowser();

/// The six shortcuts, pressed at the keyboard.
enum class RoadKey { quick, note, selected, window, search };

/// The whole program on a desktop with one Chromium that lasts for the test program: the shell
/// with its real parts, a library of its own for each test.
class Road : public ::testing::Test {
protected:
    Road();
    ~Road() override;

    /// What the user has saved or set before the program starts.
    void given(Library library);
    void givenPreference(const std::string& key, const PreferenceValue& value);
    SavedLink link(const std::string& url, const std::string& title);

    /// Starts the program.
    AppDelegate& shell();
    AppModel& model() { return *shell().model(); }
    [[nodiscard]] AppParts real() { return real_->parts(); }

    /// Opens pages in a window of their own, the last one in front, and puts the browser in front.
    void browse(const std::vector<std::string>& addresses);
    void putBrowserInFront();
    [[nodiscard]] bool browserIsInFront();
    /// Whether some tab shows the address.
    [[nodiscard]] bool isOpen(const std::string& address);
    void goTo(const std::string& address, const std::string& next);

    void press(RoadKey key);
    void type(const std::string& letters);
    void tap(xcb_keycode_t key);
    void tapWithControl(xcb_keycode_t key);

    /// Waits until a notice with this title is shown; its words.
    Words noticeWith(const std::string& title);
    [[nodiscard]] Words lastWords();
    /// Waits until no capture runs.
    [[nodiscard]] bool settled();
    [[nodiscard]] Library stored() const;
    [[nodiscard]] std::vector<std::string> storedTitles() const;
    /// Keeps a picture of the whole screen, where BRINMOOR_PICTURES names a folder.
    void picture(const std::string& name);

    /// The browser of all tests, started by the first one that asks for it.
    static ChromiumSession& chromium();

private:
    ScratchFolder home_;
    std::unique_ptr<QuickPanels> panels_;
    std::unique_ptr<RealParts> real_;
    std::unique_ptr<AppDelegate> shell_;
    TestKeyboard keyboard_;
};

} // namespace brinmoor::testing
