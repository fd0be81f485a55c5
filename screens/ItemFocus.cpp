#include "screens/ItemFocus.h"

#include <QFocusEvent>

namespace brinmoor {

namespace {

bool isByKeys(Qt::FocusReason reason) {
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
           reason == Qt::ShortcutFocusReason;
}

} // namespace

void ItemFocus::setItem(QQuickItem* item) {
    if (item == item_)
        return;
    if (item_)
        item_->removeEventFilter(this);
    item_ = item;
    if (item_)
        item_->installEventFilter(this);
    Q_EMIT itemChanged();
}

bool ItemFocus::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn && isByKeys(static_cast<QFocusEvent*>(event)->reason()))
        Q_EMIT arrivedByKeys();
    return QObject::eventFilter(watched, event);
}

} // namespace brinmoor
