#pragma once

#include "screens/LibraryScreen.h"

#include <QObject>
#include <QQmlEngine>
#include <QString>

namespace brinmoor {

class AppModel;

/// What the library window shows: which section, the screen of each, and the sheets above them.
class AppRoot final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the library window")
    /// "library", "tags", "account" or "settings".
    Q_PROPERTY(QString section READ section NOTIFY sectionChanged FINAL)
    /// What the application could not do; empty when there is nothing to tell.
    Q_PROPERTY(QString error READ error NOTIFY errorChanged FINAL)
    Q_PROPERTY(brinmoor::LibraryScreen* library READ library CONSTANT FINAL)

public:
    /// The model outlives it.
    explicit AppRoot(AppModel& model, QObject* parent = nullptr);

    [[nodiscard]] QString section() const;
    Q_INVOKABLE void showLibrary();
    Q_INVOKABLE void showTags();
    Q_INVOKABLE void showAccount();
    Q_INVOKABLE void showSettings();
    /// How each browser is connected, and how to connect it.
    Q_INVOKABLE void showBrowserAccess();
    Q_INVOKABLE void searchTabs();
    Q_INVOKABLE void addLink();

    [[nodiscard]] QString error() const;
    Q_INVOKABLE void dismissError();

    [[nodiscard]] LibraryScreen* library() noexcept { return &library_; }

Q_SIGNALS:
    void sectionChanged();
    void errorChanged();

private:
    AppModel& model_;
    LibraryScreen library_;
};

} // namespace brinmoor
