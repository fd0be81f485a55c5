#pragma once

#include "screens/LibraryList.h"

#include <QObject>
#include <QQmlEngine>
#include <QString>

namespace brinmoor {

/// What the library window shows.
class LibraryScreen final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the library window")
    Q_PROPERTY(brinmoor::LibraryList* links READ links CONSTANT FINAL)
    Q_PROPERTY(QString shortcutLabel READ shortcutLabel NOTIFY hintChanged FINAL)
    Q_PROPERTY(bool closesAfterSave READ closesAfterSave NOTIFY hintChanged FINAL)

public:
    explicit LibraryScreen(QObject* parent) : QObject(parent) {}

    [[nodiscard]] LibraryList* links() noexcept { return &links_; }

    /// The keys that save a tab, and whether saving also closes it.
    void setHint(const QString& shortcutLabel, bool closesAfterSave);
    [[nodiscard]] const QString& shortcutLabel() const noexcept { return shortcutLabel_; }
    [[nodiscard]] bool closesAfterSave() const noexcept { return closesAfterSave_; }

Q_SIGNALS:
    void hintChanged();

private:
    LibraryList links_;
    QString shortcutLabel_;
    bool closesAfterSave_ = false;
};

} // namespace brinmoor
