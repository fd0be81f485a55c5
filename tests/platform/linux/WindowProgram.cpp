// A program that shows a window: copied under a browser's name it stands for that browser.
//
//   window_program [instance=I] [class=C] [pid=N] [type=ATOM] [windows=N]
//
// Prints "ready" when its windows are shown, and ends when its standard input does. Without
// `class` there is no window at all.

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

using Options = std::map<std::string, std::string>;

Options readOptions(int count, char** arguments) {
    Options options;
    for (int i = 1; i < count; ++i) {
        const std::string argument = arguments[i];
        const auto sign = argument.find('=');
        options[argument.substr(0, sign)] = argument.substr(sign + 1);
    }
    return options;
}

xcb_atom_t atom(xcb_connection_t* connection, const std::string& name) {
    auto* reply = xcb_intern_atom_reply(
        connection,
        xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data()),
        nullptr);
    const auto found = reply->atom;
    std::free(reply);
    return found;
}

void showWindow(xcb_connection_t* connection, const Options& options) {
    const auto* screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    const auto window = xcb_generate_id(connection);
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, screen->root, 10, 10, 120, 90, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, 0, nullptr);
    std::string names = options.count("instance") ? options.at("instance") : options.at("class");
    names += '\0' + options.at("class") + '\0';
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_CLASS,
                        XCB_ATOM_STRING, 8, static_cast<std::uint32_t>(names.size()), names.data());
    const auto process = options.count("pid")
                             ? static_cast<std::uint32_t>(std::stoul(options.at("pid")))
                             : static_cast<std::uint32_t>(::getpid());
    if (process != 0)
        xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window,
                            atom(connection, "_NET_WM_PID"), XCB_ATOM_CARDINAL, 32, 1, &process);
    if (options.count("type")) {
        const auto type = atom(connection, options.at("type"));
        xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window,
                            atom(connection, "_NET_WM_WINDOW_TYPE"), XCB_ATOM_ATOM, 32, 1, &type);
    }
    // Input wanted, so that the window manager gives the window the focus.
    const std::vector<std::uint32_t> hints{1, 1, 0, 0, 0, 0, 0, 0, 0};
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_HINTS,
                        XCB_ATOM_WM_HINTS, 32, 9, hints.data());
    xcb_map_window(connection, window);
    xcb_flush(connection);
}

} // namespace

int main(int count, char** arguments) {
    const auto options = readOptions(count, arguments);
    auto* connection = xcb_connect(nullptr, nullptr);
    const int windows = options.count("windows") ? std::stoi(options.at("windows")) : 1;
    for (int i = 0; options.count("class") && i < windows; ++i)
        showWindow(connection, options);
    std::puts("ready");
    std::fflush(stdout);
    char byte = 0;
    while (::read(STDIN_FILENO, &byte, 1) > 0) {
    }
    xcb_disconnect(connection);
    return 0;
}
