#pragma once

#include "tests/platform/linux/TestKeyboard.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/Eventually.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusReply>
#include <QDBusVariant>
#include <QRect>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace brinmoor::testing {

/// One object of a program, as the bus of assistive technology knows it.
struct AccessibleObject {
    QString service;
    QDBusObjectPath path;
};
/// What assistive technology is told of it.
struct Control {
    std::string role;
    std::string name;
    std::string within; ///< what is around it, the nearest last
    QRect place;        ///< in the program's own units, on the desktop
};

inline const QDBusArgument& operator>>(const QDBusArgument& argument, AccessibleObject& object) {
    argument.beginStructure();
    argument >> object.service >> object.path;
    argument.endStructure();
    return argument;
}

/// The real program, read over the bus of assistive technology.
class AccessibleProgram : public ::testing::Test {
protected:
    AccessibleProgram() {
        const QDBusReply<QString> address =
            QDBusConnection::sessionBus().call(QDBusMessage::createMethodCall(
                u"org.a11y.Bus"_qs, u"/org/a11y/bus"_qs, u"org.a11y.Bus"_qs, u"GetAddress"_qs));
        bus = QDBusConnection::connectToBus(address.value(), u"accessibility"_qs);
    }
    ~AccessibleProgram() override { QDBusConnection::disconnectFromBus(u"accessibility"_qs); }

    void start() { program = std::make_unique<ChildProcess>(ChildOptions{{BRINMOOR}, {}, true}); }
    [[nodiscard]] QVariant ask(const AccessibleObject& object, const QString& interface,
                               const QString& method, const QVariantList& arguments = {}) const {
        auto message =
            QDBusMessage::createMethodCall(object.service, object.path.path(), interface, method);
        message.setArguments(arguments);
        const QDBusMessage answer = bus.call(message, QDBus::Block, 2000);
        return answer.arguments().isEmpty() ? QVariant() : answer.arguments().front();
    }
    [[nodiscard]] std::vector<AccessibleObject> children(const AccessibleObject& object) const {
        std::vector<AccessibleObject> found;
        const QVariant answer = ask(object, u"org.a11y.atspi.Accessible"_qs, u"GetChildren"_qs);
        const auto list = answer.value<QDBusArgument>();
        if (list.currentType() != QDBusArgument::ArrayType)
            return found;
        list.beginArray();
        while (!list.atEnd()) {
            AccessibleObject child;
            list >> child;
            found.push_back(child);
        }
        list.endArray();
        return found;
    }
    [[nodiscard]] std::string name(const AccessibleObject& object) const {
        return ask(object, u"org.freedesktop.DBus.Properties"_qs, u"Get"_qs,
                   {u"org.a11y.atspi.Accessible"_qs, u"Name"_qs})
            .value<QDBusVariant>()
            .variant()
            .toString()
            .toStdString();
    }
    /// An application itself has no place on the screen.
    [[nodiscard]] bool isShowing(const AccessibleObject& object) const {
        constexpr unsigned showing = 25;
        const auto states = ask(object, u"org.a11y.atspi.Accessible"_qs, u"GetState"_qs);
        const auto words = qdbus_cast<QList<uint>>(states.value<QDBusArgument>());
        return object.path.path() == root || (words.value(0) >> showing & 1U) != 0;
    }
    [[nodiscard]] QRect placeOf(const AccessibleObject& object) const {
        constexpr uint onTheDesktop = 0;
        const auto extents =
            ask(object, u"org.a11y.atspi.Component"_qs, u"GetExtents"_qs, {onTheDesktop});
        const auto answer = extents.value<QDBusArgument>();
        QRect place;
        if (answer.currentType() == QDBusArgument::StructureType)
            answer >> place;
        return place;
    }
    void collect(const AccessibleObject& object, std::vector<Control>& found,
                 const std::string& within = {}, int depth = 0) const {
        if (!isShowing(object))
            return;
        const std::string role = ask(object, u"org.a11y.atspi.Accessible"_qs, u"GetRoleName"_qs)
                                     .toString()
                                     .toStdString();
        const std::string own = name(object);
        found.push_back({role, own, within, placeOf(object)});
        if (depth < 40)
            for (const AccessibleObject& child : children(object))
                collect(child, found, within + "/" + role + " " + own, depth + 1);
    }
    /// All that the program shows now.
    [[nodiscard]] std::vector<Control> controls() const {
        std::vector<Control> found;
        const AccessibleObject registry{u"org.a11y.atspi.Registry"_qs, QDBusObjectPath(root)};
        for (const AccessibleObject& each : children(registry))
            if (each.service != bus.baseService())
                collect(each, found);
        return found;
    }
    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> all;
        for (const Control& each : controls())
            all.push_back(each.name);
        return all;
    }
    [[nodiscard]] bool says(const std::string& wanted) const {
        return eventually([&] {
            const auto all = names();
            return std::ranges::find(all, wanted) != all.end();
        });
    }

    const QString root = u"/org/a11y/atspi/accessible/root"_qs;
    QDBusConnection bus = QDBusConnection::sessionBus();
    TestKeyboard keyboard;
    std::unique_ptr<ChildProcess> program;
};

} // namespace brinmoor::testing
