#pragma once

#include "screens/Palette.h"

#include <QColor>
#include <QObject>
#include <QQmlEngine>
#include <QString>

#include <string_view>

namespace brinmoor {

/// The hue of a site's letter tile, in degrees: the same for the same domain, always.
[[nodiscard]] int domainHue(std::string_view domain) noexcept;

/// The tile that stands for a site without an icon: a letter on a ground, both of the site's hue.
struct LetterTile {
    QString letter;
    QColor ground;
    QColor ink;
};

[[nodiscard]] LetterTile letterTile(std::string_view domain, AppAppearance appearance);

/// The same for QML.
class LetterTiles final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    [[nodiscard]] Q_INVOKABLE QString letter(const QString& domain) const;
    [[nodiscard]] Q_INVOKABLE QColor ground(const QString& domain, bool dark) const;
    [[nodiscard]] Q_INVOKABLE QColor ink(const QString& domain, bool dark) const;
};

} // namespace brinmoor
