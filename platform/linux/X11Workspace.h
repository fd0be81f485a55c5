#pragma once

#include "platform/Observers.h"
#include "platform/Workspace.h"
#include "platform/linux/DesktopEntries.h"
#include "platform/linux/XcbConnection.h"
#include "platform/linux/XcbEvents.h"

#include <QTimer>

#include <memory>

namespace brinmoor {

/// What the X server and its window manager know of the desktop, and /proc of the processes.
class X11Workspace final : public Workspace {
public:
    /// Nothing when no X server answers.
    [[nodiscard]] static std::unique_ptr<X11Workspace> open(DesktopEntries entries);

    [[nodiscard]] std::optional<RunningApplication> frontmostApplication() const override;
    [[nodiscard]] std::vector<RunningApplication> runningApplications() const override;
    [[nodiscard]] std::optional<std::vector<VisibleWindow>> visibleWindows() const override;
    /// Told when the focus goes to another application's window or to none; another window of the
    /// same application is no change.
    [[nodiscard]] Subscription
    onActivation(std::function<void(const std::optional<RunningApplication>&)> told) override;
    /// Minimised windows and those on other virtual desktops count too.
    bool activate(const RunningApplication& application) override;
    [[nodiscard]] std::string ownBundleIdentifier() const override;

private:
    X11Workspace(std::unique_ptr<XcbConnection> connection, DesktopEntries entries);
    void handle(const xcb_generic_event_t& event);
    void focusMoved();
    void tellIfChanged(std::optional<RunningApplication> front);
    [[nodiscard]] std::optional<xcb_window_t>
    frontWindowOf(const RunningApplication& application) const;

    std::unique_ptr<XcbConnection> connection_;
    mutable DesktopEntries entries_;
    Observers<const std::optional<RunningApplication>&> observers_;
    std::optional<RunningApplication> front_; ///< as it was last told
    QTimer emptiness_; ///< runs while no window has the focus and nobody has been told yet
    XcbEvents events_;
};

} // namespace brinmoor
