#pragma once

#include "browser/ScriptRunner.h"
#include "core/tabs/OpenBrowserTab.h"

#include <QCoroTask>
#include <QObject>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace brinmoor {

struct Browser;
class Workspace;

/// The state behind the panel that searches the open tabs: reads them, filters them, brings one to
/// the front or saves it. Nothing watches the browsers: the list is what the last reading found,
/// and a row that has become stale is seen when it is activated. Main thread.
class TabSearchModel final : public QObject {
    Q_OBJECT

public:
    /// Both outlive the model.
    TabSearchModel(const Workspace& workspace, ScriptRunner& scripts);

    /// Closes the panel; installed by the shell.
    std::function<void()> close;
    /// Saves one tab, true when it is in the library; installed by the application model.
    std::function<QCoro::Task<bool>(OpenBrowserTab)> save;

    [[nodiscard]] const std::string& query() const noexcept { return query_; }
    /// The best match becomes the selected row.
    void setQuery(std::string query);
    /// Everything read so far.
    [[nodiscard]] const std::vector<OpenBrowserTab>& tabs() const noexcept { return tabs_; }
    /// The tabs that the query means, the best first. Computed at each call.
    [[nodiscard]] std::vector<OpenBrowserTab> results() const;
    [[nodiscard]] bool loading() const noexcept { return loading_; }
    [[nodiscard]] bool switching() const noexcept { return switching_; }
    [[nodiscard]] bool saving() const noexcept { return saving_; }
    /// The one line of feedback.
    [[nodiscard]] const std::optional<std::string>& message() const noexcept { return message_; }
    /// Whether that line tells of something that could not be done.
    [[nodiscard]] bool messageIsFailure() const noexcept { return messageIsFailure_; }
    /// The row selected in `results`; 0 when there are none.
    [[nodiscard]] int selectedIndex() const noexcept { return selectedIndex_; }

    /// Starts a new reading; one that still runs changes nothing any more. The old list stays until
    /// the first browser has answered.
    void refresh();
    /// Moves the selection, within the results.
    void move(int delta);
    /// Brings the tab to the front if it is still there; nothing while another is on its way.
    void activate(const OpenBrowserTab& tab);
    /// Saves the tab through `save`; nothing while another is being saved.
    void saveTab(const OpenBrowserTab& tab);

Q_SIGNALS:
    void queryChanged();
    void tabsChanged();
    void loadingChanged();
    void switchingChanged();
    void savingChanged();
    void messageChanged();
    void selectedIndexChanged();

private:
    using Generation = std::uint64_t;
    enum class Tone { plain, failure };

    QCoro::Task<> read(Generation reading);
    void endReading(const std::vector<Browser>& browsers, const std::vector<std::string>& failed);
    QCoro::Task<> switchBy(std::string script);
    QCoro::Task<> saveBy(OpenBrowserTab tab);

    void setTabs(std::vector<OpenBrowserTab> tabs);
    void setLoading(bool loading);
    void setSwitching(bool switching);
    void setSaving(bool saving);
    void setMessage(std::optional<std::string> message, Tone tone = Tone::failure);
    void setSelectedIndex(int index);

    const Workspace& workspace_;
    ScriptRunner& scripts_;
    std::string query_;
    std::vector<OpenBrowserTab> tabs_;
    bool loading_ = false;
    bool switching_ = false;
    bool saving_ = false;
    std::optional<std::string> message_;
    bool messageIsFailure_ = false;
    int selectedIndex_ = 0;
    Generation generation_ = 0; ///< the present reading
};

} // namespace brinmoor
