#pragma once

#include <QPointer>
#include <QQuickItem>

namespace brinmoor {

/// Tells when an item that is no control gets the keyboard by keys, and not by the pointer or with
/// its window.
class ItemFocus : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickItem* item READ item WRITE setItem NOTIFY itemChanged FINAL)

public:
    using QObject::QObject;

    [[nodiscard]] QQuickItem* item() const { return item_; }
    void setItem(QQuickItem* item);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void itemChanged();
    void arrivedByKeys();

private:
    QPointer<QQuickItem> item_;
};

} // namespace brinmoor
