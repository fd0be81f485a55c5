#pragma once

#include "core/text/Wording.h"

#include <QObject>
#include <QQmlEngine>
#include <QString>

#include <string>
#include <string_view>

namespace brinmoor {

inline QString shown(const std::string& text) {
    return QString::fromStdString(text);
}

/// The words for a fixed text.
inline QString words(std::string_view source) {
    return shown(text::worded(source));
}

/// The words for a fixed text, for QML.
class Wording final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    [[nodiscard]] Q_INVOKABLE QString words(const QString& source) const {
        return brinmoor::words(source.toStdString());
    }
};

} // namespace brinmoor
