#include "screens/ShellMenu.h"

#include <utility>

namespace brinmoor {

ShellMenu::ShellMenu(Menu menu, QObject* parent) : QObject(parent), menu_(std::move(menu)) {}

QString ShellMenu::title() const {
    return QString::fromStdString(menu_.title);
}

int ShellMenu::count() const {
    return static_cast<int>(menu_.items.size());
}

const MenuItem& ShellMenu::at(int index) const {
    return menu_.items.at(static_cast<std::size_t>(index));
}

bool ShellMenu::isLine(int index) const {
    return at(index).title.empty();
}

QString ShellMenu::titleAt(int index) const {
    return QString::fromStdString(at(index).title);
}

QString ShellMenu::keyAt(int index) const {
    const std::string& key = at(index).key;
    return key.empty() ? QString() : QStringLiteral("Ctrl+") + QString::fromStdString(key);
}

bool ShellMenu::isEnabledAt(int index) const {
    return !at(index).isEnabled || at(index).isEnabled();
}

void ShellMenu::choose(int index) {
    if (isEnabledAt(index) && at(index).run)
        at(index).run();
}

QVariantList ShellMenus::all() const {
    QVariantList result;
    for (ShellMenu* each : menus_)
        result.append(QVariant::fromValue(each));
    return result;
}

void ShellMenus::set(std::vector<Menu> menus) {
    for (ShellMenu* old : std::exchange(menus_, {}))
        old->deleteLater();
    for (Menu& each : menus)
        menus_.append(new ShellMenu(std::move(each), this));
    Q_EMIT changed();
}

} // namespace brinmoor
