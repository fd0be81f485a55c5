#include "tests/support/KeyringSession.h"

#include "tests/support/Eventually.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string_view>

namespace brinmoor::testing {
namespace {

constexpr std::string_view password = "open sesame";

std::string firstLine(int input) {
    std::string line;
    for (char next = 0; ::read(input, &next, 1) == 1 && next != '\n';)
        line += next;
    return line;
}

void writePassword(ChildProcess& program) {
    if (::write(program.input(), password.data(), password.size()) !=
        static_cast<ssize_t>(password.size()))
        throw std::runtime_error("the keyring took no password");
    program.closeInput();
}

} // namespace

KeyringSession::KeyringSession() {
    const std::string runtime = folder_.path("runtime");
    std::filesystem::create_directory(runtime);
    std::filesystem::permissions(runtime, std::filesystem::perms::owner_all);
    environment_ = {{"HOME", folder_.path()},
                    {"XDG_DATA_HOME", folder_.path("data")},
                    {"XDG_CONFIG_HOME", folder_.path("config")},
                    {"XDG_CACHE_HOME", folder_.path("cache")},
                    {"XDG_RUNTIME_DIR", runtime},
                    {"DISPLAY", ""},
                    {"WAYLAND_DISPLAY", ""}};
    startBus();
    startKeyring();
}

void KeyringSession::startBus() {
    bus_.emplace(
        ChildOptions{{"/usr/bin/dbus-daemon", "--session", "--nofork", "--print-address=1"},
                     environment_,
                     true});
    environment_["DBUS_SESSION_BUS_ADDRESS"] = firstLine(bus_->output());
}

void KeyringSession::startKeyring() {
    keyring_.emplace(ChildOptions{
        {"/usr/bin/gnome-keyring-daemon", "--foreground", "--unlock", "--components=secrets"},
        environment_,
        true});
    writePassword(*keyring_);
    if (!eventually([this] { return hasKeyring(); }))
        throw std::runtime_error("no keyring");
}

bool KeyringSession::hasKeyring() const {
    const auto asked =
        runProgram({"/usr/bin/dbus-send", "--session", "--print-reply",
                    "--dest=org.freedesktop.DBus", "/org/freedesktop/DBus",
                    "org.freedesktop.DBus.NameHasOwner", "string:org.freedesktop.secrets"},
                   environment_);
    return asked.output.find("boolean true") != std::string::npos;
}

void KeyringSession::join() const {
    for (const auto& [name, value] : environment_)
        ::setenv(name.c_str(), value.c_str(), 1);
}

void KeyringSession::lock() const {
    const auto asked = runProgram({"/usr/bin/dbus-send", "--session", "--print-reply",
                                   "--dest=org.freedesktop.secrets", "/org/freedesktop/secrets",
                                   "org.freedesktop.Secret.Service.Lock",
                                   "array:objpath:/org/freedesktop/secrets/collection/login"},
                                  environment_);
    if (asked.status != 0)
        throw std::runtime_error("the keyring stayed open");
}

void KeyringSession::restart() {
    keyring_.reset();
    startKeyring();
}

} // namespace brinmoor::testing
