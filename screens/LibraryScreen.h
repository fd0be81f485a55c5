#pragma once

#include "screens/LibraryList.h"

#include <QObject>
#include <QQmlEngine>
#include <QString>

#include <functional>

namespace brinmoor {

/// What the library window shows.
class LibraryScreen final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the library window")
    Q_PROPERTY(brinmoor::LibraryList* links READ links CONSTANT FINAL)
    Q_PROPERTY(QString shortcutLabel READ shortcutLabel NOTIFY hintChanged FINAL)
    Q_PROPERTY(bool closesAfterSave READ closesAfterSave NOTIFY hintChanged FINAL)
    Q_PROPERTY(QString error READ error NOTIFY errorChanged FINAL)

public:
    explicit LibraryScreen(std::function<void()> dismissError, QObject* parent = nullptr)
        : QObject(parent), dismissError_(std::move(dismissError)) {}

    [[nodiscard]] LibraryList* links() noexcept { return &links_; }

    /// The keys that save a tab, and whether saving also closes it.
    void setHint(const QString& shortcutLabel, bool closesAfterSave);
    [[nodiscard]] const QString& shortcutLabel() const noexcept { return shortcutLabel_; }
    [[nodiscard]] bool closesAfterSave() const noexcept { return closesAfterSave_; }

    /// Empty when there is none.
    void setError(const QString& error);
    [[nodiscard]] const QString& error() const noexcept { return error_; }
    Q_INVOKABLE void dismissError() { dismissError_(); }

Q_SIGNALS:
    void hintChanged();
    void errorChanged();

private:
    std::function<void()> dismissError_;
    LibraryList links_;
    QString shortcutLabel_;
    QString error_;
    bool closesAfterSave_ = false;
};

} // namespace brinmoor
