#include "tests/platform/linux/TestKeyboard.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/Eventually.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusReply>
#include <QDBusVariant>
#include <QSet>

#include <gmock/gmock.h>

#include <vector>

namespace brinmoor::testing {
namespace {

using ::testing::IsEmpty;
using ::testing::IsSupersetOf;

/// One object of a program, as assistive technology is told of it.
struct Place {
    QString service;
    QDBusObjectPath path;
};
struct Control {
    std::string role;
    std::string name;
    std::string within; ///< what is around it, the nearest last
};

const QDBusArgument& operator>>(const QDBusArgument& argument, Place& place) {
    argument.beginStructure();
    argument >> place.service >> place.path;
    argument.endStructure();
    return argument;
}

/// The real program, read over the bus of assistive technology.
class AccessibleTree : public ::testing::Test {
protected:
    AccessibleTree() {
        const QDBusReply<QString> address =
            QDBusConnection::sessionBus().call(QDBusMessage::createMethodCall(
                u"org.a11y.Bus"_qs, u"/org/a11y/bus"_qs, u"org.a11y.Bus"_qs, u"GetAddress"_qs));
        bus = QDBusConnection::connectToBus(address.value(), u"accessibility"_qs);
    }
    ~AccessibleTree() override { QDBusConnection::disconnectFromBus(u"accessibility"_qs); }

    [[nodiscard]] QVariant ask(const Place& place, const QString& interface, const QString& method,
                               const QVariantList& arguments = {}) const {
        auto message =
            QDBusMessage::createMethodCall(place.service, place.path.path(), interface, method);
        message.setArguments(arguments);
        const QDBusMessage answer = bus.call(message, QDBus::Block, 2000);
        return answer.arguments().isEmpty() ? QVariant() : answer.arguments().front();
    }
    [[nodiscard]] std::vector<Place> children(const Place& place) const {
        std::vector<Place> found;
        const QVariant answer = ask(place, u"org.a11y.atspi.Accessible"_qs, u"GetChildren"_qs);
        const auto list = answer.value<QDBusArgument>();
        if (list.currentType() != QDBusArgument::ArrayType)
            return found;
        list.beginArray();
        while (!list.atEnd()) {
            Place child;
            list >> child;
            found.push_back(child);
        }
        list.endArray();
        return found;
    }
    [[nodiscard]] std::string name(const Place& place) const {
        return ask(place, u"org.freedesktop.DBus.Properties"_qs, u"Get"_qs,
                   {u"org.a11y.atspi.Accessible"_qs, u"Name"_qs})
            .value<QDBusVariant>()
            .variant()
            .toString()
            .toStdString();
    }
    /// An application itself has no place on the screen.
    [[nodiscard]] bool isShowing(const Place& place) const {
        constexpr unsigned showing = 25;
        const auto states = ask(place, u"org.a11y.atspi.Accessible"_qs, u"GetState"_qs);
        const auto words = qdbus_cast<QList<uint>>(states.value<QDBusArgument>());
        return place.path.path() == root || (words.value(0) >> showing & 1U) != 0;
    }
    void collect(const Place& place, std::vector<Control>& found, const std::string& within = {},
                 int depth = 0) const {
        if (!isShowing(place))
            return;
        const std::string role =
            ask(place, u"org.a11y.atspi.Accessible"_qs, u"GetRoleName"_qs).toString().toStdString();
        const std::string own = name(place);
        found.push_back({role, own, within});
        if (depth < 40)
            for (const Place& child : children(place))
                collect(child, found, within + "/" + role + " " + own, depth + 1);
    }
    /// All that the program shows now.
    [[nodiscard]] std::vector<Control> controls() const {
        std::vector<Control> found;
        const Place registry{u"org.a11y.atspi.Registry"_qs, QDBusObjectPath(root)};
        for (const Place& each : children(registry))
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
    /// What can be pressed or typed into and doesn't say what it is.
    [[nodiscard]] std::vector<std::string> namelessRoles() const {
        static const QSet<QString> needNames{
            u"push button"_qs, u"toggle button"_qs, u"check box"_qs, u"radio button"_qs,
            u"menu item"_qs,   u"text"_qs,          u"entry"_qs,     u"link"_qs,
            u"combo box"_qs,   u"page tab"_qs};
        std::vector<std::string> nameless;
        for (const Control& each : controls())
            if (each.name.empty() && needNames.contains(QString::fromStdString(each.role)))
                nameless.push_back(each.within + "/" + each.role);
        return nameless;
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
    ChildProcess program{ChildOptions{{BRINMOOR}, {}, true}};
};

TEST_F(AccessibleTree, tellsTheNameOfEveryControlOfTheScreens) {
    ASSERT_TRUE(says("Close onboarding"));
    EXPECT_THAT(namelessRoles(), IsEmpty()) << "in the tour";
    keyboard.tap(XKey::escape);
    ASSERT_TRUE(says("Search open tabs"));
    EXPECT_THAT(names(), IsSupersetOf({"Add a link", "Tags", "Account", "Settings"}));
    EXPECT_THAT(namelessRoles(), IsEmpty()) << "in the library";
    keyboard.chord({XKey::controlLeft}, XKey::letterN);
    ASSERT_TRUE(says("Save link"));
    EXPECT_THAT(namelessRoles(), IsEmpty()) << "in the sheet of a new link";
    keyboard.tap(XKey::escape);
    keyboard.chord({XKey::controlLeft}, XKey::comma);
    ASSERT_TRUE(says("Share anonymous usage counts"));
    EXPECT_THAT(namelessRoles(), IsEmpty()) << "in the settings";
}

} // namespace
} // namespace brinmoor::testing
