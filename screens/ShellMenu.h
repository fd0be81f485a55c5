#pragma once

#include "app/Menus.h"

#include <QList>
#include <QObject>
#include <QQmlEngine>
#include <QString>

namespace brinmoor {

/// One menu of the shell, as its window or the desktop draws it.
class ShellMenu final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the shell")
    Q_PROPERTY(QString title READ title CONSTANT FINAL)
    Q_PROPERTY(int count READ count CONSTANT FINAL)

public:
    ShellMenu(Menu menu, QObject* parent);

    [[nodiscard]] QString title() const;
    [[nodiscard]] int count() const;
    // Of the entry at `index`, 0 to count - 1.
    Q_INVOKABLE [[nodiscard]] bool isLine(int index) const;
    Q_INVOKABLE [[nodiscard]] QString titleAt(int index) const;
    /// The key sequence, "Ctrl+N" for instance; may be empty.
    Q_INVOKABLE [[nodiscard]] QString keyAt(int index) const;
    Q_INVOKABLE [[nodiscard]] bool isEnabledAt(int index) const;
    /// Does nothing for an entry that is not enabled.
    Q_INVOKABLE void choose(int index);

private:
    [[nodiscard]] const MenuItem& at(int index) const;

    Menu menu_;
};

/// The menus of the library window; empty until the shell has set them up.
class ShellMenus final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the shell")
    Q_PROPERTY(QVariantList all READ all NOTIFY changed FINAL)

public:
    explicit ShellMenus(QObject* parent) : QObject(parent) {}

    [[nodiscard]] QVariantList all() const;
    void set(std::vector<Menu> menus);

Q_SIGNALS:
    void changed();

private:
    QList<ShellMenu*> menus_;
};

} // namespace brinmoor
