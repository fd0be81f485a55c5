#pragma once

#include "platform/Preferences.h"

#include <QByteArray>
#include <QJsonObject>

#include <optional>
#include <string_view>

/// The form of the preferences file: one JSON object. A boolean is a boolean, a text a string, and
/// bytes are an object with the one key "data", whose text is their base64 form. A value of any
/// other form is not this program's: it reads as absent and is kept as it is.
namespace brinmoor {

/// Absent when the bytes are no JSON object. No bytes at all are an empty one.
[[nodiscard]] std::optional<QJsonObject> decodePreferences(const QByteArray& bytes);
[[nodiscard]] QByteArray encodePreferences(const QJsonObject& document);

[[nodiscard]] std::optional<PreferenceValue> preferenceIn(const QJsonObject& document,
                                                          std::string_view key);
/// Absent removes the key.
void setPreferenceIn(QJsonObject& document, std::string_view key,
                     const std::optional<PreferenceValue>& value);

} // namespace brinmoor
