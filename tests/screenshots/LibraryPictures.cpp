#include "screens/LibraryScreen.h"
#include "screens/OnboardingScreen.h"
#include "screens/QuickPanel.h"
#include "tests/screenshots/Studio.h"

#include <QKeyEvent>
#include <QQuickItem>
#include <QWheelEvent>

namespace brinmoor {

namespace {

QQuickItem* itemWith(QQuickItem* item, const char* property, const QString& value) {
    if (item->isVisible() && item->property(property).toString() == value)
        return item;
    for (QQuickItem* child : item->childItems())
        if (QQuickItem* found = itemWith(child, property, value))
            return found;
    return nullptr;
}

/// The library window in one state after another.
class Scene {
public:
    explicit Scene(Studio& studio, const Library& library = sampleLibrary())
        : studio_(studio), desk_(library), model_(desk_.parts()),
          panel_(studio.panels().libraryWindow(model_)) {
        panel_->makeKeyAndOrderFront();
    }

    Desk& desk() { return desk_; }
    AppModel& model() { return model_; }
    QQuickView& view() { return dynamic_cast<QuickPanel&>(*panel_).view(); }
    LibraryScreen& screen() { return *view().findChild<LibraryScreen*>(); }
    void take(const char* name) { studio_.take(*panel_, QString::fromLatin1(name)); }

    void look(LibraryFilter filter) { model_.setView(std::move(filter)); }
    void click(const QString& text) {
        Studio::settle(300);
        QQuickItem* item = itemWith(view().contentItem(), "text", text);
        if (!item || !QMetaObject::invokeMethod(item, "clicked"))
            qFatal("Nothing to click.");
    }
    /// Two fingers push the second row, and stay or let go.
    void push(int by, bool letGo) {
        Studio::settle(300);
        QQuickItem* row = itemWith(view().contentItem(), "title", u"Sourdough, hour by hour"_qs);
        const QPointF place = row->mapToScene(QPointF(300, 20));
        const auto scroll = [&](Qt::ScrollPhase phase, QPoint pixels) {
            QWheelEvent event(place, view().mapToGlobal(place), pixels, pixels * 8, Qt::NoButton,
                              Qt::NoModifier, phase, false, Qt::MouseEventSynthesizedBySystem);
            QCoreApplication::sendEvent(&view(), &event);
        };
        scroll(Qt::ScrollBegin, {});
        scroll(Qt::ScrollUpdate, {by, 0});
        if (letGo)
            scroll(Qt::ScrollEnd, {});
    }

private:
    Studio& studio_;
    Desk desk_;
    AppModel model_;
    std::unique_ptr<Panel> panel_;
};

LibraryFilter searching(const char* query) {
    LibraryFilter filter;
    filter.query = query;
    return filter;
}

void takeSearches(Studio& studio) {
    Scene scene(studio);
    scene.model().focusSearch();
    scene.look(searching("coast"));
    scene.take("library-best-matches");
    scene.look(searching("#s"));
    scene.take("library-tag-suggestions");
    scene.look(searching("lighthouse keepers"));
    scene.take("library-empty-search");
}

void takeRefinements(Studio& studio) {
    Scene scene(studio);
    LibraryFilter refined;
    refined.selectedTag = "travel";
    refined.selectedDomain = "northline.no";
    refined.notesOnly = true;
    scene.look(refined);
    scene.take("library-chips");
    scene.click(u"Filter results"_qs);
    scene.take("library-filter-menu");
    Scene scope(studio);
    scope.click(u"Everywhere"_qs);
    scope.take("library-scope-menu");
}

void takeArchive(Studio& studio) {
    LibraryFilter archive;
    archive.filter = LibraryFilter::archive;
    Scene scene(studio);
    scene.look(archive);
    scene.take("library-empty-archive");
    UuidSet ids;
    for (const std::size_t place : {0, 2, 4})
        ids.insert(scene.model().library().links[place].id);
    scene.model().setArchived(true, ids);
    scene.model().dismissArchiveUndo();
    scene.take("library-archive");
    scene.screen().askToEmptyArchive();
    scene.take("library-archive-alert");
    Scene undo(studio);
    undo.model().setArchived(true, {undo.model().library().links[0].id});
    undo.take("library-undo");
}

void takeRows(Studio& studio) {
    Scene banners(studio);
    banners.desk().preferences.set("hasSeenUsageNotice", false);
    banners.desk().preferences.set("hasCompletedOnboarding", false);
    banners.model().showOnboardingIfNeededForActiveAccount();
    banners.view().findChild<OnboardingScreen*>()->dismiss();
    banners.take("library-banners");
    Scene left(studio);
    left.push(-60, true);
    left.take("swipe-left-open");
    Scene right(studio);
    right.push(200, false);
    right.take("swipe-right-pending");
    Scene keyboard(studio);
    await([&] { return keyboard.view().isActive(); });
    for (int presses = 0; presses < 2; ++presses) {
        QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
        QCoreApplication::sendEvent(&keyboard.view(), &down);
    }
    keyboard.take("library-keyboard-focus");
    QQuickItem* row =
        itemWith(keyboard.view().contentItem(), "title", u"Sourdough, hour by hour"_qs);
    QMetaObject::invokeMethod(row, "menuWanted", Q_ARG(QPointF, QPointF(310, -30)));
    keyboard.take("library-context-menu");
}

} // namespace

void takeLibraryStates(Studio& studio) {
    takeSearches(studio);
    takeRefinements(studio);
    takeArchive(studio);
    takeRows(studio);
}

} // namespace brinmoor
