#pragma once

#include "browser/Browser.h"
#include "browser/ScriptRunner.h"

#include <QByteArray>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

/// What scripts print about open tabs, and which browser a script speaks to.
namespace brinmoor::testing {

struct PretendedTab {
    std::string url;
    std::string title = "Title";
    int window = 1;
    int place = 1;
    bool isActive = false;
};

/// One record with the keys of both readings.
inline std::string tabRecord(const Browser& browser, const PretendedTab& tab) {
    const auto boolean = [](bool value) { return value ? "true" : "false"; };
    const std::string number = std::to_string(tab.window * 100 + tab.place);
    return R"({"browserID":")" + std::string(browser.id) + R"(","browserName":")" +
           std::string(browser.name) + R"(","windowID":"w)" + std::to_string(tab.window) +
           R"(","windowIndex":)" + std::to_string(tab.window) + R"(,"tabID":"t)" + number +
           R"(","index":)" + std::to_string(tab.place) + R"(,"title":")" + tab.title +
           R"(","url":")" + tab.url + R"(","isActive":)" + boolean(tab.isActive) +
           R"(,"isEmpty":)" + boolean(tab.url.empty()) + "}";
}

inline QByteArray tabList(std::string_view browserID, const std::vector<PretendedTab>& tabs) {
    std::string json;
    for (const PretendedTab& tab : tabs)
        json += (json.empty() ? "" : ",") + tabRecord(*Browser::find(browserID), tab);
    return QByteArray::fromStdString("[" + json + "]");
}

/// Whether a script speaks to this browser.
inline bool isFor(const ScriptRun& run, std::string_view browserID) {
    return run.script.find("Application('" + std::string(browserID) + "')") != std::string::npos;
}

/// Whether a script's function run calls this function.
inline bool runs(const ScriptRun& run, std::string_view function) {
    return run.script.find("(" + std::string(function) + "(Application(") != std::string::npos;
}

} // namespace brinmoor::testing
