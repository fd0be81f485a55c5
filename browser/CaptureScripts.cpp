#include "browser/CaptureScripts.h"

#include "browser/scripts/Scripts.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace brinmoor {
namespace {

QString qText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string application(const Browser& browser) {
    return "Application('" + std::string(browser.id) + "')";
}

std::string json(const QJsonObject& object) {
    return QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString();
}

} // namespace

std::string captureScript(const Browser& browser, TabRange range, ClosePreparation preparation,
                          std::int32_t process) {
    const QJsonObject parameters{
        {QStringLiteral("browserID"), qText(browser.id)},
        {QStringLiteral("safari"), browser.isSafari()},
        {QStringLiteral("allTabs"), range == TabRange::wholeWindow},
        {QStringLiteral("prepareClose"), preparation == ClosePreparation::identifyTabs},
        {QStringLiteral("processID"), process},
        {QStringLiteral("pageReader"), qText(scripts::pageReader)}};
    return "const application = " + application(browser) +
           ";\nconst parameters = " + json(parameters) + ";\n" +
           std::string(scripts::captureHelpers) + "\n" + std::string(scripts::captureTabs);
}

std::string closeScript(const Browser& browser, const CapturedTabTarget& target) {
    return std::string(scripts::captureHelpers) +
           "\nfunction run() { return String(closeCapturedTab(" + application(browser) + ", " +
           encoded(target) + ")); }\n";
}

} // namespace brinmoor
