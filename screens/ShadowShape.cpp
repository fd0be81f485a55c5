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
    const int reach = int(weights.size()) / 2;
    QImage result(image.height(), image.width(), QImage::Format_Alpha8);
    for (int y = 0; y < image.height(); ++y) {
        const uchar* row = image.constScanLine(y);
        for (int x = 0; x < image.width(); ++x) {
            float sum = 0;
            for (int at = std::max(0, x - reach); at <= std::min(image.width() - 1, x + reach);
                 ++at)
                sum += weights[std::size_t(at + reach - x)] * float(row[at]);
            result.scanLine(x)[y] = uchar(std::lround(sum));
        }
    }
    return result;
}

/// From here on inwards, an edge's shadow doesn't depend on its corner.
int cornerOf(int radius, int blur) {
    return 2 * blur + radius;
}

QImage drawn(QSize size, int radius, int blur) {
    QImage image(size, QImage::Format_Alpha8);
    image.fill(0);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.drawRoundedRect(image.rect().adjusted(blur, blur, -blur, -blur), radius, radius);
    painter.end();
    const std::vector<float> weights = bell(blur);
    return softenedAndTurned(softenedAndTurned(image, weights), weights);
}

/// The shadow's coverage with its long edges cut short: what is left out repeats.
const QImage& shadow(QSize size, int radius, int blur) {
    static QHash<std::pair<QSize, std::pair<int, int>>, QImage> shadows;
    const int enough = 2 * cornerOf(radius, blur) + 1;
    const QSize least = size.boundedTo({enough, enough});
    const std::pair key(least, std::pair(radius, blur));
    const auto found = shadows.constFind(key);
    return found != shadows.cend() ? *found : *shadows.insert(key, drawn(least, radius, blur));
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

struct Edge {
    double from[4];
    double to[4];
};

/// How one side of the cut picture becomes the whole: both ends as they are, the middle stretched.
Edge stretched(int cut, double whole) {
    const double end = cut / 2; // NOLINT(bugprone-integer-division): whole pixels
    return {{0, end, cut - end, double(cut)}, {0, end, whole - end, whole}};
}

void drawStretched(QPainter& painter, const QImage& cut, QSizeF whole) {
    const Edge across = stretched(cut.width(), whole.width());
    const Edge down = stretched(cut.height(), whole.height());
    for (std::size_t y = 0; y < 3; ++y)
        for (std::size_t x = 0; x < 3; ++x)
            painter.drawImage(QRectF(QPointF(across.to[x], down.to[y]),
                                     QPointF(across.to[x + 1], down.to[y + 1])),
                              cut,
                              QRectF(QPointF(across.from[x], down.from[y]),
                                     QPointF(across.from[x + 1], down.from[y + 1])));
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
    const QSizeF whole(width(), height());
    drawStretched(*painter, tinted(shadow(whole.toSize(), radius_, blur_), color_), whole);
}

} // namespace brinmoor
