#pragma once

#include "bridge/frames/Frames.h"
#include "bridge/frames/HostSocket.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace brinmoor::testing {

struct SimulatedTab {
    int id = 0;
    std::string url;
    std::string title;
    /// What the page reader gives; the page can't be read when it is absent.
    std::optional<std::string> pageText = std::nullopt;
};

struct SimulatedWindow {
    int id = 0;
    std::vector<SimulatedTab> tabs;
    std::size_t active = 0;
    bool minimized = false;
    bool focused = false;
    std::int64_t focusTime = 0;
};

/// A browser with its extension and helper program, as far as a client of the socket can tell: it
/// speaks the protocol and keeps windows with tabs in memory, front to back.
class SimulatedBrowser {
public:
    struct Options {
        std::string browserID = "org.chromium.Chromium";
        std::string profile = "00000000000000aa";
        std::int32_t process = 4711;
        int protocol = 1;
        bool silent = false; ///< takes requests and never answers
    };

    SimulatedBrowser(const std::string& runtimeFolder, Options options,
                     std::vector<SimulatedWindow> windows);
    SimulatedBrowser(const SimulatedBrowser&) = delete;
    SimulatedBrowser& operator=(const SimulatedBrowser&) = delete;
    ~SimulatedBrowser();

    [[nodiscard]] std::vector<SimulatedWindow> windows() const;
    void change(const std::function<void(std::vector<SimulatedWindow>&)>& work);
    /// The names of the requests so far, in order, and forgets them.
    [[nodiscard]] std::vector<std::string> takeRequests();

    /// Called before a request of that name is carried out, on the browser's thread: what the user
    /// does at the last moment. Set before a script runs.
    std::function<void(const std::string&, std::vector<SimulatedWindow>&)> beforeRequest;
    /// Given instead of the proper answer when it isn't empty; the connection ends at "end".
    std::function<std::string(const std::string&)> otherAnswer;

private:
    void serve();
    void serveClient(int connection);
    [[nodiscard]] std::string answerTo(const std::string& body);
    [[nodiscard]] std::string resultOf(const std::string& request, std::int64_t tab,
                                       std::int64_t window, const std::string& url);

    Options options_;
    bridge::FileDescriptor folder_;
    bridge::ListeningSocket listener_;
    mutable std::mutex guard_;
    std::vector<SimulatedWindow> windows_;
    std::vector<std::string> requests_;
    std::atomic<bool> ending_ = false;
    std::thread thread_;
};

} // namespace brinmoor::testing
