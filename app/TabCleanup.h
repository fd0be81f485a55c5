#pragma once

#include "app/SavedSettings.h"
#include "core/capture/CaptureNotice.h"
#include "core/library/Uuid.h"
#include "core/tabs/BrowserTabSnapshot.h"

#include <QCoroTask>
#include <QObject>

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace brinmoor {

class BrowserTabCleanupService;
class Clock;
class Preferences;
class ScriptRunner;
class Workspace;
struct TabCleanupReadResult;

/// Tabs that wait to be reviewed before they are closed.
struct TabCleanupDraft {
    Uuid id;
    std::vector<BrowserTabSnapshot> tabs; ///< in the planner's order
    std::set<std::string> selected;       ///< the `id` of each tab to close; at first all of them

    friend bool operator==(const TabCleanupDraft&, const TabCleanupDraft&) = default;
};

/// The application model's part that closes duplicate, empty and unwanted tabs: the two commands,
/// the review, the settings and the words. What is closed was decided by a reading that may be old
/// by then: each tab is compared once more when it is closed. Main thread.
class TabCleanup final : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool isCleaningTabs READ isCleaningTabs NOTIFY isCleaningTabsChanged)

public:
    /// All of it outlives the object.
    TabCleanup(const Workspace& workspace, ScriptRunner& scripts, Preferences& preferences,
               Clock& clock);
    ~TabCleanup() override;

    /// Shows a passing notice; installed by the model.
    std::function<void(const CaptureNotice&)> notify;
    /// Shows the tabs that would be closed; installed by the shell after start.
    std::function<void(const TabCleanupDraft&)> showCleanupReview;

    /// Closes duplicates and empty tabs, without asking and whether or not the cleanup is on.
    void closeDuplicateTabs();
    /// Closes the tabs of the chosen websites, after a review unless the setting says otherwise.
    void runTabCleanup();
    /// A reading or a close is under way; no other command starts meanwhile.
    [[nodiscard]] bool isCleaningTabs() const noexcept { return running_ > 0; }

    [[nodiscard]] const std::optional<TabCleanupDraft>& cleanupReview() const noexcept {
        return cleanupReview_;
    }
    void updateCleanupSelection(std::set<std::string> selected);
    /// Closes the selected tabs of the review; nothing when none is selected.
    void confirmCleanupReview();
    /// Forgets the review: its panel was cancelled.
    void discardCleanupReview();
    /// Every tab that the last website cleanup read.
    [[nodiscard]] const std::vector<BrowserTabSnapshot>& cleanupOpenTabs() const noexcept {
        return cleanupOpenTabs_;
    }

    void notifyCleanupResult(std::size_t requested, std::size_t closed,
                             const std::vector<std::string>& failures, std::string_view title);

    // Preferences; each setter writes its key.
    [[nodiscard]] bool tabCleanupEnabled() const noexcept { return tabCleanupEnabled_; }
    void setTabCleanupEnabled(bool on);
    [[nodiscard]] TabCleanupApproval tabCleanupApproval() const noexcept {
        return tabCleanupApproval_;
    }
    void setTabCleanupApproval(TabCleanupApproval approval);
    /// Read at start, never written.
    [[nodiscard]] const std::vector<std::string>& tabCleanupDomains() const noexcept {
        return tabCleanupDomains_;
    }

Q_SIGNALS:
    void isCleaningTabsChanged();
    void cleanupReviewChanged();
    void cleanupOpenTabsChanged();
    void preferencesChanged();

private:
    enum class Tone { plain, failure };
    enum class Step { begins, ends };

    /// A review may be confirmed while another command reads, so the runs are counted.
    void mark(Step step);
    QCoro::Task<> cleanUpDuplicates();
    QCoro::Task<> cleanUpWebsites();
    QCoro::Task<> close(std::vector<BrowserTabSnapshot> tabs, std::string_view title);
    void review(std::vector<BrowserTabSnapshot> candidates);
    void setReview(std::optional<TabCleanupDraft> review);
    void sayNothingToClose(const TabCleanupReadResult& reading, std::string_view title,
                           std::string_view message);
    void say(std::string_view title, std::string message, Tone tone);

    Preferences& preferences_;
    Clock& clock_;
    std::unique_ptr<BrowserTabCleanupService> tabCleanupService_;
    int running_ = 0;
    std::optional<TabCleanupDraft> cleanupReview_;
    std::vector<BrowserTabSnapshot> cleanupOpenTabs_;
    bool tabCleanupEnabled_ = false;
    TabCleanupApproval tabCleanupApproval_ = TabCleanupApproval::ask;
    std::vector<std::string> tabCleanupDomains_;
};

} // namespace brinmoor
