#pragma once

#include "app/AppModel.h"
#include "app/Panels.h"
#include "platform/Subscription.h"
#include "platform/Workspace.h"

#include <QObject>
#include <functional>

#include <memory>
#include <optional>
#include <vector>

namespace brinmoor {

/// The shell: which window exists when, which draft it shows, where a notice goes and for how
/// long. No rule about links lives here. Main thread.
class AppDelegate final {
public:
    /// All of it outlives the shell.
    AppDelegate(const AppParts& parts, Panels& panels);
    ~AppDelegate();
    AppDelegate(const AppDelegate&) = delete;
    AppDelegate& operator=(const AppDelegate&) = delete;

    /// Sets the appearance, makes the model, installs its callbacks, makes the library window and
    /// shows it, in this order; then it takes the return URLs that waited. Called once.
    void launch();

    /// The model; nullptr before launch().
    [[nodiscard]] AppModel* model() const noexcept { return model_.get(); }

    // What the menus do.
    void openLibrary();
    void openSettings();
    /// The search of open tabs, empty and read afresh. It keeps its place between openings.
    void openTabSearch();
    void capture(CaptureAction action);
    void addLink();
    void focusSearch();
    void importLibrary();
    /// A text's own undo first, then the library's.
    void performUndo();
    [[nodiscard]] bool canUndo() const;
    /// Shows the account and brings it in step with the stored login.
    void openAccount();
    /// Takes return URLs of a sign-in; before launch() they wait.
    void openURLs(const std::vector<std::string>& urls);
    /// The user came back to the application.
    void applicationDidBecomeActive();

    [[nodiscard]] Panel* libraryWindow() const noexcept { return libraryWindow_.get(); }
    [[nodiscard]] Panel* captureEditor() const noexcept { return captureEditor_.get(); }
    [[nodiscard]] Panel* tabSelectionPanel() const noexcept { return tabSelectionPanel_.get(); }
    [[nodiscard]] Panel* tabSearchPanel() const noexcept { return tabSearchPanel_.get(); }
    [[nodiscard]] Panel* toastPanel() const noexcept { return toastPanel_.get(); }

private:
    /// The theme is switched in every open window, whichever copy of the program chose it.
    void followAppearance();
    void installCallbacks();
    void setupMenus();
    void setupStatusItem();
    /// Runs `action` in a turn of its own: a menu is over by then.
    void afterThis(std::function<void()> action);
    void openCaptureEditor(const CaptureDraft& draft);
    void closeCaptureEditor();
    void openTabSelection(const TabSelectionDraft& draft);
    void closeTabSelection();
    void dismissClipboardNotice();
    void presentToast(const CaptureNotice& notice);
    [[nodiscard]] std::optional<PanelPoint> toastOrigin(PanelSize size) const;
    [[nodiscard]] NoticeActions noticeActions();
    void rememberFrontApplication();
    /// Takes a panel from the screen now and lets it go once the present event is over: what
    /// closes a panel is often one of its own buttons.
    void retire(std::unique_ptr<Panel>& panel);

    AppParts parts_;
    Panels& panels_;
    std::unique_ptr<AppModel> model_;
    std::vector<std::string> pendingURLs_;
    std::unique_ptr<Panel> libraryWindow_;
    std::unique_ptr<Panel> captureEditor_;
    std::optional<Uuid> editorDraftID_;
    std::unique_ptr<Panel> tabSelectionPanel_;
    std::optional<Uuid> tabSelectionDraftID_;
    std::optional<RunningApplication> returnToApp_;
    std::unique_ptr<Panel> tabSearchPanel_;
    std::unique_ptr<Panel> toastPanel_;
    Subscription toastDismiss_;
    Subscription appearance_;
    std::vector<std::unique_ptr<Panel>> retired_;
    QObject nextTurn_;
};

} // namespace brinmoor
