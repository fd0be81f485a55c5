#pragma once

#include "browser/scripts/Scripts.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/ScratchFolder.h"

#include <simdjson.h>

#include <cstdint>
#include <string>

namespace brinmoor::testing {

inline std::string embeddedText(std::string_view text) {
    std::string json = "\"";
    for (const char letter : text) {
        if (letter == '\n') {
            json += "\\n";
            continue;
        }
        if (letter == '"' || letter == '\\')
            json += '\\';
        json += letter;
    }
    return json + "\"";
}

struct CaptureParameters {
    std::string browserID = "org.chromium.Chromium";
    bool safari = false;
    bool allTabs = false;
    bool prepareClose = false;
    std::int32_t processID = 4711;
};

/// The capture script as the application puts it together.
inline std::string captureScriptFor(const CaptureParameters& given) {
    const auto boolean = [](bool value) { return value ? "true" : "false"; };
    return "const application = Application('" + given.browserID + "');\n" +
           "const parameters = {\"browserID\":\"" + given.browserID +
           "\",\"safari\":" + boolean(given.safari) + ",\"allTabs\":" + boolean(given.allTabs) +
           ",\"prepareClose\":" + boolean(given.prepareClose) +
           ",\"processID\":" + std::to_string(given.processID) +
           ",\"pageReader\":" + embeddedText(scripts::pageReader) + "};\n" +
           std::string(scripts::captureHelpers) + "\n" + std::string(scripts::captureTabs);
}

/// The script that closes a captured tab; `target` is its JSON object.
inline std::string closeScriptFor(const std::string& browserID, const std::string& target) {
    return std::string(scripts::captureHelpers) +
           "\nfunction run() { return String(closeCapturedTab(Application('" + browserID + "'), " +
           target + ")); }\n";
}

/// Runs a script by the real tool.
inline ProcessResult runTool(const std::string& script, const Environment& environment = {}) {
    return runProgram({BRINMOOR_AUTOMATION, "-l", "JavaScript", "-e", script}, environment);
}

/// What a tool printed, read as JSON.
class Entries {
public:
    explicit Entries(const std::string& json) { root_ = parser_.parse(json); }

    [[nodiscard]] std::size_t size() const { return simdjson::dom::array(root_).size(); }
    [[nodiscard]] std::string text(std::size_t entry, const std::string& pointer) const {
        std::string_view value;
        return root_.at_pointer("/" + std::to_string(entry) + pointer).get(value) ==
                       simdjson::SUCCESS
                   ? std::string(value)
                   : "(none)";
    }
    [[nodiscard]] bool has(std::size_t entry, const std::string& pointer) const {
        return root_.at_pointer("/" + std::to_string(entry) + pointer).error() == simdjson::SUCCESS;
    }
    [[nodiscard]] std::string json(std::size_t entry, const std::string& pointer) const {
        simdjson::dom::element value;
        return root_.at_pointer("/" + std::to_string(entry) + pointer).get(value) ==
                       simdjson::SUCCESS
                   ? simdjson::minify(value)
                   : "(none)";
    }

private:
    simdjson::dom::parser parser_;
    simdjson::dom::element root_;
};

} // namespace brinmoor::testing
