#pragma once

#include "core/text/Wording.h"

#include <QObject>
#include <QQmlEngine>
#include <QString>

namespace brinmoor {

/// The words for a fixed text, for QML.
class Wording final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    [[nodiscard]] Q_INVOKABLE QString words(const QString& source) const {
        return QString::fromStdString(text::worded(source.toStdString()));
    }
};

} // namespace brinmoor
