#include "screens/ArcShape.h"

#include <QPainter>

namespace brinmoor {

namespace {

constexpr int stroke = 2;
/// A painter's angles are sixteenths of a degree, against the clock from three o'clock.
constexpr int noon = 90 * 16;
constexpr int quarter = -100 * 16;

} // namespace

ArcShape::ArcShape(QQuickItem* parent) : QQuickPaintedItem(parent) {
    setAntialiasing(true);
    connect(this, &ArcShape::colorsChanged, this, [this] { update(); });
}

void ArcShape::paint(QPainter* painter) {
    painter->setRenderHint(QPainter::Antialiasing);
    const qreal inset = stroke / 2.0;
    const QRectF ring(inset, inset, width() - stroke, height() - stroke);
    painter->setPen(QPen(track_, stroke));
    painter->drawEllipse(ring);
    painter->setPen(QPen(color_, stroke, Qt::SolidLine, Qt::RoundCap));
    painter->drawArc(ring, noon, quarter);
}

} // namespace brinmoor
