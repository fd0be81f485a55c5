#pragma once

#include "platform/Subscription.h"

#include <QList>
#include <QObject>
#include <QQmlEngine>
#include <QQmlListProperty>
#include <QString>

#include <memory>
#include <optional>

// Last, since moc stumbles over <compare> as the first header of the standard library.
#include "core/capture/CaptureShortcut.h"

Q_MOC_INCLUDE("screens/BrowserAccess.h")
Q_MOC_INCLUDE("screens/OwnerUsage.h")
Q_MOC_INCLUDE("screens/ShortcutRecorder.h")

namespace brinmoor {

class AppModel;
class BrowserAccess;
class OwnerUsage;
class ShortcutRecorder;

/// The user's switches, the shortcuts, the theme, the updates and the care of the library. Every
/// change takes effect at once.
class SettingsScreen final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the library window")
    Q_PROPERTY(Tab tab READ tab WRITE setTab NOTIFY tabChanged FINAL)
    Q_PROPERTY(bool showsBrowserAccess READ showsBrowserAccess NOTIFY pageChanged FINAL)
    Q_PROPERTY(brinmoor::BrowserAccess* browserAccess READ browserAccess CONSTANT FINAL)
    Q_PROPERTY(bool dark READ isDark NOTIFY appearanceChanged FINAL)
    Q_PROPERTY(bool sharesUsage READ sharesUsage WRITE setSharesUsage NOTIFY changed FINAL)
    Q_PROPERTY(bool offersCopiedLinks READ offersCopiedLinks WRITE setOffersCopiedLinks NOTIFY
                   changed FINAL)
    Q_PROPERTY(bool suggestsTags READ suggestsTags WRITE setSuggestsTags NOTIFY changed FINAL)
    Q_PROPERTY(
        bool closesSourceTab READ closesSourceTab WRITE setClosesSourceTab NOTIFY changed FINAL)
    Q_PROPERTY(QString version READ version CONSTANT FINAL)
    Q_PROPERTY(bool hasUpdates READ hasUpdates NOTIFY updatesChanged FINAL)
    Q_PROPERTY(QString updatesNote READ updatesNote NOTIFY updatesChanged FINAL)
    Q_PROPERTY(bool canCheckForUpdates READ canCheckForUpdates NOTIFY updatesChanged FINAL)
    Q_PROPERTY(bool checksAutomatically READ checksAutomatically WRITE setChecksAutomatically NOTIFY
                   updatesChanged FINAL)
    Q_PROPERTY(brinmoor::OwnerUsage* ownerUsage READ ownerUsage CONSTANT FINAL)
    Q_PROPERTY(QQmlListProperty<brinmoor::ShortcutRecorder> shortcuts READ shortcuts CONSTANT FINAL)
    Q_PROPERTY(bool hasShortcutErrors READ hasShortcutErrors NOTIFY shortcutsChanged FINAL)
    Q_PROPERTY(bool canArchiveAll READ canArchiveAll NOTIFY libraryChanged FINAL)
    Q_PROPERTY(QString archiveTitle READ archiveTitle NOTIFY archiveTitleChanged FINAL)

public:
    enum Tab { General, Capture, Library };
    Q_ENUM(Tab)

    /// The model outlives the screen.
    explicit SettingsScreen(AppModel& model, QObject* parent = nullptr);
    ~SettingsScreen() override;

    [[nodiscard]] Tab tab() const noexcept { return tab_; }
    void setTab(Tab tab);
    [[nodiscard]] bool showsBrowserAccess() const;
    [[nodiscard]] BrowserAccess* browserAccess() const noexcept { return browserAccess_; }

    [[nodiscard]] bool isDark() const;
    [[nodiscard]] bool sharesUsage() const;
    void setSharesUsage(bool on);
    [[nodiscard]] bool offersCopiedLinks() const;
    void setOffersCopiedLinks(bool on);
    [[nodiscard]] bool suggestsTags() const;
    void setSuggestsTags(bool on);
    [[nodiscard]] bool closesSourceTab() const;
    void setClosesSourceTab(bool on);

    /// "Brinmoor 1.0 (1)".
    [[nodiscard]] QString version() const;
    [[nodiscard]] bool hasUpdates() const;
    /// What the updates do, or why there are none.
    [[nodiscard]] QString updatesNote() const;
    [[nodiscard]] bool canCheckForUpdates() const;
    [[nodiscard]] bool checksAutomatically() const;
    void setChecksAutomatically(bool on);
    [[nodiscard]] OwnerUsage* ownerUsage() const noexcept { return ownerUsage_; }

    [[nodiscard]] QQmlListProperty<ShortcutRecorder> shortcuts() { return {this, &shortcuts_}; }
    [[nodiscard]] ShortcutRecorder* shortcut(int place) const { return shortcuts_.at(place); }
    [[nodiscard]] bool hasShortcutErrors() const;

    [[nodiscard]] bool canArchiveAll() const;
    /// The question before everything is archived; empty while nothing is asked.
    [[nodiscard]] QString archiveTitle() const;

    /// Shows the settings of the shortcuts.
    Q_INVOKABLE void showCapture();
    /// Shows the settings with the page of the browsers in front.
    Q_INVOKABLE void showBrowserAccess();
    Q_INVOKABLE void leaveBrowserAccess();
    /// Goes to the library.
    Q_INVOKABLE void goBack();
    Q_INVOKABLE void chooseAppearance(bool dark);
    Q_INVOKABLE void checkForUpdates();
    Q_INVOKABLE void openAccount();
    Q_INVOKABLE void previewClipboardOffer();
    Q_INVOKABLE void applyPreset();
    Q_INVOKABLE void showTour();
    /// Asks first.
    Q_INVOKABLE void archiveAll();
    Q_INVOKABLE void confirmArchiveAll();
    Q_INVOKABLE void cancelArchiveAll();
    Q_INVOKABLE void exportBackup();
    Q_INVOKABLE void importBackup();
    Q_INVOKABLE void showInFiles();

Q_SIGNALS:
    void tabChanged();
    void pageChanged();
    void appearanceChanged();
    void changed();
    void updatesChanged();
    void shortcutsChanged();
    void libraryChanged();
    void archiveTitleChanged();

private:
    void follow();
    void makeRecorders();
    void showShortcuts();
    /// While one recorder records, no hot key is live; two would let them go live in between.
    void endRecordings(std::optional<CaptureAction> except = {});
    void sectionChanged();
    struct ArchiveQuestion;
    void askToArchive(std::unique_ptr<ArchiveQuestion> question);
    [[nodiscard]] Tab firstTab() const;

    AppModel& model_;
    BrowserAccess* browserAccess_;
    OwnerUsage* ownerUsage_;
    QList<ShortcutRecorder*> shortcuts_;
    Subscription appearance_;
    Tab tab_ = General;
    bool shown_ = false;
    bool showedBrowserAccess_ = false;
    std::unique_ptr<ArchiveQuestion> question_;
};

} // namespace brinmoor
