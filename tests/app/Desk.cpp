#include "tests/app/Desk.h"

#include <regex>

namespace brinmoor::testing {

void Desk::tabsAre(const std::vector<std::string>& entries) {
    std::string json = "[";
    for (const std::string& each : entries)
        json += (json.size() > 1 ? "," : "") + each;
    json += "]";
    scripts.answer = [this, json](const ScriptRun& run) {
        if (run.kind == ScriptRun::Kind::operation)
            return CannedScripts::Answer(QByteArray::fromStdString(closeAnswer));
        const bool prepared = run.script.find("\"prepareClose\":true") != std::string::npos;
        static const std::regex target(R"(,"closeTarget":\{[^}]*\})");
        const std::string tabs = prepared ? json : std::regex_replace(json, target, "");
        return CannedScripts::Answer(QByteArray::fromStdString(tabs));
    };
}

} // namespace brinmoor::testing
