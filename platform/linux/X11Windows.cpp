#include "platform/linux/X11Windows.h"

#include <algorithm>

namespace brinmoor {
namespace {

constexpr std::uint32_t everyDesktop = 0xFFFFFFFF;

// Any number but 0 keeps a window from being taken for an ordinary one.
constexpr int layerOrdinary = 0;
constexpr int layerPanel = 3;
constexpr int layerDock = 20;
constexpr int layerDesktop = -20;

XcbProperty ask(const XcbConnection& connection, xcb_window_t window, xcb_atom_t property) {
    return {connection.get(), window, property};
}

struct OwnerQuestions {
    XcbProperty process;
    XcbProperty names;
};

struct PlaceQuestions {
    XcbProperty types;
    XcbProperty states;
    XcbProperty desktop;
};

WindowOwner ownerFrom(xcb_window_t window, OwnerQuestions& questions) {
    WindowOwner owner;
    owner.window = window;
    if (const auto process = questions.process.numbers(); !process.empty() && process[0] != 0)
        owner.process = static_cast<std::int32_t>(process[0]);
    const auto names = questions.names.bytes();
    const auto end = names.find('\0');
    owner.instance = names.substr(0, end);
    if (end != std::string::npos)
        owner.windowClass = names.substr(end + 1, names.find('\0', end + 1) - end - 1);
    return owner;
}

/// A window names the types that it could be, the one it likes best first.
int layerOf(const std::vector<std::uint32_t>& types, const XcbAtoms& atoms) {
    for (const auto type : types) {
        if (type == atoms.netWmWindowTypeNormal || type == atoms.netWmWindowTypeDialog)
            return layerOrdinary;
        if (type == atoms.netWmWindowTypeDock)
            return layerDock;
        if (type == atoms.netWmWindowTypeDesktop)
            return layerDesktop;
    }
    return types.empty() ? layerOrdinary : layerPanel;
}

WindowPlace placeFrom(PlaceQuestions& questions, const std::optional<std::uint32_t>& present,
                      const XcbAtoms& atoms) {
    WindowPlace place;
    place.layer = layerOf(questions.types.numbers(), atoms);
    const auto states = questions.states.numbers();
    const auto desktop = questions.desktop.numbers();
    const bool hidden =
        std::find(states.begin(), states.end(), atoms.netWmStateHidden) != states.end();
    if (!desktop.empty() && present && desktop[0] != everyDesktop && desktop[0] != *present)
        place.otherDesktop = desktop[0];
    place.onScreen = !hidden && !place.otherDesktop;
    return place;
}

} // namespace

std::optional<xcb_window_t> activeWindow(const XcbConnection& connection) {
    const auto active =
        ask(connection, connection.root(), connection.atoms().netActiveWindow).numbers();
    if (active.empty() || active[0] == XCB_WINDOW_NONE)
        return std::nullopt;
    return active[0];
}

std::vector<xcb_window_t> clientWindows(const XcbConnection& connection) {
    return ask(connection, connection.root(), connection.atoms().netClientList).numbers();
}

std::optional<std::vector<xcb_window_t>> stackedWindows(const XcbConnection& connection) {
    auto property = ask(connection, connection.root(), connection.atoms().netClientListStacking);
    if (auto windows = property.numbersIfSet())
        return windows;
    return std::nullopt;
}

std::vector<WindowOwner> ownersOf(const XcbConnection& connection,
                                  const std::vector<xcb_window_t>& windows) {
    std::vector<OwnerQuestions> questions;
    questions.reserve(windows.size());
    for (const auto window : windows)
        questions.push_back({ask(connection, window, connection.atoms().netWmPid),
                             ask(connection, window, XCB_ATOM_WM_CLASS)});
    std::vector<WindowOwner> owners;
    owners.reserve(windows.size());
    for (std::size_t i = 0; i < windows.size(); ++i)
        owners.push_back(ownerFrom(windows[i], questions[i]));
    return owners;
}

std::vector<WindowPlace> placesOf(const XcbConnection& connection,
                                  const std::vector<xcb_window_t>& windows) {
    const auto& atoms = connection.atoms();
    auto present = ask(connection, connection.root(), atoms.netCurrentDesktop);
    std::vector<PlaceQuestions> questions;
    questions.reserve(windows.size());
    for (const auto window : windows)
        questions.push_back({ask(connection, window, atoms.netWmWindowType),
                             ask(connection, window, atoms.netWmState),
                             ask(connection, window, atoms.netWmDesktop)});
    const auto desktops = present.numbers();
    const auto desktop = desktops.empty() ? std::nullopt : std::optional(desktops[0]);
    std::vector<WindowPlace> places;
    places.reserve(windows.size());
    for (auto& question : questions)
        places.push_back(placeFrom(question, desktop, atoms));
    return places;
}

} // namespace brinmoor
