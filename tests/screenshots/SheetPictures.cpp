#include "app/TabCleanup.h"
#include "platform/memory/MemoryPreferences.h"
#include "screens/AddForm.h"
#include "screens/CleanupReviewList.h"
#include "screens/DetailForm.h"
#include "screens/EmailShareForm.h"
#include "screens/QuickPanel.h"
#include "screens/TagsScreen.h"
#include "tests/screenshots/Studio.h"
#include "tests/support/TabRecords.h"

#include <QQuickItem>

namespace brinmoor {

namespace {

constexpr QSize usualSize(750, 680);
constexpr QSize leastSize(640, 520);

/// The library window of a model.
class Stage {
public:
    Stage(Studio& studio, const Library& library, QSize size = usualSize)
        : studio_(studio), desk(library), model(parts()),
          panel_(studio.panels().libraryWindow(model)) {
        view().resize(size);
        panel_->makeKeyAndOrderFront();
        await([&] { return view().size() == size; });
    }

    void take(const QString& name) { studio_.take(*panel_, name); }
    template <class Screen>
    Screen& screen() {
        return *view().findChild<Screen*>();
    }
    /// Puts the keyboard into the item of this QML type.
    void enter(const QString& type, const char* method) {
        if (QQuickItem* item = find(view().rootObject(), type))
            QMetaObject::invokeMethod(item, method);
    }

private:
    AppParts parts() {
        desk.workspace.running = {{.bundleIdentifier = "org.chromium.Chromium",
                                   .localizedName = "Chromium",
                                   .processIdentifier = 42}};
        desk.preferences.set("tabCleanupEnabled", true);
        desk.preferences.set("tabCleanupDomains",
                             PreferenceData{R"(["harbourline.co","oldmaps.net"])"});
        desk.scripts.answer = [](const ScriptRun&) {
            return testing::CannedScripts::Answer(testing::tabList(
                "org.chromium.Chromium",
                {{"https://harbourline.co/spring", "Ferry times, spring timetable"},
                 {"https://harbourline.co/winter", "Ferry times, winter timetable", 1, 2},
                 {"https://oldmaps.net/", "A thousand coastlines, drawn by hand", 1, 3},
                 {"https://oldmaps.net/14", "Map room, sheet 14", 1, 4}}));
        };
        return desk.parts();
    }
    QuickPanel& panel() { return dynamic_cast<QuickPanel&>(*panel_); }
    QQuickView& view() { return panel().view(); }
    static QQuickItem* find(QQuickItem* root, const QString& type) {
        const QString name = QString::fromLatin1(root->metaObject()->className());
        if (root->isVisible() && name.startsWith(type + QStringLiteral("_QML")))
            return root;
        for (QQuickItem* child : root->childItems())
            if (QQuickItem* found = find(child, type))
                return found;
        return nullptr;
    }

    Studio& studio_;

public:
    Desk desk;
    AppModel model;

private:
    std::unique_ptr<Panel> panel_;
};

void takeAdd(Studio& studio) {
    Stage stage(studio, sampleLibrary());
    stage.model.setShowingAdd(true);
    stage.take(QStringLiteral("add-empty"));
    auto& form = stage.screen<AddForm>();
    form.setUrl(QStringLiteral("https://fernandfield.com/under-the-apple-tree"));
    form.setTitle(QStringLiteral("What to plant under an old apple tree"));
    form.setNote(QStringLiteral("For the corner by the shed."));
    form.addSuggestion(QStringLiteral("garden"));
    form.setTagInput(QStringLiteral("sp"));
    stage.enter(QStringLiteral("TagEditor"), "enterInput");
    stage.take(QStringLiteral("add-filled"));
}

void takeLowAdd(Studio& studio) {
    Stage stage(studio, sampleLibrary(), leastSize);
    stage.model.setShowingAdd(true);
    stage.take(QStringLiteral("add-minimum"));
}

void takeDetail(Studio& studio) {
    Stage stage(studio, sampleLibrary());
    stage.model.setSelectedID(stage.model.library().links[3].id);
    auto& form = stage.screen<DetailForm>();
    form.setNote(QStringLiteral("The table of line lengths is the useful part. Compare with the "
                                "second chapter before changing the paragraph settings again."));
    stage.take(QStringLiteral("detail-open"));
    form.setTagInput(QStringLiteral("sp"));
    stage.enter(QStringLiteral("TagEditor"), "enterInput");
    stage.take(QStringLiteral("detail-tags"));
    form.setTagInput({});
    stage.enter(QStringLiteral("DetailSheet"), "openMenu");
    stage.take(QStringLiteral("detail-menu"));
    stage.enter(QStringLiteral("DetailSheet"), "closeMenu");
    form.askDelete();
    stage.take(QStringLiteral("detail-delete-confirm"));
}

void takeEmail(Studio& studio) {
    Stage stage(studio, sampleLibrary());
    stage.model.share(stage.model.library().links[1]);
    stage.take(QStringLiteral("email-default"));
    auto& form = stage.screen<EmailShareForm>();
    form.setIncludeNote(true);
    form.setNote(QStringLiteral(
        "Thought of your weekend loaf. The timetable in the middle is the good part."));
    stage.desk.opener.takes = false;
    form.openMail();
    stage.take(QStringLiteral("email-note-error"));
}

void takeCleanup(Studio& studio) {
    Stage stage(studio, sampleLibrary());
    stage.model.tabCleanup().runTabCleanup();
    await([&] { return stage.model.tabCleanup().cleanupReview().has_value(); });
    stage.screen<CleanupReviewList>().toggle(2);
    stage.take(QStringLiteral("cleanup-default"));
}

void takeTags(Studio& studio) {
    Stage stage(studio, sampleLibrary());
    stage.model.setSection(AppSection::tags);
    auto& screen = stage.screen<TagsScreen>();
    stage.take(QStringLiteral("tags-list"));
    screen.beginRename(3);
    stage.take(QStringLiteral("tags-rename"));
    screen.cancelRename();
    screen.sortByMostLinks();
    stage.enter(QStringLiteral("TagsView"), "openMenu");
    stage.take(QStringLiteral("tags-sort-menu"));
    stage.enter(QStringLiteral("TagsView"), "closeMenu");
    screen.askRemoval(2);
    stage.take(QStringLiteral("tags-remove-confirm"));
}

void takeNoTags(Studio& studio) {
    Stage stage(studio, {});
    stage.model.completeOnboarding();
    stage.model.setSection(AppSection::tags);
    stage.take(QStringLiteral("tags-empty"));
}

} // namespace

void takeSheets(Studio& studio) {
    takeAdd(studio);
    takeLowAdd(studio);
    takeDetail(studio);
    takeEmail(studio);
    takeCleanup(studio);
    takeTags(studio);
    takeNoTags(studio);
}

} // namespace brinmoor
