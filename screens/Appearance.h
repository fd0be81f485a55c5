#pragma once

#include "screens/Palette.h"

#include <QColor>
#include <QObject>
#include <QQmlEngine>
#include <QString>

namespace brinmoor {

/// The theme in force, for QML: its palette and the families of its fonts. One for all windows of
/// an engine, so that they switch together.
class Appearance final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool dark READ isDark NOTIFY changed FINAL)
    Q_PROPERTY(bool reducedMotion READ reducedMotion NOTIFY reducedMotionChanged FINAL)
    Q_PROPERTY(QColor paper READ paper NOTIFY changed FINAL)
    Q_PROPERTY(QColor sidebar READ sidebar NOTIFY changed FINAL)
    Q_PROPERTY(QColor surface READ surface NOTIFY changed FINAL)
    Q_PROPERTY(QColor raised READ raised NOTIFY changed FINAL)
    Q_PROPERTY(QColor ink READ ink NOTIFY changed FINAL)
    Q_PROPERTY(QColor sage READ sage NOTIFY changed FINAL)
    Q_PROPERTY(QColor muted READ muted NOTIFY changed FINAL)
    Q_PROPERTY(QColor line READ line NOTIFY changed FINAL)
    Q_PROPERTY(QColor onAccent READ onAccent NOTIFY changed FINAL)
    Q_PROPERTY(QColor rust READ rust NOTIFY changed FINAL)
    Q_PROPERTY(int caretPeriod READ caretPeriod CONSTANT FINAL)
    Q_PROPERTY(bool hasVollkorn READ hasVollkorn CONSTANT FINAL)

public:
    using QObject::QObject;

    [[nodiscard]] AppAppearance appearance() const noexcept { return appearance_; }
    void setAppearance(AppAppearance appearance);

    /// Whether movement is left out.
    [[nodiscard]] bool reducedMotion() const noexcept { return reducedMotion_; }
    void setReducedMotion(bool reduced);

    [[nodiscard]] bool isDark() const noexcept { return appearance_ == AppAppearance::black; }
    [[nodiscard]] QColor paper() const { return colour(Palette::paper); }
    [[nodiscard]] QColor sidebar() const { return colour(Palette::sidebar); }
    [[nodiscard]] QColor surface() const { return colour(Palette::surface); }
    [[nodiscard]] QColor raised() const { return colour(Palette::raised); }
    [[nodiscard]] QColor ink() const { return colour(Palette::ink); }
    [[nodiscard]] QColor sage() const { return colour(Palette::sage); }
    [[nodiscard]] QColor muted() const { return colour(Palette::muted); }
    [[nodiscard]] QColor line() const { return colour(Palette::line); }
    [[nodiscard]] QColor onAccent() const { return colour(Palette::onAccent); }
    [[nodiscard]] QColor rust() const { return colour(Palette::rust); }
    /// How long a caret is on and off, in milliseconds; 0 where it stands still.
    [[nodiscard]] static int caretPeriod();
    [[nodiscard]] static bool hasVollkorn();

Q_SIGNALS:
    void changed();
    void reducedMotionChanged();

private:
    [[nodiscard]] QColor colour(const AdaptiveColour& colour) const;

    AppAppearance appearance_ = AppAppearance::black;
    bool reducedMotion_ = false;
};

} // namespace brinmoor
