#pragma once

#include "browser/Browser.h"
#include "browser/CaptureScripts.h"
#include "browser/ScriptRunner.h"
#include "core/library/SavedLink.h"
#include "core/tabs/CapturedTabTarget.h"
#include "platform/Subscription.h"
#include "platform/Workspace.h"

#include <QCoroTask>
#include <QObject>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace brinmoor {

class Clock;
class Preferences;

/// What one capture read.
struct CapturedTabs {
    std::vector<SavedLink> links; ///< in the browser's order, at least one
    /// How to close the first tab read, where that was asked for and possible.
    std::optional<CapturedTabTarget> closeTarget;
};

/// Turns the page that the user looks at into links, and closes a saved tab if it is still the
/// same tab on the same address. Remembers the browser that was last in front. Main thread.
class BrowserCapture final : public QObject {
    Q_OBJECT

public:
    using Completion = std::function<void(Result<CapturedTabs, CaptureFailure>)>;

    /// All of it outlives the service.
    BrowserCapture(Workspace& workspace, Preferences& preferences, Clock& clock,
                   ScriptRunner& scripts);
    ~BrowserCapture() override;

    /// Reads the front window of the browser that is meant. `completion` is called exactly once on
    /// the main thread; at once, before this returns, when no browser can be chosen. It is not
    /// called when the service has gone.
    void capture(TabRange range, ClosePreparation preparation, Completion completion);

    /// True if the tab was closed; false for every other outcome, failures included.
    QCoro::Task<bool> closeSavedTab(CapturedTabTarget target);

private:
    using Applications = std::vector<RunningApplication>;

    [[nodiscard]] Result<Browser, CaptureError> target();
    [[nodiscard]] std::vector<std::string> visibleOwners(const Applications& running) const;
    void remember(const std::optional<RunningApplication>& application);
    void rememberBrowser(std::string_view id);
    [[nodiscard]] std::vector<std::int32_t> processesOf(std::string_view browserID) const;

    QCoro::Task<> read(Browser browser, std::string script, Completion completion);
    [[nodiscard]] Result<CapturedTabs, CaptureFailure> captured(const Browser& browser,
                                                                const QByteArray& output);

    Workspace& workspace_;
    Preferences& preferences_;
    Clock& clock_;
    ScriptRunner& scripts_;
    std::optional<std::string> lastBrowserID_;
    Subscription observation_;
};

} // namespace brinmoor
