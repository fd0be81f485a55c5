#include "screens/ShadowShape.h"

#include <QHash>
#include <QImage>
#include <QPainter>
#include <QQuickWindow>

#include <cmath>
#include <vector>

namespace brinmoor {

namespace {

/// The weights of a bell curve, adding up to 1.
std::vector<float> bell(int reach) {
    const double deviation = reach / 2.0;
    std::vector<float> weights;
    double sum = 0;
    for (int at = -reach; at <= reach; ++at)
        sum += std::exp(-at * at / (2 * deviation * deviation));
    for (int at = -reach; at <= reach; ++at)
        weights.push_back(float(std::exp(-at * at / (2 * deviation * deviation)) / sum));
    return weights;
}

/// Softens along the rows and turns the picture, so that twice is both ways.
QImage softenedAndTurned(const QImage& image, const std::vector<float>& weights) {
    const int side = image.width();
    const int reach = int(weights.size()) / 2;
    QImage result(side, side, QImage::Format_Alpha8);
    for (int y = 0; y < side; ++y) {
        const uchar* row = image.constScanLine(y);
        for (int x = 0; x < side; ++x) {
            float sum = 0;
            for (int at = std::max(0, x - reach); at <= std::min(side - 1, x + reach); ++at)
                sum += weights[std::size_t(at - x + reach)] * float(row[at]);
            result.scanLine(x)[y] = uchar(std::lround(sum));
        }
    }
    return result;
}

/// The shadow of the smallest square that has both its corners and a bit of its edges; longer
/// edges repeat the middle.
QImage drawn(int radius, int blur) {
    const int side = 2 * (2 * blur + radius) + 1;
    QImage image(side, side, QImage::Format_Alpha8);
    image.fill(0);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.drawRoundedRect(QRect(blur, blur, side - 2 * blur, side - 2 * blur), radius, radius);
    painter.end();
    const std::vector<float> weights = bell(blur);
    return softenedAndTurned(softenedAndTurned(image, weights), weights);
}

const QImage& shadow(int radius, int blur) {
    static QHash<std::pair<int, int>, QImage> shadows;
    const std::pair key(radius, blur);
    const auto found = shadows.constFind(key);
    return found != shadows.cend() ? *found : *shadows.insert(key, drawn(radius, blur));
}

QImage tinted(const QImage& coverage, const QColor& color) {
    QImage image(coverage.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.drawImage(0, 0, coverage);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
    return image;
}

/// Draws `patch` so large that it covers `size`: corners as they are, the middle line stretched.
void drawNinePatch(QPainter& painter, const QImage& patch, QSizeF size) {
    const int corner = patch.width() / 2;
    const double sourceAt[] = {0, double(corner), corner + 1.0, double(patch.width())};
    const double acrossAt[] = {0, double(corner), size.width() - corner, size.width()};
    const double downAt[] = {0, double(corner), size.height() - corner, size.height()};
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            painter.drawImage(QRectF(QPointF(acrossAt[column], downAt[row]),
                                     QPointF(acrossAt[column + 1], downAt[row + 1])),
                              patch,
                              QRectF(QPointF(sourceAt[column], sourceAt[row]),
                                     QPointF(sourceAt[column + 1], sourceAt[row + 1])));
}

} // namespace

ShadowShape::ShadowShape(QQuickItem* parent) : QQuickPaintedItem(parent) {
    connect(this, &ShadowShape::shapeChanged, this, [this] { update(); });
}

void ShadowShape::setColor(const QColor& color) {
    if (color == color_)
        return;
    color_ = color;
    Q_EMIT colorChanged();
    update();
}

void ShadowShape::paint(QPainter* painter) {
    if (blur_ <= 0 || width() <= 0 || height() <= 0)
        return;
    drawNinePatch(*painter, tinted(shadow(radius_, blur_), color_), QSizeF(width(), height()));
}

} // namespace brinmoor
