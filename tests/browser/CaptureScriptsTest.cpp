#include "browser/CaptureScripts.h"

#include "browser/scripts/Scripts.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <gmock/gmock.h>

namespace brinmoor {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

const Browser& chromium() {
    return *Browser::find("org.chromium.Chromium");
}

QJsonObject parametersOf(const std::string& script) {
    const std::string opening = "const parameters = ";
    const auto begin = script.find(opening) + opening.size();
    const auto end = script.find(";\n", begin);
    return QJsonDocument::fromJson(QByteArray::fromStdString(script.substr(begin, end - begin)))
        .object();
}

TEST(CaptureScript, namesItsBrowserBetweenSingleQuotes) {
    const auto script = captureScript(chromium(), TabRange::current, ClosePreparation::none, 7);
    EXPECT_THAT(script, HasSubstr("Application('org.chromium.Chromium')"));
}

TEST(CaptureScript, takesEveryOtherValueAsJson) {
    const auto script = captureScript(*Browser::find("com.apple.Safari"), TabRange::wholeWindow,
                                      ClosePreparation::identifyTabs, 4711);
    const QJsonObject parameters = parametersOf(script);
    EXPECT_EQ(parameters[QStringLiteral("browserID")].toString(),
              QStringLiteral("com.apple.Safari"));
    EXPECT_TRUE(parameters[QStringLiteral("safari")].toBool());
    EXPECT_TRUE(parameters[QStringLiteral("allTabs")].toBool());
    EXPECT_TRUE(parameters[QStringLiteral("prepareClose")].toBool());
    EXPECT_EQ(parameters[QStringLiteral("processID")].toInt(), 4711);
    EXPECT_EQ(parameters[QStringLiteral("pageReader")].toString().toStdString(),
              scripts::pageReader);
}

TEST(CloseScript, anAddressOfAPageCannotLeaveItsText) {
    CapturedTabTarget target;
    target.url = "https://a.example/\"})); evil((({\"'); evil('\n\xE2\x80\xA8";
    target.windowID = "1";
    target.tabID = "2";
    target.browserID = "org.chromium.Chromium";
    const auto script = closeScript(chromium(), target);
    EXPECT_THAT(script, HasSubstr(R"(\"})); evil((({\"'); evil('\u000a\u2028)"));
    EXPECT_THAT(script, Not(HasSubstr("\xE2\x80\xA8")));
}

} // namespace
} // namespace brinmoor
