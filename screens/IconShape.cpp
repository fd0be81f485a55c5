#include "screens/IconShape.h"

#include <QHash>
#include <QImage>
#include <QPainter>
#include <QQuickWindow>
#include <QStandardPaths>
#include <QSvgRenderer>

namespace brinmoor {

namespace {

QString fileOf(const QString& name) {
    return QStandardPaths::locate(QStandardPaths::GenericDataLocation,
                                  QStringLiteral("icons/breeze/") + name + QStringLiteral(".svg"));
}

QImage drawn(const QString& name, QSize pixels) {
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QSvgRenderer renderer(fileOf(name));
    if (!renderer.isValid())
        return image;
    QPainter painter(&image);
    renderer.render(&painter);
    return image;
}

/// The drawing's coverage. Lists show the same few drawings again and again, in changing colours,
/// so each is parsed once for a size.
const QImage& coverage(const QString& name, QSize pixels) {
    static QHash<std::pair<QString, int>, QImage> drawings;
    const std::pair key(name, pixels.width());
    const auto found = drawings.constFind(key);
    return found != drawings.cend() ? *found : *drawings.insert(key, drawn(name, pixels));
}

} // namespace

IconShape::IconShape(QQuickItem* parent) : QQuickPaintedItem(parent) {
    setAntialiasing(true);
}

void IconShape::setName(const QString& name) {
    if (name == name_)
        return;
    name_ = name;
    Q_EMIT nameChanged();
    update();
}

void IconShape::setColor(const QColor& color) {
    if (color == color_)
        return;
    color_ = color;
    Q_EMIT colorChanged();
    update();
}

void IconShape::paint(QPainter* painter) {
    const qreal density = window() ? window()->effectiveDevicePixelRatio() : 1;
    const QSize pixels = (QSizeF(width(), height()) * density).toSize();
    if (name_.isEmpty() || pixels.isEmpty())
        return;
    QImage tinted = coverage(name_, pixels);
    QPainter tint(&tinted);
    tint.setCompositionMode(QPainter::CompositionMode_SourceIn);
    tint.fillRect(tinted.rect(), color_);
    tint.end();
    painter->drawImage(QRectF(0, 0, width(), height()), tinted);
}

} // namespace brinmoor
