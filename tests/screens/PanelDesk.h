#pragma once

#include "screens/QuickPanel.h"
#include "screens/QuickPanels.h"
#include "tests/app/Desk.h"
#include "tests/screens/TestDesktop.h"

#include <QGuiApplication>
#include <QQuickItem>

namespace brinmoor::testing {

/// Real windows of a model on a real desktop with another program on it.
class PanelDesk : public Desk {
protected:
    /// Off every window, so that nothing is hovered.
    PanelDesk() {
        desktop.movePointer(1279, 899);
        // The tour would cover the library of a fresh user.
        preferences.values["hasCompletedOnboarding"] = true;
    }
    ~PanelDesk() override { endModel(); }

    static QQuickView& viewOf(Panel& panel) { return dynamic_cast<QuickPanel&>(panel).view(); }
    static std::uint32_t windowOf(Panel& panel) { return std::uint32_t(viewOf(panel).winId()); }

    /// The other program has the keyboard.
    void otherInFront() {
        desktop.showOther(150, 120, 700, 600);
        ASSERT_TRUE(waitUntil([&] { return desktop.activeWindow() == desktop.otherWindow(); }));
    }
    [[nodiscard]] bool becomesActive(Panel& panel) {
        return waitUntil([&] {
            return desktop.activeWindow() == windowOf(panel) && viewOf(panel).isActive() &&
                   viewOf(panel).activeFocusItem() != nullptr;
        });
    }

    /// The item with this name for assistive technology, or of this QML type.
    static QQuickItem* itemOf(QQuickItem* root, const QString& type, const QString& text = {}) {
        const QString name = QString::fromLatin1(root->metaObject()->className());
        const bool fits = name.startsWith(type + u"_QML"_qs) &&
                          (text.isEmpty() || root->property("text").toString() == text);
        if (fits && root->isVisible())
            return root;
        for (QQuickItem* child : root->childItems())
            if (QQuickItem* found = itemOf(child, type, text))
                return found;
        return nullptr;
    }
    /// Clicks the middle of an item with the real pointer.
    void click(Panel& panel, const QString& type, const QString& text = {}) {
        QQuickItem* item = itemOf(viewOf(panel).rootObject(), type, text);
        ASSERT_NE(item, nullptr) << type.toStdString() << " " << text.toStdString();
        const QPoint place =
            item->mapToGlobal(QPointF(item->width() / 2, item->height() / 2)).toPoint();
        desktop.click(place.x(), place.y());
    }

    TestDesktop desktop;
    QuickPanels panels;
};

} // namespace brinmoor::testing
