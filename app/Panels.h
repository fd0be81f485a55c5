#pragma once

#include "app/CaptureDraft.h"
#include "app/Menus.h"
#include "app/SavedSettings.h"
#include "core/capture/CaptureNotice.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace brinmoor {

class AppModel;

/// A point and a rectangle on the desktop, in device-independent pixels, y downwards.
struct PanelPoint {
    int x = 0;
    int y = 0;
    friend bool operator==(const PanelPoint&, const PanelPoint&) = default;
};
struct PanelSize {
    int width = 0;
    int height = 0;
    friend bool operator==(const PanelSize&, const PanelSize&) = default;
};
struct PanelRect {
    PanelPoint origin;
    PanelSize size;
    [[nodiscard]] bool contains(PanelPoint point) const noexcept;
    friend bool operator==(const PanelRect&, const PanelRect&) = default;
};

/// One screen: its whole area and what docks and bars leave of it.
struct PanelScreen {
    PanelRect frame;
    PanelRect visibleFrame;
    friend bool operator==(const PanelScreen&, const PanelScreen&) = default;
};

/// One window of the application. Destroying it takes it from the screen.
class Panel {
public:
    virtual ~Panel() = default;

    /// Called when the user closes the window by its own means (title bar, Esc, a Cancel button).
    std::function<void()> willClose;

    /// Shows the window in front of the others with the keyboard in it.
    virtual void makeKeyAndOrderFront() = 0;
    /// Shows the window in front of the others; the keyboard stays where it is.
    virtual void orderFrontRegardless() = 0;
    virtual void orderOut() = 0;
    [[nodiscard]] virtual bool isVisible() const = 0;

    /// The size of the content with its shadow left out.
    [[nodiscard]] virtual PanelSize size() const = 0;
    /// Places the top left corner of the content.
    virtual void setOrigin(PanelPoint origin) = 0;
    /// Centres the content on the screen that has the pointer.
    virtual void center() = 0;
};

/// What a notice's buttons do.
struct NoticeActions {
    std::function<void()> dismiss;
    std::function<void()> openSettings;
    std::function<void(const std::string& url, bool withNote)> saveClipboard;
};

/// What the window with the keyboard does by itself.
enum class WindowCommand { hide, quit, closeWindow, undoText, cut, copy, paste, selectAll };

/// Makes the windows. The shell decides which of them exist, when and where; what they show is
/// the screens'. Main thread.
class Panels {
public:
    virtual ~Panels() = default;

    /// An ordinary window, 750 × 680, at least 640 × 520, its frame remembered.
    [[nodiscard]] virtual std::unique_ptr<Panel> libraryWindow(AppModel& model) = 0;
    /// Floats on every desktop and takes the keyboard without raising the application.
    [[nodiscard]] virtual std::unique_ptr<Panel>
    captureEditor(AppModel& model, const CaptureDraft& draft, const std::string& title) = 0;
    /// Floats on every desktop and takes activation.
    [[nodiscard]] virtual std::unique_ptr<Panel> tabSelection(AppModel& model, Uuid draftID,
                                                              const std::string& title) = 0;
    /// The search of open tabs, 620 × 496. Floats on every desktop, takes the keyboard without
    /// raising the application, and orders itself out as soon as it loses the keyboard.
    [[nodiscard]] virtual std::unique_ptr<Panel> tabSearch(AppModel& model) = 0;
    /// Floats above the other panels and never takes the keyboard.
    [[nodiscard]] virtual std::unique_ptr<Panel> notice(const CaptureNotice& notice,
                                                        NoticeActions actions) = 0;

    /// The screens, the main one first; empty when there is none.
    [[nodiscard]] virtual std::vector<PanelScreen> screens() const = 0;
    [[nodiscard]] virtual PanelPoint pointer() const = 0;
    /// Whether the user is with this application: one of its windows has the keyboard, but none of
    /// those that float above other applications without raising this one.
    [[nodiscard]] virtual bool applicationIsActive() const = 0;
    /// Called when the user comes back to this application.
    std::function<void()> didBecomeActive;

    /// Whether what has the keyboard can do it now.
    [[nodiscard]] virtual bool canPerform(WindowCommand command) const = 0;
    virtual void perform(WindowCommand command) = 0;

    /// The library window's menus, with their keys. Titles are as the user reads them.
    virtual void setMainMenu(std::vector<Menu> menus) = 0;
    /// The menu of the icon among the desktop's status icons, where the desktop has a place for it.
    virtual void setStatusItem(Menu menu) = 0;

    /// Says `text` to assistive technology at once, on behalf of `panel`.
    virtual void announce(Panel& panel, const std::string& text) = 0;
    /// Switches every open window to the dark or the light theme.
    virtual void setAppearance(AppAppearance appearance) = 0;
};

} // namespace brinmoor
