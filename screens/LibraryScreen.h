#pragma once

#include "screens/LibraryList.h"
#include "screens/LibrarySearch.h"
#include "screens/LinkCommands.h"

#include <QObject>
#include <QQmlEngine>
#include <QString>

#include "core/library/Library.h"
#include "core/search/FilteredLibrary.h"
#include "platform/Subscription.h"

namespace brinmoor {

class AppModel;

/// What the library screen shows: the links, what narrows them, and the few things that are said
/// around them. Follows the model.
class LibraryScreen final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the library window")
    Q_PROPERTY(brinmoor::LibraryList* links READ links CONSTANT FINAL)
    Q_PROPERTY(brinmoor::LibrarySearch* search READ search CONSTANT FINAL)
    Q_PROPERTY(brinmoor::LinkCommands* commands READ commands CONSTANT FINAL)
    /// Whether the last change of the rows was one of the library, and not of what is looked for.
    Q_PROPERTY(bool rowsMoved READ rowsMoved NOTIFY rowsMovedChanged FINAL)
    Q_PROPERTY(bool archiveEmpty READ isArchiveEmpty NOTIFY archiveEmptyChanged FINAL)
    Q_PROPERTY(EmptyState emptyState READ emptyState NOTIFY emptyStateChanged FINAL)
    Q_PROPERTY(QString shortcutLabel READ shortcutLabel NOTIFY hintChanged FINAL)
    Q_PROPERTY(bool closesAfterSave READ closesAfterSave NOTIFY hintChanged FINAL)
    Q_PROPERTY(QString undoMessage READ undoMessage NOTIFY undoChanged FINAL)
    Q_PROPERTY(bool showsUsageNotice READ showsUsageNotice NOTIFY bannersChanged FINAL)
    Q_PROPERTY(bool offersTour READ offersTour NOTIFY bannersChanged FINAL)
    Q_PROPERTY(QString bulkQuestion READ bulkQuestion NOTIFY bulkActionChanged FINAL)

public:
    /// What stands where the links will be.
    enum EmptyState { NothingSaved, NothingArchived, NothingFound };
    Q_ENUM(EmptyState)

    /// The model outlives the screen.
    explicit LibraryScreen(AppModel& model, QObject* parent = nullptr);

    [[nodiscard]] LibraryList* links() noexcept { return &links_; }
    [[nodiscard]] LibrarySearch* search() noexcept { return &search_; }
    [[nodiscard]] LinkCommands* commands() noexcept { return &commands_; }
    [[nodiscard]] bool rowsMoved() const noexcept { return rowsMoved_; }
    [[nodiscard]] EmptyState emptyState() const;
    [[nodiscard]] bool isArchiveEmpty() const noexcept { return archiveEmpty_; }

    /// The keys that save a tab, and whether saving also closes it.
    [[nodiscard]] QString shortcutLabel() const;
    [[nodiscard]] bool closesAfterSave() const;

    /// What was archived or restored last, while it can be taken back; empty otherwise.
    [[nodiscard]] QString undoMessage() const;
    Q_INVOKABLE void undoArchive();
    Q_INVOKABLE void dismissUndo();

    [[nodiscard]] bool showsUsageNotice() const;
    Q_INVOKABLE void dismissUsageNotice();
    [[nodiscard]] bool offersTour() const;
    Q_INVOKABLE void continueTour();

    /// The title of the question before the archive is emptied; empty when it isn't asked.
    [[nodiscard]] const QString& bulkQuestion() const noexcept { return bulkQuestion_; }
    /// Asks before every archived link is removed for good.
    Q_INVOKABLE void askToEmptyArchive();
    /// Removes the links that the question was about.
    Q_INVOKABLE void emptyArchive();
    Q_INVOKABLE void cancelBulkAction();

    Q_INVOKABLE void changeShortcut() { Q_EMIT shortcutSettingsWanted(); }

Q_SIGNALS:
    void rowsMovedChanged();
    void emptyStateChanged();
    void archiveEmptyChanged();
    void hintChanged();
    void undoChanged();
    void bannersChanged();
    void bulkActionChanged();
    /// The footer's hint asks for the settings of the shortcuts.
    void shortcutSettingsWanted();
    /// The search field is to have the keyboard.
    void searchFocusWanted();
    /// Another search: the list begins at its top.
    void listRestarted();

private:
    void follow();
    void showLinks();
    void showSearch();
    void showChangedLibrary();
    void setRowsMoved(bool moved);
    void lookIntoArchive();
    void setBulkAction(UuidSet ids);
    void refreshDays();

    AppModel& model_;
    FilteredLibrary filtered_;
    LibraryList links_;
    LibrarySearch search_;
    LinkCommands commands_;
    UuidSet bulkAction_;
    QString bulkQuestion_;
    bool rowsMoved_ = false;
    bool archiveEmpty_ = true;
    Subscription usageNotice_;
    Subscription nextMinute_;
};

} // namespace brinmoor
