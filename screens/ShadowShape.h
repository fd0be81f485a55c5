#pragma once

#include <QColor>
#include <QQuickPaintedItem>

namespace brinmoor {

/// The soft shadow of a rounded rectangle. The item covers the shape and `blur` around it on each
/// side: what a shadow reaches.
class ShadowShape : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged FINAL)
    Q_PROPERTY(int radius MEMBER radius_ NOTIFY shapeChanged FINAL)
    /// Twice the standard deviation of the softness.
    Q_PROPERTY(int blur MEMBER blur_ NOTIFY shapeChanged FINAL)

public:
    explicit ShadowShape(QQuickItem* parent = nullptr);

    [[nodiscard]] const QColor& color() const noexcept { return color_; }
    void setColor(const QColor& color);

    void paint(QPainter* painter) override;

Q_SIGNALS:
    void colorChanged();
    void shapeChanged();

private:
    QColor color_ = Qt::black;
    int radius_ = 0;
    int blur_ = 0;
};

} // namespace brinmoor
