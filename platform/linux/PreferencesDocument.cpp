#include "platform/linux/PreferencesDocument.h"

#include <QJsonDocument>
#include <QJsonValue>
#include <QStringView>

namespace brinmoor {
namespace {

QString named(std::string_view key) {
    return QString::fromUtf8(key.data(), static_cast<qsizetype>(key.size()));
}

const auto dataKey = QStringLiteral("data");

std::optional<PreferenceValue> dataIn(const QJsonObject& object) {
    const auto coded = object.value(dataKey);
    if (object.size() != 1 || !coded.isString())
        return std::nullopt;
    const auto decoded = QByteArray::fromBase64Encoding(coded.toString().toLatin1(),
                                                        QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded)
        return std::nullopt;
    return PreferenceData{decoded.decoded.toStdString()};
}

QJsonValue jsonOf(const PreferenceValue& value) {
    if (const auto* boolean = std::get_if<bool>(&value))
        return *boolean;
    if (const auto* text = std::get_if<std::string>(&value))
        return named(*text);
    const auto& bytes = std::get<PreferenceData>(value).bytes;
    const auto coded = QByteArray::fromStdString(bytes).toBase64();
    return QJsonObject{{dataKey, QString::fromLatin1(coded)}};
}

} // namespace

std::optional<QJsonObject> decodePreferences(const QByteArray& bytes) {
    if (bytes.isEmpty())
        return QJsonObject();
    const auto document = QJsonDocument::fromJson(bytes);
    if (!document.isObject())
        return std::nullopt;
    return document.object();
}

QByteArray encodePreferences(const QJsonObject& document) {
    return QJsonDocument(document).toJson(QJsonDocument::Indented);
}

std::optional<PreferenceValue> preferenceIn(const QJsonObject& document, std::string_view key) {
    const auto value = document.value(named(key));
    if (value.isBool())
        return value.toBool();
    if (value.isString())
        return value.toString().toStdString();
    return value.isObject() ? dataIn(value.toObject()) : std::nullopt;
}

void setPreferenceIn(QJsonObject& document, std::string_view key,
                     const std::optional<PreferenceValue>& value) {
    if (value)
        document.insert(named(key), jsonOf(*value));
    else
        document.remove(named(key));
}

} // namespace brinmoor
