#pragma once

#include "tests/support/ChildProcess.h"
#include "tests/support/HttpServer.h"
#include "tests/support/ScratchFolder.h"

#include <condition_variable>
#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace brinmoor::testing {

/// The pages of a pretended web: every host is this one, by http and by https.
using Pages = std::function<HttpAnswer(const HttpRequest&)>;

struct ChromiumOptions {
    std::string nativeHost;      ///< path of brinmoor-browser-host
    std::string extensionFolder; ///< the extension, ready to load
    Pages pages;
    /// Whether the browser is told of the native host: without it, nobody has let the product in.
    bool connected = true;
    std::string program = "/usr/bin/chromium";
};

/// A real Chromium with the product's extension, its own empty profile folder and a pretended web.
/// Needs a display. Everything that it started ends with it. Methods block and are to be called
/// on one thread.
class ChromiumSession {
public:
    explicit ChromiumSession(ChromiumOptions options);
    ChromiumSession(const ChromiumSession&) = delete;
    ChromiumSession& operator=(const ChromiumSession&) = delete;
    ~ChromiumSession();

    /// Starts the browser with these addresses open; true once the product's extension (if
    /// connected) and the driver of these tests have both answered.
    [[nodiscard]] bool start(const std::vector<std::string>& addresses,
                             const std::vector<std::string>& moreArguments = {});
    /// Asks the browser to quit and waits for its end. The profile stays for another start.
    void stop();

    /// Has the running browser open one more thing, as a second start of it does.
    void open(const std::vector<std::string>& arguments);

    /// Calls `chrome.<function>` with a JSON list of arguments inside the browser; the result as
    /// JSON, or "error: ..." with the browser's words.
    [[nodiscard]] std::string call(const std::string& function, const std::string& arguments);
    /// Opens a tab in the front window and waits until it is loaded; its number.
    int openTab(const std::string& address);
    /// Waits until some tab of that address is loaded; its number, or -1.
    [[nodiscard]] int loadedTab(const std::string& address);

    /// The browser's main process; 0 when it isn't running.
    [[nodiscard]] pid_t process() const;
    /// The port of the pretended web's plain side.
    [[nodiscard]] std::uint16_t port() const { return server_.port(); }
    /// The sockets of the browser's hosts, in the session's runtime folder.
    [[nodiscard]] std::vector<std::string> sockets() const;
    [[nodiscard]] bool waitForSockets(std::size_t count) const;

private:
    struct Driver;

    void writeManifest() const;
    [[nodiscard]] std::vector<std::string>
    commandLine(const std::vector<std::string>& arguments) const;
    [[nodiscard]] HttpAnswer answer(const HttpRequest& request);

    ChromiumOptions options_;
    ScratchFolder profile_;
    std::shared_ptr<Driver> driver_;
    HttpServer server_;
    HttpServer tlsServer_;
    std::optional<ChildProcess> browser_;
    std::vector<ChildProcess> openers_;
};

} // namespace brinmoor::testing
