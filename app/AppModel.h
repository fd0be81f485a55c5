#pragma once

#include "app/CaptureDraft.h"
#include "browser/BrowserCapture.h"
#include "core/capture/CaptureNotice.h"
#include "core/capture/CaptureShortcut.h"
#include "core/library/Library.h"
#include "core/library/LibraryFile.h"
#include "platform/Subscription.h"

#include <QCoroTask>
#include <QObject>
#include <QString>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace brinmoor {

class Clock;
class GlobalShortcut;
class HotKeys;
class Preferences;
class ScriptRunner;
class Workspace;

enum class AppSection { library, tags, account, settings };

/// What the model needs from outside. All of it outlives the model.
struct AppParts {
    Clock& clock;
    HotKeys& hotKeys;
    Preferences& preferences;
    ScriptRunner& scripts;
    Workspace& workspace;
    std::string libraryPath;
};

/// The one observable object of the application: the document, the screens' state and the flows
/// that change them. It never touches a window: it asks through the callbacks. Main thread.
///
/// A signal follows the change of every field that a screen shows.
class AppModel final : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString error READ errorText NOTIFY errorChanged)
    Q_PROPERTY(bool isCapturing READ isCapturing NOTIFY isCapturingChanged)

public:
    explicit AppModel(const AppParts& parts);
    ~AppModel() override;

    // What the shell installs after start.
    std::function<void()> showLibrary;
    std::function<void()> showSettings;
    std::function<void()> showTabSearch;
    std::function<void(const CaptureNotice&)> showToast;
    std::function<void(const CaptureDraft&)> showCaptureEditor;
    std::function<void()> closeCaptureEditor;
    std::function<void(const TabSelectionDraft&)> showTabSelection;
    std::function<void()> closeTabSelection;

    // The document.
    [[nodiscard]] const Library& library() const noexcept { return library_; }
    [[nodiscard]] const LibraryFile& file() const noexcept { return file_; }
    /// The file could not be read: nothing is written in this run.
    [[nodiscard]] bool loadFailed() const noexcept { return loadFailed_; }
    [[nodiscard]] bool hasLibraryUndo() const noexcept { return lastLibraryUndo_.has_value(); }

    // The two channels of words.
    [[nodiscard]] const std::optional<std::string>& error() const noexcept { return error_; }
    [[nodiscard]] QString errorText() const;
    Q_INVOKABLE void dismissError();
    [[nodiscard]] const std::optional<CaptureNotice>& toast() const noexcept { return toast_; }
    /// Shows a passing notice; a newer one replaces an older one at once.
    void notify(CaptureNotice notice);

    // Capture.
    /// Starts the command and returns at once.
    void capture(CaptureAction action);
    [[nodiscard]] bool isCapturing() const noexcept { return isCapturing_; }
    void beginDraft(SavedLink link, CaptureAction action,
                    std::optional<CapturedTabTarget> closeTarget);
    /// The link being annotated, while the quick capture panel is open.
    [[nodiscard]] const std::optional<CaptureDraft>& draft() const noexcept { return draft_; }
    /// Forgets the draft: the panel was cancelled.
    void discardDraft();
    /// True when the link was saved and the panel closed.
    QCoro::Task<bool> saveDraft(SavedLink link);

    [[nodiscard]] const std::optional<TabSelectionDraft>& tabSelection() const noexcept {
        return tabSelection_;
    }
    void updateTabSelection(UuidSet selected);
    void saveTabSelection();
    void discardTabSelection();

    /// Saves a link typed by hand; false, with `error` set, when nothing was saved.
    QCoro::Task<bool> add(std::string url, std::string title, std::string collection,
                          std::string note, std::vector<std::string> tags);

    // Screens.
    [[nodiscard]] AppSection section() const noexcept { return section_; }
    void setSection(AppSection section);

    // Preferences; each setter writes its key.
    [[nodiscard]] bool closeAfterQuickSave() const noexcept { return closeAfterQuickSave_; }
    void setCloseAfterQuickSave(bool on);
    [[nodiscard]] bool autoTaggingEnabled() const noexcept { return autoTaggingEnabled_; }
    void setAutoTaggingEnabled(bool on);

    // Shortcuts.
    [[nodiscard]] const ShortcutMap& shortcuts() const noexcept { return shortcuts_; }
    [[nodiscard]] const std::map<CaptureAction, std::string>& shortcutErrors() const noexcept {
        return shortcutErrors_;
    }
    /// `shortcut` absent: the recording was cancelled.
    void configureShortcut(std::optional<CaptureShortcut> shortcut, CaptureAction action);
    void restoreShortcuts();
    void applyMemorableShortcuts();
    /// No hot key is registered while a recording runs.
    void suspendShortcuts();

    [[nodiscard]] Clock& clock() const noexcept { return clock_; }
    [[nodiscard]] Preferences& preferences() const noexcept { return preferences_; }

Q_SIGNALS:
    void libraryChanged();
    void errorChanged();
    void isCapturingChanged();
    void draftChanged();
    void tabSelectionChanged();
    void toastChanged();
    void sectionChanged();
    void preferencesChanged();
    void shortcutsChanged();

private:
    struct LibraryUndo {
        Library library;
        std::string title;
    };
    enum class Feedback { error, capture };
    enum class Tone { plain, failure };
    enum class Tagging { none, suggested };

    // The document and the words.
    void loadLibrary();
    /// The single door for a change of the library: written first, then adopted, then the undo
    /// record. False, with nothing changed and the failure reported, when it can't be written.
    [[nodiscard]] bool commit(Library next, Feedback feedback,
                              std::optional<std::string> undoTitle);
    void report(std::string text, Feedback feedback);
    void setError(std::optional<std::string> text);
    void say(std::string_view title, std::string_view message, Tone tone = Tone::plain);

    // Capture.
    void setCapturing(bool capturing);
    void captureFailed(const CaptureFailure& failed);
    void captured(CaptureAction action, CapturedTabs tabs, bool closeAfter);
    bool saveCaptured(std::vector<SavedLink> links, Tagging tagging);
    static void refreshStored(Library& library, const std::vector<SavedLink>& captured);
    QCoro::Task<> closeAfterCapture(std::optional<CapturedTabTarget> target);
    void beginNote(SavedLink link, std::optional<CapturedTabTarget> closeTarget);
    void beginTabSelection(std::vector<SavedLink> links);
    void endDraft();
    [[nodiscard]] const SavedLink* storedLink(std::string_view url) const;
    [[nodiscard]] SavedLink withSuggestedTags(const SavedLink& link) const;

    // Shortcuts.
    void adoptShortcuts(ShortcutMap shortcuts, const std::vector<CaptureAction>& failed);
    void setShortcutError(CaptureAction action, std::string text);

    Clock& clock_;
    Preferences& preferences_;
    Library library_;
    LibraryFile file_;
    bool loadFailed_ = false;
    std::optional<LibraryUndo> lastLibraryUndo_;
    std::optional<std::string> error_;
    std::optional<CaptureNotice> toast_;
    Subscription toastEnd_;
    bool isCapturing_ = false;
    std::optional<CaptureDraft> draft_;
    std::optional<TabSelectionDraft> tabSelection_;
    AppSection section_ = AppSection::library;
    bool closeAfterQuickSave_ = false;
    bool autoTaggingEnabled_ = true;
    ShortcutMap shortcuts_;
    std::map<CaptureAction, std::string> shortcutErrors_;
    std::unique_ptr<BrowserCapture> captureService_;
    std::unique_ptr<GlobalShortcut> hotkey_;
};

} // namespace brinmoor
