#include "tests/support/ChromiumSession.h"

#include "bridge/ExtensionIdentity.h"
#include "bridge/frames/HostSocket.h"
#include "tests/support/Eventually.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <stdexcept>

namespace brinmoor::testing {
namespace {

constexpr std::string_view driverHost = "driver.brinmoor.test";
constexpr auto callLimit = std::chrono::seconds(20);

std::string jsonText(std::string_view text) {
    std::string json = "\"";
    for (const char letter : text) {
        if (letter == '"' || letter == '\\')
            json += '\\';
        json += letter;
    }
    return json + "\"";
}

std::string runtimeFolder() {
    const char* folder = std::getenv("XDG_RUNTIME_DIR");
    return folder != nullptr ? folder : "";
}

} // namespace

/// Hands calls to the driver extension, which fetches them, and takes their results.
struct ChromiumSession::Driver {
    std::mutex guard;
    std::condition_variable changed;
    std::deque<std::string> calls;
    std::map<std::string, std::string> results;
    int lastCall = 0;
    bool seen = false;
    /// Goes up when a browser ends: whoever still waits for it must not take the next one's calls.
    int generation = 0;

    HttpAnswer next() {
        std::unique_lock lock(guard);
        seen = true;
        changed.notify_all();
        const int mine = generation;
        changed.wait_for(lock, std::chrono::seconds(5),
                         [&] { return mine != generation || !calls.empty(); });
        if (mine != generation || calls.empty())
            return {204, "application/json", ""};
        const std::string call = calls.front();
        calls.pop_front();
        return {200, "application/json", call};
    }

    HttpAnswer take(const std::string& id, const std::string& result) {
        const std::scoped_lock lock(guard);
        results[id] = result;
        changed.notify_all();
        return {204, "application/json", ""};
    }

    std::string call(const std::string& function, const std::string& arguments) {
        std::unique_lock lock(guard);
        const std::string id = std::to_string(++lastCall);
        calls.push_back("{\"id\":" + id + ",\"function\":" + jsonText(function) +
                        ",\"arguments\":" + arguments + "}");
        changed.notify_all();
        if (!changed.wait_for(lock, callLimit, [&] { return results.contains(id); }))
            return "error: no answer";
        return results[id];
    }

    void end() {
        const std::scoped_lock lock(guard);
        ++generation;
        seen = false;
        changed.notify_all();
    }
};

ChromiumSession::ChromiumSession(ChromiumOptions options)
    : options_(std::move(options)), driver_(std::make_shared<Driver>()),
      server_([this](const HttpRequest& request) { return answer(request); }),
      tlsServer_([this](const HttpRequest& request) { return answer(request); }, Transport::tls) {
    if (options_.connected)
        writeManifest();
}

ChromiumSession::~ChromiumSession() {
    driver_->end();
    browser_.reset();
}

HttpAnswer ChromiumSession::answer(const HttpRequest& request) {
    if (!request.host.starts_with(driverHost))
        return options_.pages ? options_.pages(request) : HttpAnswer{404, "text/plain", ""};
    if (request.path == "/next")
        return driver_->next();
    return driver_->take(request.path.substr(request.path.rfind('/') + 1), request.body);
}

void ChromiumSession::writeManifest() const {
    const std::string folder = profile_.path("NativeMessagingHosts");
    const std::string name(bridge::nativeHostName);
    std::filesystem::create_directories(folder);
    std::ofstream(folder + "/" + name + ".json")
        << "{\"name\":" << jsonText(name) << ",\"description\":\"Brinmoor\",\"type\":\"stdio\","
        << "\"path\":" << jsonText(options_.nativeHost) << ",\"allowed_origins\":["
        << jsonText(bridge::extensionOrigin) << "]}";
}

std::vector<std::string>
ChromiumSession::commandLine(const std::vector<std::string>& arguments) const {
    std::vector<std::string> line{
        options_.program,
        "--no-sandbox",
        "--no-first-run",
        "--no-default-browser-check",
        "--noerrdialogs",
        "--disable-sync",
        "--disable-background-networking",
        "--disable-component-update",
        "--disable-quic",
        "--disable-gpu",
        "--disable-features=HttpsUpgrades,HttpsFirstBalancedModeAutoEnable",
        "--password-store=basic",
        "--user-data-dir=" + profile_.path(),
        "--load-extension=" + options_.extensionFolder + "," + BRINMOOR_DRIVER_EXTENSION,
        "--ignore-certificate-errors",
        "--host-resolver-rules=MAP *:443 127.0.0.1:" + std::to_string(tlsServer_.port()) +
            ",MAP * 127.0.0.1:" + std::to_string(server_.port())};
    line.insert(line.end(), arguments.begin(), arguments.end());
    return line;
}

bool ChromiumSession::start(const std::vector<std::string>& addresses,
                            const std::vector<std::string>& moreArguments) {
    auto arguments = moreArguments;
    arguments.insert(arguments.end(), addresses.begin(), addresses.end());
    browser_.emplace(ChildOptions{commandLine(arguments), {}, true});
    if (options_.connected && !waitForSockets(1))
        return false;
    std::unique_lock lock(driver_->guard);
    return driver_->changed.wait_for(lock, callLimit, [&] { return driver_->seen; });
}

void ChromiumSession::stop() {
    if (!browser_)
        return;
    browser_->signal(SIGTERM);
    if (!browser_->waitForExit())
        throw std::runtime_error("the browser doesn't quit");
    browser_.reset();
    openers_.clear();
    driver_->end();
}

void ChromiumSession::open(const std::vector<std::string>& arguments) {
    openers_.emplace_back(ChildOptions{commandLine(arguments), {}, true});
}

std::string ChromiumSession::call(const std::string& function, const std::string& arguments) {
    return driver_->call(function, arguments);
}

int ChromiumSession::loadedTab(const std::string& address) {
    std::string found;
    const bool loaded = eventually([&] {
        found = call("loadedTab", "[" + jsonText(address) + "]");
        return found != "null";
    });
    return loaded ? std::atoi(found.c_str()) : -1;
}

int ChromiumSession::openTab(const std::string& address) {
    (void)call("tabs.create", "[{\"url\":" + jsonText(address) + "}]");
    return loadedTab(address);
}

pid_t ChromiumSession::process() const {
    return browser_ ? browser_->process() : 0;
}

std::vector<std::string> ChromiumSession::sockets() const {
    std::vector<std::string> names;
    const auto folder =
        bridge::openBridgeFolder(runtimeFolder().c_str(), bridge::MissingFolder::leave);
    if (!folder)
        return names;
    for (const auto& host : bridge::hostsIn(folder->number()))
        if (bridge::connectedTo(folder->number(), host))
            names.push_back(bridge::socketName(host));
    return names;
}

bool ChromiumSession::waitForSockets(std::size_t count) const {
    return eventually([&] { return sockets().size() == count; });
}

} // namespace brinmoor::testing
