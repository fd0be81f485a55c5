#pragma once

#include <QColor>
#include <QQuickPaintedItem>

namespace brinmoor {

/// A ring with a brighter quarter of it, the drawing of a spinner.
class ArcShape : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color MEMBER color_ NOTIFY colorsChanged FINAL)
    Q_PROPERTY(QColor track MEMBER track_ NOTIFY colorsChanged FINAL)

public:
    explicit ArcShape(QQuickItem* parent = nullptr);

    void paint(QPainter* painter) override;

Q_SIGNALS:
    void colorsChanged();

private:
    QColor color_ = Qt::black;
    QColor track_ = Qt::transparent;
};

} // namespace brinmoor
