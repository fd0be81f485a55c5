#include "screens/Appearance.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QStyleHints>

namespace brinmoor {

void Appearance::setAppearance(AppAppearance appearance) {
    if (appearance == appearance_)
        return;
    appearance_ = appearance;
    Q_EMIT changed();
}

void Appearance::setReducedMotion(bool reduced) {
    if (reduced == reducedMotion_)
        return;
    reducedMotion_ = reduced;
    Q_EMIT reducedMotionChanged();
}

int Appearance::caretPeriod() {
    return QGuiApplication::styleHints()->cursorFlashTime();
}

bool Appearance::hasVollkorn() {
    static const bool found = QFontDatabase::hasFamily(QStringLiteral("Vollkorn"));
    return found;
}

QColor Appearance::colour(const AdaptiveColour& colour) const {
    const Colour& shown = colour.in(appearance_);
    return QColor::fromRgbF(float(shown.red), float(shown.green), float(shown.blue));
}

} // namespace brinmoor
