#pragma once

#include <QObject>
#include <QQmlEngine>
#include <QString>

namespace brinmoor {

class AppModel;
struct SavedLink;

/// What can be done with a link of the list. A link is named by its identifier, since its row may
/// move at any time; one that has gone is left alone.
class LinkCommands final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the library screen")
    /// The row whose swipe actions stand open; empty when there is none.
    Q_PROPERTY(QString swipedLink READ swipedLink NOTIFY swipedLinkChanged FINAL)

public:
    /// The model outlives the commands.
    explicit LinkCommands(AppModel& model, QObject* parent = nullptr);

    Q_INVOKABLE void open(const QString& link);
    Q_INVOKABLE void copy(const QString& link);
    Q_INVOKABLE void edit(const QString& link);
    Q_INVOKABLE void share(const QString& link);
    /// "important" or "notNeeded"; any other text takes the label away.
    Q_INVOKABLE void label(const QString& link, const QString& importance);
    Q_INVOKABLE void toggleFavorite(const QString& link);
    /// Archives a link, or brings an archived one back.
    Q_INVOKABLE void toggleArchived(const QString& link);
    Q_INVOKABLE void remove(const QString& link);

    [[nodiscard]] QString swipedLink() const;
    /// A swipe of this row begins: every other one closes.
    Q_INVOKABLE void beginSwipe(const QString& link);
    /// Every row closes, and a gesture that is under way does nothing more.
    Q_INVOKABLE void endSwipe();

Q_SIGNALS:
    void swipedLinkChanged();

private:
    [[nodiscard]] const SavedLink* stored(const QString& link) const;

    AppModel& model_;
};

} // namespace brinmoor
