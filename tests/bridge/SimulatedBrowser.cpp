#include "tests/bridge/SimulatedBrowser.h"

#include <poll.h>

#include <simdjson.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace brinmoor::testing {
namespace {

using namespace std::chrono_literals;

std::string jsonText(const std::string& text) {
    std::string json = "\"";
    for (const char letter : text) {
        if (letter == '"' || letter == '\\')
            json += '\\';
        if (letter == '\n')
            json += "\\n";
        else
            json += letter;
    }
    return json + "\"";
}

std::string boolean(bool value) {
    return value ? "true" : "false";
}

std::string describedTab(const SimulatedWindow& window, std::size_t index) {
    const SimulatedTab& tab = window.tabs[index];
    return "{\"id\":" + std::to_string(tab.id) + ",\"window\":" + std::to_string(window.id) +
           ",\"index\":" + std::to_string(index) +
           ",\"active\":" + boolean(index == window.active) + ",\"url\":" + jsonText(tab.url) +
           ",\"title\":" + jsonText(tab.title) + "}";
}

template <class Describe>
std::string list(std::size_t count, Describe describe) {
    std::string json = "[";
    for (std::size_t i = 0; i < count; ++i)
        json += (i > 0 ? "," : "") + describe(i);
    return json + "]";
}

std::string describedWindow(const SimulatedWindow& window) {
    return "{\"id\":" + std::to_string(window.id) + ",\"focused\":" + boolean(window.focused) +
           ",\"focusTime\":" + std::to_string(window.focusTime) +
           ",\"minimized\":" + boolean(window.minimized) + ",\"tabs\":" +
           list(window.tabs.size(), [&](std::size_t i) { return describedTab(window, i); }) + "}";
}

std::string error(const std::string& code) {
    return "\"error\":{\"code\":\"" + code + "\"}";
}

} // namespace

SimulatedBrowser::SimulatedBrowser(const std::string& runtimeFolder, Options options,
                                   std::vector<SimulatedWindow> windows)
    : options_(std::move(options)), windows_(std::move(windows)) {
    auto folder = bridge::openBridgeFolder(runtimeFolder.c_str(), bridge::MissingFolder::make);
    if (!folder)
        throw std::runtime_error("no folder for sockets");
    folder_ = std::move(folder).value();
    auto listener = bridge::ListeningSocket::publish(
        folder_.number(), {options_.browserID, options_.process, options_.profile});
    if (!listener)
        throw std::runtime_error("no socket");
    listener_ = std::move(*listener);
    thread_ = std::thread([this] { serve(); });
}

SimulatedBrowser::~SimulatedBrowser() {
    ending_ = true;
    thread_.join();
}

std::vector<SimulatedWindow> SimulatedBrowser::windows() const {
    const std::scoped_lock lock(guard_);
    return windows_;
}

void SimulatedBrowser::change(const std::function<void(std::vector<SimulatedWindow>&)>& work) {
    const std::scoped_lock lock(guard_);
    work(windows_);
}

std::vector<std::string> SimulatedBrowser::takeRequests() {
    const std::scoped_lock lock(guard_);
    return std::exchange(requests_, {});
}

void SimulatedBrowser::serve() {
    while (!ending_) {
        pollfd entry{listener_.number(), POLLIN, 0};
        ::poll(&entry, 1, 5);
        if (const auto client = listener_.accepted())
            serveClient(client.number());
    }
}

void SimulatedBrowser::serveClient(int connection) {
    bridge::FrameDecoder decoder(bridge::frameCapToBrowser);
    while (!ending_) {
        const auto request =
            bridge::readFrame(connection, decoder, std::chrono::steady_clock::now() + 20ms);
        if (!request && request.error() == bridge::FrameFailure::timedOut)
            continue;
        const std::string answer = request ? answerTo(*request) : "end";
        if (answer == "end")
            return;
        if (!options_.silent && !bridge::writeFrame(connection, answer, bridge::frameCapFromBrowser,
                                                    std::chrono::steady_clock::now() + 10s)
                                     .ok())
            return;
    }
}

std::string SimulatedBrowser::answerTo(const std::string& body) {
    simdjson::dom::parser parser;
    const simdjson::dom::element message = parser.parse(body);
    const auto request = std::string(message["request"].get_string().value());
    const auto number = [&](const char* key) {
        std::int64_t value = -1;
        return message[key].get(value) == simdjson::SUCCESS ? value : -1;
    };
    std::string_view url;
    if (message["url"].get(url) != simdjson::SUCCESS)
        url = "";
    const std::scoped_lock lock(guard_);
    requests_.push_back(request);
    if (otherAnswer)
        if (const std::string other = otherAnswer(request); !other.empty())
            return other;
    if (beforeRequest)
        beforeRequest(request, windows_);
    return "{\"id\":" + std::to_string(number("id")) +
           ",\"protocol\":" + std::to_string(options_.protocol) + "," +
           resultOf(request, number("tab"), number("window"), std::string(url)) + "}";
}

std::string SimulatedBrowser::resultOf(const std::string& request, std::int64_t tabID,
                                       std::int64_t windowID, const std::string& url) {
    if (options_.protocol != 1)
        return error("protocol");
    if (request == "windows")
        return "\"result\":{\"windows\":" +
               list(windows_.size(), [&](std::size_t i) { return describedWindow(windows_[i]); }) +
               "}";
    for (auto window = windows_.begin(); window != windows_.end(); ++window) {
        if (window->id == windowID && request == "focusWindow") {
            std::rotate(windows_.begin(), window, window + 1);
            return "\"result\":{}";
        }
        if (window->id == windowID && request == "unminimizeWindow") {
            window->minimized = false;
            return "\"result\":{}";
        }
        const auto tab = std::find_if(window->tabs.begin(), window->tabs.end(),
                                      [&](const SimulatedTab& each) { return each.id == tabID; });
        if (tab == window->tabs.end())
            continue;
        const auto index = static_cast<std::size_t>(tab - window->tabs.begin());
        if (request == "tab")
            return "\"result\":{\"tab\":" + describedTab(*window, index) + "}";
        if (request == "readPage")
            return tab->pageText ? "\"result\":{\"text\":" + jsonText(*tab->pageText) + "}"
                                 : error("unreadable");
        if (request == "selectTab" && window->id == windowID) {
            window->active = index;
            return "\"result\":{}";
        }
        if (request == "closeTab") {
            if (tab->url != url)
                return error("changed");
            window->tabs.erase(tab);
            return "\"result\":{}";
        }
    }
    return error("gone");
}

} // namespace brinmoor::testing
