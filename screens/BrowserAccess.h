#pragma once

#include "app/BrowserConnections.h"

#include <QAbstractListModel>
#include <QQmlEngine>
#include <QString>

#include <map>
#include <set>
#include <vector>

namespace brinmoor {

class AppModel;

/// The page that says which browsers let the program in and how the others are let.
class BrowserAccess final : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the settings screen")
    Q_PROPERTY(bool checking READ isChecking NOTIFY changed FINAL)
    Q_PROPERTY(bool empty READ isEmpty NOTIFY changed FINAL)

public:
    /// How a state is drawn beside its words.
    enum Mark { Spinner, Filled, Failing, Ring, NoMark };
    Q_ENUM(Mark)
    enum Role {
        NameRole = Qt::UserRole, ///< what the row is called
        BrowserRole,             ///< the browser itself
        MarkRole,
        WordsRole,     ///< the state
        NoteRole,      ///< why this browser can't be connected; often empty
        HasStepsRole,  ///< whether there is something to be done
        ExpandedRole,  ///< whether the steps are shown
        StepsRole,     ///< their texts
        CopyablesRole, ///< what each of them lets be copied; the same length
    };

    /// The model outlives it.
    explicit BrowserAccess(AppModel& model, QObject* parent = nullptr);

    [[nodiscard]] bool isChecking() const;
    [[nodiscard]] bool isEmpty() const;

    Q_INVOKABLE void check();
    Q_INVOKABLE void toggleSteps(int row);
    /// Takes a step's text to the clipboard.
    Q_INVOKABLE void copy(const QString& text);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void changed();

private:
    using Entry = BrowserConnections::Entry;
    void show();
    /// Where one browser alone has something to be done, it is what the user came for.
    void unfoldOnlySteps();
    [[nodiscard]] std::vector<ConnectionStep> stepsOf(const Entry& entry) const;

    AppModel& model_;
    BrowserConnections& connections_;
    std::vector<Entry> entries_;
    std::set<std::string> expanded_;
    bool unfolded_ = false; ///< once: what the user folds stays folded
    std::map<std::string, BrowserConnections::State> settled_; ///< what the last answer said
};

} // namespace brinmoor
