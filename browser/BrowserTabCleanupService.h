#pragma once

#include "browser/ScriptRunner.h"
#include "core/tabs/BrowserTabSnapshot.h"

#include <QCoroTask>
#include <QObject>

#include <cstddef>
#include <string>
#include <vector>

namespace brinmoor {

struct Browser;
class Workspace;

/// The outcome of one reading.
struct TabCleanupReadResult {
    std::vector<BrowserTabSnapshot> tabs;    ///< browser after browser
    std::vector<std::string> failedBrowsers; ///< names of those that could not be read
    bool hadBrowsers = false;                ///< one of the catalogue runs
};

/// The outcome of one closing.
struct TabCleanupCloseResult {
    std::size_t requested = 0;
    std::size_t closed = 0;                  ///< as the scripts report
    std::vector<std::string> failedBrowsers; ///< names of those whose script failed
};

/// Reads the open tabs of every running browser and closes those that are still what was read of
/// them, one browser at a time. Neither ever fails as a whole. A service that goes meanwhile ends
/// both after the script under way. Main thread.
class BrowserTabCleanupService final : public QObject {
    Q_OBJECT

public:
    /// Both outlive the service.
    BrowserTabCleanupService(const Workspace& workspace, ScriptRunner& scripts);

    QCoro::Task<TabCleanupReadResult> readTabs();
    /// Tabs of browsers that are not in the catalogue stay open.
    QCoro::Task<TabCleanupCloseResult> close(std::vector<BrowserTabSnapshot> tabs);

private:
    const Workspace& workspace_;
    ScriptRunner& scripts_;
};

} // namespace brinmoor
