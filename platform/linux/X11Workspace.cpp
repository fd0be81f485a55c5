#include "platform/linux/X11Workspace.h"

#include "platform/linux/ApplicationIdentity.h"
#include "platform/linux/X11Windows.h"

#include <algorithm>

namespace brinmoor {
namespace {

/// A window that says no process belongs to an application of its own name.
bool isSameApplication(const RunningApplication& one, const RunningApplication& other) {
    if (one.processIdentifier != 0 || other.processIdentifier != 0)
        return one.processIdentifier == other.processIdentifier;
    return one.bundleIdentifier == other.bundleIdentifier;
}

bool holds(const std::vector<RunningApplication>& applications, const RunningApplication& wanted) {
    return std::any_of(applications.begin(), applications.end(), [&](const auto& application) {
        return isSameApplication(application, wanted);
    });
}

} // namespace

std::unique_ptr<X11Workspace> X11Workspace::open(DesktopEntries entries) {
    auto connection = XcbConnection::open();
    if (!connection)
        return nullptr;
    return std::unique_ptr<X11Workspace>(
        new X11Workspace(std::move(connection), std::move(entries)));
}

X11Workspace::X11Workspace(std::unique_ptr<XcbConnection> connection, DesktopEntries entries)
    : connection_(std::move(connection)), entries_(std::move(entries)),
      events_(connection_->get(), [this](const auto& event) { handle(event); }) {
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(connection_->get(), connection_->root(), XCB_CW_EVENT_MASK,
                                 &events);
    xcb_flush(connection_->get());
    front_ = frontmostApplication();
    emptiness_.setSingleShot(true);
    QObject::connect(&emptiness_, &QTimer::timeout, &emptiness_,
                     [this] { tellIfChanged(frontmostApplication()); });
}

std::optional<RunningApplication> X11Workspace::frontmostApplication() const {
    const auto window = activeWindow(*connection_);
    if (!window)
        return std::nullopt;
    const auto owner = ownersOf(*connection_, {*window}).front();
    if (!owner.process && owner.windowClass.empty())
        return std::nullopt;
    return ApplicationIdentity(entries_).ownerOf(owner);
}

std::vector<RunningApplication> X11Workspace::runningApplications() const {
    ApplicationIdentity identity(entries_);
    std::vector<RunningApplication> applications;
    const auto add = [&](RunningApplication application) {
        if (!holds(applications, application))
            applications.push_back(std::move(application));
    };
    for (const auto& owner : ownersOf(*connection_, clientWindows(*connection_)))
        add(identity.ownerOf(owner));
    for (const auto& process : identity.runningBrowsers())
        add(identity.browser(process));
    return applications;
}

std::optional<std::vector<VisibleWindow>> X11Workspace::visibleWindows() const {
    auto windows = stackedWindows(*connection_);
    if (!windows)
        return std::nullopt;
    std::reverse(windows->begin(), windows->end());
    const auto places = placesOf(*connection_, *windows);
    const auto owners = ownersOf(*connection_, *windows);
    ApplicationIdentity identity(entries_);
    std::vector<VisibleWindow> visible;
    for (std::size_t i = 0; i < windows->size(); ++i) {
        if (!places[i].onScreen)
            continue;
        const auto process = identity.ownerOf(owners[i]).processIdentifier;
        visible.push_back({.layer = places[i].layer,
                           .ownerProcess = process == 0 ? std::nullopt : std::optional(process)});
    }
    return visible;
}

Subscription
X11Workspace::onActivation(std::function<void(const std::optional<RunningApplication>&)> told) {
    return observers_.add(std::move(told));
}

void X11Workspace::handle(const xcb_generic_event_t& event) {
    if ((event.response_type & 0x7f) != XCB_PROPERTY_NOTIFY)
        return;
    const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    // Some window managers leave the last window named as the active one after it was closed.
    const auto& atoms = connection_->atoms();
    if (change.atom == atoms.netActiveWindow || change.atom == atoms.netClientList)
        focusMoved();
}

/// On its way from one window to another the focus is nowhere for a moment, which is no news.
void X11Workspace::focusMoved() {
    constexpr auto passing = std::chrono::milliseconds(60);
    auto front = frontmostApplication();
    if (!front) {
        emptiness_.start(passing);
        return;
    }
    emptiness_.stop();
    tellIfChanged(std::move(front));
}

void X11Workspace::tellIfChanged(std::optional<RunningApplication> front) {
    const bool same = front && front_ ? isSameApplication(*front, *front_) : !front && !front_;
    front_ = front;
    if (!same)
        observers_.tell(front);
}

bool X11Workspace::activate(const RunningApplication& application) {
    const auto window = frontWindowOf(application);
    if (!window)
        return false;
    // Not every window manager follows a window to its desktop by itself.
    if (const auto desktop = placesOf(*connection_, {*window}).front().otherDesktop)
        tellWindowManager(connection_->get(), connection_->root(), connection_->root(),
                          connection_->atoms().netCurrentDesktop,
                          {*desktop, XCB_CURRENT_TIME, 0, 0, 0});
    // As a pager does, since the user asked for it and the focus may be with another program.
    constexpr std::uint32_t sourcePager = 2;
    tellWindowManager(connection_->get(), connection_->root(), *window,
                      connection_->atoms().netActiveWindow,
                      {sourcePager, XCB_CURRENT_TIME, 0, 0, 0});
    return true;
}

/// Ordinary windows before panels, and the topmost of them.
std::optional<xcb_window_t>
X11Workspace::frontWindowOf(const RunningApplication& application) const {
    auto windows = stackedWindows(*connection_).value_or(std::vector<xcb_window_t>());
    std::reverse(windows.begin(), windows.end());
    const auto places = placesOf(*connection_, windows);
    const auto owners = ownersOf(*connection_, windows);
    ApplicationIdentity identity(entries_);
    std::optional<xcb_window_t> panel;
    for (std::size_t i = 0; i < windows.size(); ++i) {
        if (!isSameApplication(identity.ownerOf(owners[i]), application))
            continue;
        if (places[i].layer == 0)
            return windows[i];
        if (!panel)
            panel = windows[i];
    }
    return panel;
}

std::string X11Workspace::ownBundleIdentifier() const {
    return ownApplicationIdentifier;
}

} // namespace brinmoor
