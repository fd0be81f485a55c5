#pragma once

#include "screens/LibraryScreen.h"
#include "tests/screens/PanelDesk.h"

#include <QWheelEvent>

namespace brinmoor::testing {

/// The library window with a few links in it, and the hands that use it.
class LibraryDesk : public PanelDesk {
protected:
    LibraryDesk() {
        clock.present = {794404800}; // noon, so that minutes ago are today
        preferences.set("hasSeenUsageNotice", true);
        preferences.set("hasCompletedOnboarding", true);
    }

    /// "Bread", "Tides" and "Rails" of today, and the archived "Walks".
    void openLibrary() {
        SavedLink bread = made("Bread", "https://breadlab.org/", 1);
        bread.tags = {"baking", "craft"};
        SavedLink tides = made("Tides", "https://tidewatch.org.uk/", 2);
        tides.note = "Ask Mara.";
        SavedLink rails = made("Rails", "https://northline.no/", 3);
        rails.tags = {"travel"};
        SavedLink walks = made("Walks", "https://northline.no/walks", 4);
        walks.isArchived = true;
        given(libraryOf({bread, tides, rails, walks}));
        open();
    }
    void open() {
        panel = panels.libraryWindow(model());
        panel->makeKeyAndOrderFront();
        ASSERT_TRUE(becomesActive(*panel));
    }
    SavedLink made(const std::string& title, const std::string& url, double minutesAgo) {
        SavedLink made = link(url, title);
        made.createdAt.seconds -= 60 * minutesAgo;
        return made;
    }

    QQuickView& view() { return viewOf(*panel); }
    LibraryScreen& screen() { return *view().findChild<LibraryScreen*>(); }
    QStringList rows() {
        QStringList titles;
        const LibraryList& links = *screen().links();
        for (int row = 0; row < links.rowCount(); ++row)
            titles.append(links.data(links.index(row), LibraryList::TitleRole).toString());
        return titles;
    }
    const SavedLink& stored(const std::string& title) {
        for (const SavedLink& each : model().library().links)
            if (each.title == title)
                return each;
        throw std::runtime_error("no link " + title);
    }

    /// What is seen of this type with this text, menus and tips too.
    QQuickItem* seen(const QString& type, const QString& text = {}) {
        return itemOf(view().contentItem(), type, text);
    }
    bool appears(const QString& type, const QString& text = {}) {
        return waitUntil([&] { return seen(type, text) != nullptr; });
    }
    bool disappears(const QString& type, const QString& text = {}) {
        return waitUntil([&] { return seen(type, text) == nullptr; });
    }
    /// The row of this link, as far as it is made.
    QQuickItem* row(const QString& title) {
        const qsizetype at = rows().indexOf(title);
        QQuickItem* found = nullptr;
        QMetaObject::invokeMethod(seen(u"LinkListView"_qs), "itemAtIndex",
                                  Q_RETURN_ARG(QQuickItem*, found), Q_ARG(int, int(at)));
        return found;
    }
    static QPoint middleOf(QQuickItem* item) {
        return item->mapToGlobal(QPointF(item->width() / 2, item->height() / 2)).toPoint();
    }
    /// Clicks it once it is there.
    void clickOn(const QString& type, const QString& text = {}) {
        ASSERT_TRUE(appears(type, text)) << type.toStdString() << ' ' << text.toStdString();
        // What has only just come has its place once it is drawn.
        static_cast<void>(view().grabWindow());
        ASSERT_TRUE(appears(type, text)) << type.toStdString() << ' ' << text.toStdString();
        const QPoint place = middleOf(seen(type, text));
        desktop.click(place.x(), place.y());
    }
    void hover(QQuickItem* item) {
        const QPoint place = middleOf(item);
        desktop.movePointer(place.x(), place.y());
    }
    bool focusIsOn(const QString& text) {
        return waitUntil([&] {
            const QQuickItem* item = view().activeFocusItem();
            return item && item->property("text").toString() == text;
        });
    }
    /// The keyboard is on the list or the row that it hands it to.
    bool focusIsOnList() {
        return waitUntil([&] {
            const QQuickItem* item = view().activeFocusItem();
            const QString name = QString::fromLatin1(item ? item->metaObject()->className() : "");
            return name.startsWith(u"LinkListView"_qs) || name.startsWith(u"SwipeableLink"_qs);
        });
    }
    bool currentIs(const QString& title) {
        return waitUntil([&] {
            // Until the list has followed the library, a row still is that of another link.
            const QQuickItem* item = row(title);
            return item && item->property("title").toString() == title &&
                   item->property("current").toBool();
        });
    }

    /// One step of two fingers on a touchpad, over the middle of the item.
    void scroll(QQuickItem* item, Qt::ScrollPhase phase, QPoint pixels) {
        const QPointF place = item->mapToScene(QPointF(item->width() / 2, item->height() / 2));
        QWheelEvent event(place, view().mapToGlobal(place.toPoint()), pixels, pixels * 8,
                          Qt::NoButton, Qt::NoModifier, phase, false,
                          Qt::MouseEventSynthesizedBySystem);
        event.setTimestamp(scrolledAt_ += 16);
        QCoreApplication::sendEvent(&view(), &event);
    }
    void swipe(QQuickItem* item, int by) {
        scroll(item, Qt::ScrollBegin, {});
        scroll(item, Qt::ScrollUpdate, {by / 2, 0});
        scroll(item, Qt::ScrollUpdate, {by - by / 2, 0});
        scroll(item, Qt::ScrollEnd, {});
    }
    bool comesToRest(const QString& title, double offset) {
        return waitUntil([&] {
            QQuickItem* item = row(title);
            return item && item->property("offset").toDouble() == offset;
        });
    }

    std::unique_ptr<Panel> panel;

private:
    quint64 scrolledAt_ = 1000; ///< in milliseconds, as the system counts them
};

} // namespace brinmoor::testing
