#pragma once

#include "app/Panels.h"
#include "screens/SiteIconSource.h"

#include <QPointer>
#include <QQmlEngine>
#include <QQuickView>

#include <vector>

namespace brinmoor {

class Appearance;
class QuickPanel;
class ShellMenu;
class ShellMenus;

/// The windows of the application, drawn by QML. All of them share one engine and one theme.
/// The panels it makes go before it does.
class QuickPanels final : public Panels {
public:
    /// Needs a QGuiApplication.
    QuickPanels();
    ~QuickPanels() override;

    [[nodiscard]] std::unique_ptr<Panel> libraryWindow(AppModel& model) override;
    [[nodiscard]] std::unique_ptr<Panel> captureEditor(AppModel& model, const CaptureDraft& draft,
                                                       const std::string& title) override;
    [[nodiscard]] std::unique_ptr<Panel> tabSelection(AppModel& model, Uuid draftID,
                                                      const std::string& title) override;
    [[nodiscard]] std::unique_ptr<Panel> tabSearch(AppModel& model) override;
    [[nodiscard]] std::unique_ptr<Panel> notice(const CaptureNotice& notice,
                                                NoticeActions actions) override;

    [[nodiscard]] std::vector<PanelScreen> screens() const override;
    [[nodiscard]] PanelPoint pointer() const override;
    [[nodiscard]] bool applicationIsActive() const override;
    [[nodiscard]] bool canPerform(WindowCommand command) const override;
    void perform(WindowCommand command) override;
    void setMainMenu(std::vector<Menu> menus) override;
    void setStatusItem(Menu menu) override;
    void announce(Panel& panel, const std::string& text) override;
    void setAppearance(AppAppearance appearance) override;

    /// Whether the desktop has a place for the status item. There is none at first.
    void setStatusItemShown(bool shown);

    /// Leaves movement out of every window, or takes it up again.
    void setReducedMotion(bool reduced);

    /// Shows the icons of sites from here on.
    void setSiteIcons(SiteIconSource source);

    [[nodiscard]] QQmlEngine& engine() noexcept { return engine_; }

private:
    struct Window {
        QPointer<QQuickView> view;
        bool activates;
    };

    std::unique_ptr<Panel> kept(std::unique_ptr<QuickPanel> panel);
    void followFocus();
    void showStatusItem();

    QQmlEngine engine_;
    Appearance& appearance_;
    ShellMenus* menus_;               ///< the engine's child
    ShellMenu* statusMenu_ = nullptr; ///< the engine's child
    bool statusItemShown_ = false;
    std::unique_ptr<QObject> statusItem_;
    std::vector<Window> windows_;
    bool active_ = false;
    QObject focusContext_; ///< last: what it hears needs all the rest
};

} // namespace brinmoor
