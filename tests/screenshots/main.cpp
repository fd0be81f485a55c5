// Writes the pictures of the screens in both themes: brinmoor-screenshots FOLDER

#include "app/AppModel.h"
#include "app/wording/LinuxWording.h"
#include "core/text/Fold.h"
#include "screens/QuickCaptureForm.h"
#include "screens/QuickPanel.h"
#include "tests/screens/TestDesktop.h"
#include "tests/screenshots/Studio.h"

#include <QCursor>
#include <QDir>
#include <QGuiApplication>
#include <QQuickItem>
#include <QScreen>

#include <cstdio>

namespace brinmoor {
namespace {

/// The passing messages, the capture panels and the library.
class Tour {
public:
    explicit Tour(Studio& studio) : studio_(studio), panels_(studio.panels()) {}

    void takeAll() {
        takeNotices();
        takeEditors();
        takeTabSelection();
        takeLibraries();
    }

private:
    void take(Panel& panel, const QString& name) { studio_.take(panel, name); }

    void takeNotice(const CaptureNotice& notice, const QString& name) {
        const auto panel = panels_.notice(notice, {});
        panel->setOrigin({40, 40});
        panel->orderFrontRegardless();
        take(*panel, name);
    }

    void takeNotices() {
        takeNotice({.id = {},
                    .title = "Tab saved",
                    .message = "Ready in your library whenever you need it.",
                    .clipboardURL = {}},
                   QStringLiteral("toast-saved"));
        takeNotice({.id = {},
                    .title = "Couldn’t capture this tab",
                    .message = "Try again with a web page open in your browser.",
                    .isError = true,
                    .clipboardURL = {}},
                   QStringLiteral("toast-error"));
        takeNotice(
            {.id = {},
             .title = "Browser access needed",
             .message = "Allow Brinmoor to read tabs from Chromium in browser access settings.",
             .isError = true,
             .opensAutomationSettings = true,
             .clipboardURL = {}},
            QStringLiteral("toast-access"));
        takeNotice({.id = {},
                    .title = "Save copied link?",
                    .message = "letterpress.studio",
                    .clipboardURL = "https://letterpress.studio/"},
                   QStringLiteral("toast-clipboard"));
    }

    void takeEditors() {
        Desk desk(sampleLibrary());
        AppModel model(desk.parts());
        SavedLink link = model.library().links[4];
        link.note = "For the harbour walk with Mara";
        link.tags = {"travel"};
        const auto panel =
            panels_.captureEditor(model, {link, CaptureAction::note, {}}, "Save with a note");
        panel->center();
        panel->makeKeyAndOrderFront();
        take(*panel, QStringLiteral("quickcapture-default"));
        auto& view = dynamic_cast<QuickPanel&>(*panel).view();
        auto* form = view.findChild<QuickCaptureForm*>();
        form->setTagInput(QStringLiteral("sp"));
        QMetaObject::invokeMethod(view.rootObject(), "enterTags");
        take(*panel, QStringLiteral("quickcapture-suggestions"));
    }

    void takeTabSelection() {
        Desk desk({});
        desk.scripts.answer = [](const ScriptRun&) {
            return testing::CannedScripts::Answer(tabs());
        };
        desk.workspace.running = {{.bundleIdentifier = "org.chromium.Chromium",
                                   .localizedName = "Chromium",
                                   .processIdentifier = 42}};
        desk.workspace.front = desk.workspace.running.front();
        AppModel model(desk.parts());
        model.capture(CaptureAction::selected);
        await([&] { return model.tabSelection().has_value(); });
        const auto draft = *model.tabSelection();
        UuidSet selected = draft.selected;
        selected.erase(draft.links[2].id);
        selected.erase(draft.links[4].id);
        model.updateTabSelection(selected);
        const auto panel = panels_.tabSelection(model, draft.id, "Save selected tabs");
        panel->center();
        panel->makeKeyAndOrderFront();
        take(*panel, QStringLiteral("tabselection-default"));
    }

    static QByteArray tabs() {
        QByteArray json = "[";
        for (const SavedLink& link : sampleLibrary().links) {
            if (json.size() > 1)
                json += ',';
            json += R"({"url":")" + QByteArray::fromStdString(link.url) + R"(","title":")" +
                    QByteArray::fromStdString(link.title) + R"(","metadata":{}})";
        }
        return json + "]";
    }

    void takeLibraries() {
        takeLibrary(sampleLibrary(), QStringLiteral("library-default"), {750, 680});
        takeLibrary(sampleLibrary(), QStringLiteral("library-minimum"), {640, 520});
        takeLibrary(sampleLibrary(), QStringLiteral("library-wide"), {1200, 680});
        takeLibrary({}, QStringLiteral("library-empty"), {750, 680});
        takeError();
    }

    void takeLibrary(const Library& library, const QString& name, QSize size) {
        Desk desk(library);
        AppModel model(desk.parts());
        const auto panel = panels_.libraryWindow(model);
        auto& view = dynamic_cast<QuickPanel&>(*panel).view();
        view.resize(size);
        panel->makeKeyAndOrderFront();
        await([&] { return view.size() == size; });
        take(*panel, name);
    }

    void takeError() {
        Desk desk(sampleLibrary());
        AppModel model(desk.parts());
        const auto panel = panels_.libraryWindow(model);
        panel->makeKeyAndOrderFront();
        bool ended = false;
        const auto adding = [&]() -> QCoro::Task<> {
            const bool added = co_await model.add("nonsense", "", "Inbox", "", {});
            ended = !added;
        };
        adding();
        await([&] { return ended; });
        take(*panel, QStringLiteral("library-error-alert"));
    }

    Studio& studio_;
    QuickPanels& panels_;
};

} // namespace
} // namespace brinmoor

int main(int count, char** arguments) {
    if (count != 2) {
        std::fputs("usage: brinmoor-screenshots FOLDER\n", stderr);
        return 2;
    }
    QGuiApplication application(count, arguments);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    brinmoor::installLinuxWording();
    brinmoor::text::setUserLocale("en_US");
    const brinmoor::testing::TestDesktop desktop;
    desktop.pretendCompositing();
    // Nothing in the pictures is under the pointer.
    QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight());
    const QString folder = QString::fromLocal8Bit(arguments[1]);
    if (!QDir().mkpath(folder)) {
        std::fputs("The folder can't be made.\n", stderr);
        return 1;
    }
    for (const auto appearance : {brinmoor::AppAppearance::cream, brinmoor::AppAppearance::black}) {
        brinmoor::Studio studio(folder, appearance);
        brinmoor::Tour(studio).takeAll();
        brinmoor::takeLibraryStates(studio);
        brinmoor::takeSettings(studio);
        brinmoor::takeTabSearch(studio);
        brinmoor::takeSheets(studio);
    }
    return 0;
}
