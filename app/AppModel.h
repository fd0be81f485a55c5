#pragma once

#include "account/AccountController.h"
#include "app/AppBuild.h"
#include "app/CaptureDraft.h"
#include "browser/BrowserCapture.h"
#include "core/capture/CaptureNotice.h"
#include "core/capture/CaptureShortcut.h"
#include "core/library/Library.h"
#include "core/library/LibraryFile.h"
#include "core/search/LibraryFilter.h"
#include "core/usage/UsageEvent.h"
#include "platform/Subscription.h"
#include "usage/UsageAnalytics.h"

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

class AppUpdater;
class BrowserConnections;
class BrowserSetup;
class ClipboardMonitor;
class Clock;
class FileDialogs;
class GlobalShortcut;
class HotKeys;
class Pasteboard;
class Preferences;
class ScriptRunner;
class SystemOpener;
class TabCleanup;
class TabSearchModel;
class Updater;
class Workspace;
struct OpenBrowserTab;

enum class AppSection { library, tags, account, settings };

/// Whether a copied link is saved at once or annotated first.
enum class ClipboardSave { atOnce, withNote };

/// What the model needs from outside. All of it outlives the model.
struct AppParts {
    BrowserSetup& browsers;
    Clock& clock;
    FileDialogs& files;
    HotKeys& hotKeys;
    SystemOpener& opener;
    Pasteboard& pasteboard;
    Preferences& preferences;
    ScriptRunner& scripts;
    Workspace& workspace;
    std::string libraryPath;
    AccountParts account;
    UsageAnalytics::SessionFactory makeUsageSession;
    AppBuild build = {};
    Updater* updater = nullptr; ///< absent where this system has none
};

/// The last archiving or restoring, which the library screen offers to take back.
struct ArchiveUndo {
    UuidSet ids;
    bool archived = false; ///< the state that was set
    friend bool operator==(const ArchiveUndo&, const ArchiveUndo&) = default;
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
    std::function<void()> showAccount;
    std::function<void()> showTabSearch;
    std::function<void(const CaptureNotice&)> showToast;
    std::function<void(const CaptureDraft&)> showCaptureEditor;
    std::function<void()> closeCaptureEditor;
    std::function<void(const TabSelectionDraft&)> showTabSelection;
    std::function<void()> closeTabSelection;
    /// Takes an open offer of a copied link from the screen.
    std::function<void()> dismissClipboardNotice;

    // The services.
    [[nodiscard]] AccountController& account() const noexcept { return *account_; }
    [[nodiscard]] const UsageAnalytics& analytics() const noexcept { return *analytics_; }
    [[nodiscard]] AppUpdater& updater() const noexcept { return *updater_; }
    [[nodiscard]] BrowserConnections& browserConnections() const noexcept {
        return *browserConnections_;
    }
    [[nodiscard]] const AppBuild& build() const noexcept { return build_; }

    // The document.
    [[nodiscard]] const Library& library() const noexcept { return *library_; }
    /// The library as it is now, for whoever goes on looking at it while it changes.
    [[nodiscard]] const std::shared_ptr<const Library>& currentLibrary() const noexcept {
        return library_;
    }
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
    void notify(const CaptureNotice& notice);
    /// Forgets the notice that is showing.
    void dismissToast();

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

    // Commands of the library screens. Each is written before it is adopted; a failure is told in
    // `error` and changes nothing.
    /// False when no link of `ids` changed, or the change could not be written.
    bool setArchived(bool archived, const UuidSet& ids);
    /// Takes the last archiving or restoring back.
    void undoArchive();
    /// Removes archived links for good; there is no undo.
    void emptyArchive(const UuidSet& ids);
    void deleteLink(const SavedLink& link);
    /// Takes the last undoable change of the library back, one level deep.
    void undoLastAction();
    bool renameTag(const std::string& old, const std::string& to);
    bool deleteTag(const std::string& tag);
    /// Adopts title, note, tags and favourite of the link with this id.
    QCoro::Task<bool> update(SavedLink link);
    QCoro::Task<bool> toggleFavorite(Uuid id);
    QCoro::Task<bool> labelImportance(Uuid id, std::optional<LinkImportance> importance);
    void open(const SavedLink& link);
    void copy(const SavedLink& link);
    /// Takes a text that is no link, such as a path, to the clipboard.
    void copyText(const std::string& text);
    void share(const SavedLink& link);
    void revealLibrary();
    [[nodiscard]] const std::optional<ArchiveUndo>& archiveUndo() const noexcept {
        return archiveUndo_;
    }
    void dismissArchiveUndo();

    // Other programs.
    /// The copied text; absent when something else or nothing is copied.
    [[nodiscard]] std::optional<std::string> copiedText() const;
    /// Opens the mail program with an e-mail to nobody yet; false when there is none.
    bool composeMail(const std::string& subject, const std::string& body);

    // Backups. A dialog asks for the file.
    void exportLibrary();
    void importLibrary();

    // Copied links.
    [[nodiscard]] ClipboardMonitor& clipboard() const noexcept { return *clipboard_; }
    void saveClipboard(const std::string& url, ClipboardSave how);
    void saveCurrentClipboard();
    /// Shows what the offer of a copied link looks like.
    void previewClipboardOffer();

    // Open tabs.
    [[nodiscard]] TabSearchModel& tabSearch() const noexcept { return *tabSearch_; }
    [[nodiscard]] TabCleanup& tabCleanup() const noexcept { return *tabCleanup_; }

    // Screens.
    [[nodiscard]] AppSection section() const noexcept { return section_; }
    void setSection(AppSection section);
    /// The settings show the page about the connections to browsers; over once they are left.
    [[nodiscard]] bool isShowingBrowserAccess() const noexcept { return showingBrowserAccess_; }
    void presentBrowserAccess();
    void endBrowserAccess();
    /// The keyboard is wanted in the search field.
    void focusSearch();
    /// What the library screen is set to show.
    [[nodiscard]] const LibraryFilter& view() const noexcept { return view_; }
    void setView(LibraryFilter view);
    void clearFilters();
    void selectTag(const std::string& tag);
    [[nodiscard]] bool hasRefinements() const noexcept { return view_.hasRefinements(); }
    /// The link open in the detail pane; nullptr when there is none.
    [[nodiscard]] const SavedLink* selected() const;
    [[nodiscard]] std::optional<Uuid> selectedID() const noexcept { return selectedID_; }
    void setSelectedID(std::optional<Uuid> id);
    /// The row whose swipe actions stand open.
    [[nodiscard]] std::optional<Uuid> swipedLinkID() const noexcept { return swipedLinkID_; }
    void setSwipedLinkID(std::optional<Uuid> id);
    /// The link in the e-mail share sheet.
    [[nodiscard]] const std::optional<SavedLink>& sharingLink() const noexcept {
        return sharingLink_;
    }
    void endSharing();
    [[nodiscard]] bool isShowingAdd() const noexcept { return showingAdd_; }
    void setShowingAdd(bool showing);
    /// Opens the add sheet. Nothing happens while another sheet stands: what is typed there comes
    /// first.
    void presentAdd();
    [[nodiscard]] bool isShowingOnboarding() const noexcept { return showingOnboarding_; }
    [[nodiscard]] bool onboardingCompleted() const noexcept { return onboardingCompleted_; }
    void completeOnboarding();
    /// Shows the tour, or takes it away without its being finished.
    void setShowingOnboarding(bool showing);
    /// Shows the tour to a user who hasn't finished it. Never closes it.
    void showOnboardingIfNeededForActiveAccount();

    // Preferences; each setter writes its key.
    [[nodiscard]] bool closeAfterQuickSave() const noexcept { return closeAfterQuickSave_; }
    void setCloseAfterQuickSave(bool on);
    [[nodiscard]] bool autoTaggingEnabled() const noexcept { return autoTaggingEnabled_; }
    void setAutoTaggingEnabled(bool on);
    [[nodiscard]] bool clipboardEnabled() const noexcept { return clipboardEnabled_; }
    void setClipboardEnabled(bool on);
    [[nodiscard]] bool analyticsEnabled() const noexcept { return analyticsEnabled_; }
    void setAnalyticsEnabled(bool on);

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
    void searchFocusWanted();
    void viewChanged();
    void selectionChanged();
    void sheetsChanged();
    void archiveUndoChanged();
    void libraryUndoChanged();
    void preferencesChanged();
    void shortcutsChanged();

private:
    struct LibraryUndo {
        std::shared_ptr<const Library> library;
        std::string title;
        bool clearsArchiveUndo = false;
    };
    /// What a change is called in the undo, and whether its undoing ends the archive notice too.
    struct UndoTitle {
        std::string_view words;
        bool clearsArchiveUndo = false;
    };
    enum class Feedback { error, capture };
    enum class Tone { plain, failure };
    enum class Tagging { none, suggested };

    // The document and the words.
    void loadLibrary();
    /// The single door for a change of the library: written first, then adopted, then the undo
    /// record. False, with nothing changed and the failure reported, when it can't be written.
    [[nodiscard]] bool commit(Library next, Feedback feedback, std::optional<UndoTitle> undo);
    [[nodiscard]] std::string lockedWords() const;
    void count(UsageEvent event, std::size_t number = 1);
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
    /// Saves a page out of the tab search without reading it.
    QCoro::Task<bool> saveOpenTab(OpenBrowserTab tab);
    void endDraft();
    [[nodiscard]] const SavedLink* storedLink(std::string_view url) const;
    [[nodiscard]] SavedLink withSuggestedTags(const SavedLink& link) const;
    /// Counts a link that was saved with what the user wrote.
    void countSaved(const SavedLink& link, bool isNew);

    // Commands.
    /// Applies `change` to the stored link with this id and commits; false when it is not there.
    template <class Change>
    bool changeLink(Uuid id, std::string_view undoTitle, Change change);
    void setArchiveUndo(std::optional<ArchiveUndo> undo);
    void setLibraryUndo(std::optional<LibraryUndo> undo);
    void tagChanged(std::size_t links, std::string_view oneLink, std::string_view moreLinks);
    void exportTo(const std::string& path);
    void importFrom(const std::string& path);
    void offerClipboard(const WebAddress& address);
    [[nodiscard]] std::string onboardingKey() const;

    // Shortcuts.
    void adoptShortcuts(ShortcutMap shortcuts, const std::vector<CaptureAction>& failed);
    void setShortcutError(CaptureAction action, std::string text);

    Clock& clock_;
    FileDialogs& files_;
    SystemOpener& opener_;
    Pasteboard& pasteboard_;
    Preferences& preferences_;
    /// Never null; a change makes another one.
    std::shared_ptr<const Library> library_ = std::make_shared<const Library>();
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
    bool showingBrowserAccess_ = false;
    LibraryFilter view_;
    std::optional<Uuid> selectedID_;
    std::optional<Uuid> swipedLinkID_;
    std::optional<SavedLink> sharingLink_;
    std::optional<ArchiveUndo> archiveUndo_;
    bool showingAdd_ = false;
    bool showingOnboarding_ = false;
    bool onboardingCompleted_ = true;
    bool clipboardEnabled_ = false;
    bool analyticsEnabled_ = true;
    bool closeAfterQuickSave_ = false;
    bool autoTaggingEnabled_ = true;
    AppBuild build_;
    ShortcutMap shortcuts_;
    std::map<CaptureAction, std::string> shortcutErrors_;
    std::unique_ptr<AppUpdater> updater_;
    std::unique_ptr<AccountController> account_;
    std::unique_ptr<UsageAnalytics> analytics_;
    std::unique_ptr<ClipboardMonitor> clipboard_;
    std::unique_ptr<TabSearchModel> tabSearch_;
    std::unique_ptr<BrowserConnections> browserConnections_;
    std::unique_ptr<BrowserCapture> captureService_;
    std::unique_ptr<TabCleanup> tabCleanup_;
    std::unique_ptr<GlobalShortcut> hotkey_;
};

} // namespace brinmoor
