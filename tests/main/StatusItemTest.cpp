#include "tests/support/ChildProcess.h"
#include "tests/support/Waiting.h"

#include "platform/linux/Desktop.h"

#include <gtest/gtest.h>

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusReply>
#include <QMap>

#include <algorithm>

namespace brinmoor::testing {
namespace {

/// The desktop's place for status icons.
class StatusHost : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ isRegistered)
    Q_PROPERTY(int ProtocolVersion READ version)
    Q_PROPERTY(QStringList RegisteredStatusNotifierItems READ items)

public:
    StatusHost() {
        auto bus = QDBusConnection::sessionBus();
        bus.registerObject(QStringLiteral("/StatusNotifierWatcher"), this,
                           QDBusConnection::ExportAllContents);
        EXPECT_TRUE(bus.registerService(QStringLiteral("org.kde.StatusNotifierWatcher")));
    }
    ~StatusHost() override {
        auto bus = QDBusConnection::sessionBus();
        bus.unregisterService(QStringLiteral("org.kde.StatusNotifierWatcher"));
        bus.unregisterObject(QStringLiteral("/StatusNotifierWatcher"));
    }

    [[nodiscard]] bool isRegistered() const { return true; }
    [[nodiscard]] int version() const { return 0; }
    [[nodiscard]] QStringList items() const { return {item}; }

    QString item; ///< the bus name of the program's icon

public Q_SLOTS:
    void RegisterStatusNotifierItem(const QString& service) {
        item = service.startsWith(u'/') ? message().service() : service;
    }
    void RegisterStatusNotifierHost(const QString&) {}
};

class StatusItemTest : public ::testing::Test {
protected:
    void start() { program = std::make_unique<ChildProcess>(ChildOptions{{BRINMOOR}, {}, true}); }
    /// The desktop has a place for icons from now on; one that it had goes.
    void openHost() {
        host.reset();
        host = std::make_unique<StatusHost>();
    }
    [[nodiscard]] bool iconComes() {
        return waitUntil([&] { return !host->item.isEmpty(); }, std::chrono::seconds(20));
    }
    [[nodiscard]] bool menuComes() {
        return waitUntil([&] {
            readMenu();
            return titles.size() > 10;
        });
    }
    /// Whether the program has its name on the bus and has come as far as to wait.
    [[nodiscard]] static bool isRunning() {
        return QDBusConnection::sessionBus().interface()->isServiceRegistered(
            QStringLiteral("app.brinmoor.mac"));
    }

    [[nodiscard]] QDBusMessage call(const QString& path, const QString& interface,
                                    const QString& method, const QVariantList& arguments) const {
        auto message = QDBusMessage::createMethodCall(host->item, path, interface, method);
        message.setArguments(arguments);
        return QDBusConnection::sessionBus().call(message);
    }
    [[nodiscard]] QDBusMessage menuCall(const QString& method,
                                        const QVariantList& arguments) const {
        return call(QStringLiteral("/MenuBar"), QStringLiteral("com.canonical.dbusmenu"), method,
                    arguments);
    }
    void readMenu() {
        titles.clear();
        ids.clear();
        const auto answer = menuCall(QStringLiteral("GetLayout"), {0, -1, QStringList()});
        if (answer.type() != QDBusMessage::ReplyMessage)
            return;
        readItem(answer.arguments().at(1).value<QDBusArgument>());
    }
    void readItem(const QDBusArgument& item) {
        int id = 0;
        QVariantMap properties;
        item.beginStructure();
        item >> id >> properties;
        if (properties.value(QStringLiteral("type")) == QStringLiteral("separator")) {
            titles.emplace_back("-");
        } else if (properties.contains(QStringLiteral("label"))) {
            titles.push_back(properties[QStringLiteral("label")].toString().toStdString());
            ids[titles.back()] = id;
            enabled[titles.back()] = properties.value(QStringLiteral("enabled"), true).toBool();
        }
        item.beginArray();
        while (!item.atEnd()) {
            QDBusVariant child;
            item >> child;
            readItem(child.variant().value<QDBusArgument>());
        }
        item.endArray();
        item.endStructure();
    }
    void choose(const std::string& title) {
        ASSERT_TRUE(ids.contains(title)) << title;
        (void)menuCall(QStringLiteral("Event"), {ids[title], QStringLiteral("clicked"),
                                                 QVariant::fromValue(QDBusVariant(QString())), 0U});
    }

    std::unique_ptr<StatusHost> host;
    std::unique_ptr<ChildProcess> program;
    std::vector<std::string> titles;
    std::map<std::string, int> ids;
    std::map<std::string, bool> enabled;
};

TEST_F(StatusItemTest, offersItsMenuToTheDesktop) {
    openHost();
    start();
    ASSERT_TRUE(iconComes());
    ASSERT_TRUE(menuComes());
    EXPECT_EQ(titles,
              (std::vector<std::string>{
                  "Open Brinmoor", "Search open tabs…", "Close duplicate tabs", "Clean up tabs…",
                  "-", "Save current tab", "Save copied link", "Save with a note…",
                  "Save selected tabs…", "Save all tabs in this window", "Add a link…", "-",
                  "Account…", "Settings…", "Check for Updates…", "Quit Brinmoor"}));
    EXPECT_TRUE(enabled["Open Brinmoor"]);
}

TEST_F(StatusItemTest, comesToAPlaceThatOpensLaterAndAgainWhenItOpensAnew) {
    start();
    ASSERT_TRUE(waitUntil(isRunning, std::chrono::seconds(20)));
    openHost();
    EXPECT_TRUE(iconComes());
    openHost();
    EXPECT_TRUE(iconComes());
    EXPECT_TRUE(menuComes());
}

TEST_F(StatusItemTest, quitEndsTheProgram) {
    openHost();
    start();
    ASSERT_TRUE(iconComes());
    ASSERT_TRUE(menuComes());
    choose("Quit Brinmoor");
    EXPECT_EQ(program->waitForExit(), 0);
}

} // namespace
} // namespace brinmoor::testing

#include "StatusItemTest.moc"
