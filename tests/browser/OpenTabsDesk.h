#pragma once

#include "browser/BrowserTabCleanupService.h"
#include "browser/ScriptTool.h"
#include "browser/TabSearchModel.h"
#include "platform/Workspace.h"
#include "tests/support/ChromiumSession.h"
#include "tests/support/Waiting.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace brinmoor::testing {

/// One tab as the driver inside a browser sees it.
struct RealTab {
    int id = 0;
    int window = 0;
    int place = 0; ///< from 0
    std::string url;
};

/// What tests do by hand in a real browser.
class RealBrowser {
public:
    explicit RealBrowser(ChromiumSession& session) : session_(session) {}

    /// Opens a window with these pages and waits until they are loaded; its number.
    int openWindow(const std::vector<std::string>& addresses);
    /// Opens a tab that needn't load, a page of the browser's own for instance; its number.
    int openTab(int window, const std::string& address);
    [[nodiscard]] std::vector<RealTab> tabs() const;
    [[nodiscard]] std::vector<RealTab> tabsOf(int window) const;
    [[nodiscard]] bool isOpen(int tab) const;
    void close(int tab);
    void goTo(int tab, const std::string& address);
    void move(int tab, int place);
    void moveToNewWindow(int tab);
    void minimize(int window);
    void bringForward(int window);
    /// Closes every window but a fresh one with this page.
    void reset(const std::string& address);
    [[nodiscard]] ChromiumSession& session() { return session_; }

private:
    QJsonDocument call(const char* function, const QJsonArray& arguments) const;
    ChromiumSession& session_;
};

/// Two real browsers of different names on one real desktop, which last for the test program, and
/// the services that speak to them.
class OpenTabsDesk : public ::testing::Test {
protected:
    OpenTabsDesk();

    static RealBrowser& chromium();
    static RealBrowser& brave();
    /// Ends the Brave of the tests and starts one that knows no helper program.
    static std::unique_ptr<ChromiumSession> unconnectedBrave();

    TabCleanupReadResult read();
    TabCleanupCloseResult close(std::vector<BrowserTabSnapshot> tabs);
    /// Waits for the end of a reading of the search.
    void refresh();
    [[nodiscard]] std::vector<OpenBrowserTab> found(const std::string& query);
    /// Waits for the end of the switch; true when it closed the panel.
    bool switchedTo(const OpenBrowserTab& tab);
    [[nodiscard]] std::string message() const { return search.message().value_or("(none)"); }

    std::unique_ptr<Workspace> workspace;
    ScriptTool scripts;
    TabSearchModel search;
    BrowserTabCleanupService cleanup;
};

/// Ends the browsers that the tests share.
void endSharedBrowsers();

/// The pages of both browsers: each is titled by its path.
[[nodiscard]] HttpAnswer titledPage(const HttpRequest& request);

} // namespace brinmoor::testing
