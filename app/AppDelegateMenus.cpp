// The menus and what their entries do.

#include "app/AppDelegate.h"

#include "app/AppUpdater.h"
#include "app/TabCleanup.h"
#include "browser/TabSearchModel.h"
#include "core/text/Wording.h"

namespace brinmoor {
namespace {

using text::worded;

const MenuItem separator;

MenuItem item(std::string_view title, std::function<void()> run, std::string key = {}) {
    return {
        .title = worded(title), .key = std::move(key), .run = std::move(run), .isEnabled = nullptr};
}

} // namespace

void AppDelegate::setupMenus() {
    const auto capturing = [this](std::string_view title, CaptureAction action) {
        return item(title, [this, action] { capture(action); });
    };
    const auto window = [this](std::string_view title, WindowCommand command, std::string key) {
        return item(
            title, [this, command] { panels_.perform(command); }, std::move(key));
    };
    AppModel& model = *model_;
    MenuItem updates = item("Check for Updates…", [&model] { model.updater().checkForUpdates(); });
    updates.isEnabled = [&model] { return model.updater().validateMenuItem(); };
    MenuItem undo = item(
        "Undo", [this] { performUndo(); }, "Z");
    undo.isEnabled = [this] { return canUndo(); };

    Menu application{.title = "Brinmoor", .items = {}};
    application.items = {item("Account…", [this] { openAccount(); }),
                         item(
                             "Settings…", [this] { openSettings(); }, ","),
                         separator,
                         updates,
                         separator,
                         window("Hide Brinmoor", WindowCommand::hide, "H"),
                         window("Quit Brinmoor", WindowCommand::quit, "Q")};
    Menu file{.title = worded("File"), .items = {}};
    file.items = {
        item("Search Open Tabs…", [this] { openTabSearch(); }),
        item("Close Duplicate Tabs", [&model] { model.tabCleanup().closeDuplicateTabs(); }),
        item("Clean Up Tabs…", [&model] { model.tabCleanup().runTabCleanup(); }),
        item("Save Copied Link", [&model] { model.saveCurrentClipboard(); }),
        item(
            "Add Link…", [this] { addLink(); }, "N"),
        item(
            "Open Library", [this] { openLibrary(); }, "0"),
        separator,
        capturing("Save Current Browser Tab", CaptureAction::quick),
        capturing("Save with a Note…", CaptureAction::note),
        capturing("Save Selected Tabs…", CaptureAction::selected),
        capturing("Save Browser Window", CaptureAction::window),
        separator,
        item("Import Backup…", [this] { importLibrary(); }),
        item("Export Backup…", [&model] { model.exportLibrary(); }),
        separator,
        window("Close Window", WindowCommand::closeWindow, "W")};
    Menu edit{.title = worded("Edit"), .items = {}};
    edit.items = {undo,
                  window("Cut", WindowCommand::cut, "X"),
                  window("Copy", WindowCommand::copy, "C"),
                  window("Paste", WindowCommand::paste, "V"),
                  window("Select All", WindowCommand::selectAll, "A"),
                  separator,
                  item(
                      "Find…", [this] { focusSearch(); }, "F")};
    panels_.setMainMenu({std::move(application), std::move(file), std::move(edit)});
}

void AppDelegate::setupStatusItem() {
    const auto capturing = [this](std::string_view title, CaptureAction action) {
        return item(title, [this, action] { capture(action); });
    };
    AppModel& model = *model_;
    MenuItem updates = item("Check for Updates…", [&model] { model.updater().checkForUpdates(); });
    updates.isEnabled = [&model] { return model.updater().validateMenuItem(); };

    Menu menu{.title = "Brinmoor", .items = {}};
    menu.items = {
        item("Open Brinmoor", [this] { openLibrary(); }),
        item("Search open tabs…", [this] { openTabSearch(); }),
        item("Close duplicate tabs", [&model] { model.tabCleanup().closeDuplicateTabs(); }),
        item("Clean up tabs…", [&model] { model.tabCleanup().runTabCleanup(); }),
        separator,
        capturing("Save current tab", CaptureAction::quick),
        item("Save copied link", [&model] { model.saveCurrentClipboard(); }),
        capturing("Save with a note…", CaptureAction::note),
        capturing("Save selected tabs…", CaptureAction::selected),
        capturing("Save all tabs in this window", CaptureAction::window),
        item("Add a link…", [this] { addLink(); }),
        separator,
        item("Account…", [this] { openAccount(); }),
        item("Settings…", [this] { openSettings(); }),
        updates,
        item(
            "Quit Brinmoor", [this] { panels_.perform(WindowCommand::quit); }, "Q")};
    panels_.setStatusItem(std::move(menu));
}

void AppDelegate::capture(CaptureAction action) {
    model_->capture(action);
}

void AppDelegate::openTabSearch() {
    if (!tabSearchPanel_) {
        tabSearchPanel_ = panels_.tabSearch(*model_);
        tabSearchPanel_->center();
    }
    model_->tabSearch().setQuery({});
    model_->tabSearch().refresh();
    tabSearchPanel_->makeKeyAndOrderFront();
}

void AppDelegate::addLink() {
    openLibrary();
    afterThis([this] { model_->presentAdd(); });
}

void AppDelegate::focusSearch() {
    openLibrary();
    model_->focusSearch();
}

void AppDelegate::importLibrary() {
    afterThis([this] { model_->importLibrary(); });
}

bool AppDelegate::canUndo() const {
    return panels_.canPerform(WindowCommand::undoText) || model_->hasLibraryUndo();
}

void AppDelegate::performUndo() {
    if (panels_.canPerform(WindowCommand::undoText))
        panels_.perform(WindowCommand::undoText);
    else
        model_->undoLastAction();
}

} // namespace brinmoor
