#pragma once

#include "screens/Palette.h"

#include <QColor>
#include <QObject>
#include <QQmlEngine>

namespace brinmoor {

/// The palette of one theme, whichever is in force.
class ThemeColours : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool dark MEMBER dark_ NOTIFY changed FINAL)
    Q_PROPERTY(QColor paper READ paper NOTIFY changed FINAL)
    Q_PROPERTY(QColor sidebar READ sidebar NOTIFY changed FINAL)
    Q_PROPERTY(QColor surface READ surface NOTIFY changed FINAL)
    Q_PROPERTY(QColor ink READ ink NOTIFY changed FINAL)
    Q_PROPERTY(QColor sage READ sage NOTIFY changed FINAL)
    Q_PROPERTY(QColor muted READ muted NOTIFY changed FINAL)
    Q_PROPERTY(QColor line READ line NOTIFY changed FINAL)

public:
    using QObject::QObject;

    [[nodiscard]] QColor paper() const { return colour(Palette::paper); }
    [[nodiscard]] QColor sidebar() const { return colour(Palette::sidebar); }
    [[nodiscard]] QColor surface() const { return colour(Palette::surface); }
    [[nodiscard]] QColor ink() const { return colour(Palette::ink); }
    [[nodiscard]] QColor sage() const { return colour(Palette::sage); }
    [[nodiscard]] QColor muted() const { return colour(Palette::muted); }
    [[nodiscard]] QColor line() const { return colour(Palette::line); }

Q_SIGNALS:
    void changed();

private:
    [[nodiscard]] QColor colour(const AdaptiveColour& colour) const {
        const Colour& shown = colour.in(dark_ ? AppAppearance::black : AppAppearance::cream);
        return QColor::fromRgbF(float(shown.red), float(shown.green), float(shown.blue));
    }

    bool dark_ = false;
};

} // namespace brinmoor
