#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <QString>

namespace brinmoor {

/// A line drawing of the Breeze icon theme in one colour, sharp at any pixel density. It is as
/// large as its file is meant to be; only the large bubbles scale a 22 one.
class IconShape : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged FINAL)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged FINAL)

public:
    explicit IconShape(QQuickItem* parent = nullptr);

    /// Folder, size and name inside the theme: "actions/16/checkmark".
    [[nodiscard]] const QString& name() const noexcept { return name_; }
    void setName(const QString& name);
    [[nodiscard]] const QColor& color() const noexcept { return color_; }
    void setColor(const QColor& color);

    void paint(QPainter* painter) override;

Q_SIGNALS:
    void nameChanged();
    void colorChanged();

private:
    QString name_;
    QColor color_ = Qt::black;
};

} // namespace brinmoor
