#include "app/AppModel.h"

#include "app/AppUpdater.h"
#include "app/BrowserConnections.h"
#include "app/ClipboardMonitor.h"
#include "app/GlobalShortcut.h"
#include "app/SavedSettings.h"
#include "app/TabCleanup.h"
#include "browser/TabSearchModel.h"
#include "core/text/Wording.h"
#include "platform/Clock.h"
#include "platform/Preferences.h"

#include <utility>

namespace brinmoor {

using text::worded;

AppModel::AppModel(const AppParts& parts)
    : clock_(parts.clock), files_(parts.files), opener_(parts.opener),
      pasteboard_(parts.pasteboard), preferences_(parts.preferences), file_(parts.libraryPath),
      build_(parts.build) {
    updater_ = std::make_unique<AppUpdater>(build_, parts.updater);
    account_ = std::make_unique<AccountController>(parts.account);
    analytics_ =
        std::make_unique<UsageAnalytics>(clock_, parts.makeUsageSession, parts.account.serviceURL);
    clipboard_ = std::make_unique<ClipboardMonitor>(pasteboard_, clock_);
    const SavedSettings saved = SavedSettings::read(preferences_);
    clipboardEnabled_ = saved.clipboardEnabled;
    analyticsEnabled_ = saved.analyticsEnabled;
    closeAfterQuickSave_ = saved.closeAfterQuickSave;
    autoTaggingEnabled_ = saved.autoTaggingEnabled;
    tabSearch_ = std::make_unique<TabSearchModel>(parts.workspace, parts.scripts);
    browserConnections_ =
        std::make_unique<BrowserConnections>(parts.browsers, parts.workspace, parts.scripts);
    captureService_ =
        std::make_unique<BrowserCapture>(parts.workspace, preferences_, clock_, parts.scripts);
    tabCleanup_ =
        std::make_unique<TabCleanup>(parts.workspace, parts.scripts, preferences_, clock_);
    hotkey_ = std::make_unique<GlobalShortcut>(parts.hotKeys);
    shortcuts_ = savedShortcuts(preferences_);
    loadLibrary();
    if (!loadFailed_) {
        onboardingCompleted_ = preferences_.boolean("hasCompletedOnboarding");
        showingOnboarding_ = !onboardingCompleted_;
    }
    account_->onChange = [this] { showOnboardingIfNeededForActiveAccount(); };
    analytics_->configure(analyticsEnabled_);
    count(UsageEvent::appOpened);
    clipboard_->onLink = [this](const WebAddress& address) { offerClipboard(address); };
    if (clipboardEnabled_)
        clipboard_->start();
    tabSearch_->save = [this](OpenBrowserTab tab) { return saveOpenTab(std::move(tab)); };
    tabCleanup_->notify = [this](const CaptureNotice& notice) { notify(notice); };
    hotkey_->action = [this](CaptureAction action) { capture(action); };
    hotkey_->lost = [this](CaptureAction action) {
        setShortcutError(action, worded("Unavailable. Choose another shortcut."));
    };
    restoreShortcuts();
}

AppModel::~AppModel() = default;

void AppModel::loadLibrary() {
    auto loaded = file_.load();
    if (loaded) {
        library_ = std::make_shared<const Library>(std::move(loaded).value());
        return;
    }
    loadFailed_ = true;
    error_ = worded("Your saved library couldn’t be opened. The original file has been kept "
                    "untouched at ") +
             file_.path() + worded(". Restore a valid backup there, then restart Brinmoor. ") +
             loaded.error().description();
}

std::string AppModel::lockedWords() const {
    return worded("Your library couldn’t be opened. Restore a valid backup and restart "
                  "Brinmoor. Your original file is unchanged.");
}

bool AppModel::commit(Library next, Feedback feedback, std::optional<UndoTitle> undo) {
    if (loadFailed_) {
        report(lockedWords(), feedback);
        return false;
    }
    if (const auto saved = file_.save(next); !saved) {
        report(worded("Couldn’t write to your library. ") + saved.error().description(), feedback);
        return false;
    }
    if (next == *library_)
        return true;
    setLibraryUndo(
        undo ? std::optional(LibraryUndo{library_, worded(undo->words), undo->clearsArchiveUndo})
             : std::nullopt);
    library_ = std::make_shared<const Library>(std::move(next));
    Q_EMIT libraryChanged();
    return true;
}

void AppModel::report(std::string text, Feedback feedback) {
    if (feedback == Feedback::error)
        setError(std::move(text));
    else
        notify({.id = clock_.newUuid(),
                .title = worded("Couldn’t save your tab"),
                .message = std::move(text),
                .isError = true,
                .clipboardURL = {}});
}

QString AppModel::errorText() const {
    return error_ ? QString::fromStdString(*error_) : QString();
}

void AppModel::setError(std::optional<std::string> text) {
    error_ = std::move(text);
    Q_EMIT errorChanged();
}

void AppModel::dismissError() {
    setError(std::nullopt);
}

void AppModel::say(std::string_view title, std::string_view message, Tone tone) {
    notify({.id = clock_.newUuid(),
            .title = worded(title),
            .message = worded(message),
            .isError = tone == Tone::failure,
            .clipboardURL = {}});
}

void AppModel::notify(const CaptureNotice& notice) {
    toast_ = notice;
    Q_EMIT toastChanged();
    if (showToast)
        showToast(notice);
    toastEnd_ = clock_.after(notice.duration(), [this, id = notice.id] {
        if (toast_ && toast_->id == id)
            dismissToast();
    });
}

void AppModel::dismissToast() {
    toast_.reset();
    Q_EMIT toastChanged();
}

} // namespace brinmoor
