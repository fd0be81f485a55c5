#pragma once

#include "platform/Subscription.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace brinmoor {

/// One application that runs for the user.
struct RunningApplication {
    std::optional<std::string> bundleIdentifier; ///< the catalogue's identifier, when known
    std::optional<std::string> localizedName;
    std::int32_t processIdentifier = 0;
    bool isTerminated = false;

    friend bool operator==(const RunningApplication&, const RunningApplication&) = default;
};

/// One window on screen.
struct VisibleWindow {
    std::optional<int> layer; ///< 0 for an ordinary window, another number for panels and docks
    std::optional<std::int32_t> ownerProcess;

    friend bool operator==(const VisibleWindow&, const VisibleWindow&) = default;
};

/// What runs on the desktop and what is in front of it. Main thread; no call blocks on another
/// program for longer than a window system's round trip.
class Workspace {
public:
    virtual ~Workspace() = default;

    /// The application whose window has the focus; absent when there is none or none is known.
    [[nodiscard]] virtual std::optional<RunningApplication> frontmostApplication() const = 0;

    /// Every application that owns a window, and every browser process that owns none.
    [[nodiscard]] virtual std::vector<RunningApplication> runningApplications() const = 0;

    /// The windows on screen, front to back; absent when they can't be asked for.
    [[nodiscard]] virtual std::optional<std::vector<VisibleWindow>> visibleWindows() const = 0;

    /// `told` is called on the main thread whenever another application comes to the front, with
    /// that application or nothing, until the subscription goes.
    [[nodiscard]] virtual Subscription
    onActivation(std::function<void(const std::optional<RunningApplication>&)> told) = 0;

    /// Brings an application's front window forward and gives it the focus; false when it has
    /// no window.
    virtual bool activate(const RunningApplication& application) = 0;

    /// The identifier under which this program itself appears.
    [[nodiscard]] virtual std::string ownBundleIdentifier() const = 0;
};

} // namespace brinmoor
