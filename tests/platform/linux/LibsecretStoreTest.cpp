#include "platform/linux/LibsecretStore.h"

#include "tests/support/KeyringSession.h"

#include <gtest/gtest.h>

using namespace brinmoor;
using brinmoor::testing::KeyringSession;
using brinmoor::testing::runProgram;

namespace {

constexpr auto service = "app.brinmoor.test";

class LibsecretStoreTest : public ::testing::Test {
protected:
    // A process keeps to the first D-Bus session that it used.
    static KeyringSession& sharedSession() {
        static KeyringSession shared;
        return shared;
    }
    LibsecretStoreTest() : session(sharedSession()) {
        session.join();
        for (const char* account : {"token", "one", "other"})
            EXPECT_TRUE(store.remove(service, account).ok());
    }

    std::optional<std::string> stored(std::string_view account) {
        const auto read = store.read(service, account);
        EXPECT_TRUE(read.ok()) << (read ? 0 : static_cast<int>(read.error()));
        return read ? read.value() : std::nullopt;
    }
    [[nodiscard]] std::string asked(const std::vector<std::string>& arguments,
                                    const brinmoor::testing::Environment& environment) const {
        std::vector<std::string> command{SECURE_STORE_PROGRAM};
        command.insert(command.end(), arguments.begin(), arguments.end());
        return runProgram(command, environment).output;
    }

    KeyringSession& session;
    LibsecretStore store;
};

} // namespace

TEST_F(LibsecretStoreTest, anItemThatIsNotThereIsNoFailure) {
    EXPECT_EQ(stored("token"), std::nullopt);
    EXPECT_TRUE(store.remove(service, "token").ok());
}

TEST_F(LibsecretStoreTest, whatIsWrittenIsReadAgainToTheByte) {
    for (const std::string& bytes :
         {std::string("secret"), std::string(), std::string("zwei Zeilen\nmit Umläuten"),
          std::string(5000, 'x')}) {
        ASSERT_TRUE(store.write(service, "token", bytes).ok());
        EXPECT_EQ(stored("token"), bytes);
    }
}

TEST_F(LibsecretStoreTest, aSecondWriteReplacesTheFirst) {
    ASSERT_TRUE(store.write(service, "token", "one").ok());
    ASSERT_TRUE(store.write(service, "token", "two").ok());
    EXPECT_EQ(stored("token"), "two");
    ASSERT_TRUE(store.remove(service, "token").ok());
    EXPECT_EQ(stored("token"), std::nullopt);
}

TEST_F(LibsecretStoreTest, itemsAreToldApartByServiceAndAccount) {
    ASSERT_TRUE(store.write(service, "one", "1").ok());
    ASSERT_TRUE(store.write(service, "other", "2").ok());
    ASSERT_TRUE(store.write("another", "one", "3").ok());
    ASSERT_TRUE(store.remove(service, "one").ok());
    EXPECT_EQ(stored("one"), std::nullopt);
    EXPECT_EQ(stored("other"), "2");
    const auto third = store.read("another", "one");
    ASSERT_TRUE(third.ok());
    EXPECT_EQ(third.value(), "3");
}

TEST_F(LibsecretStoreTest, anotherProcessSeesAndChangesTheSameItems) {
    ASSERT_TRUE(store.write(service, "token", "mine").ok());
    EXPECT_EQ(asked({"read", service, "token"}, session.environment()), "found mine\n");
    EXPECT_EQ(asked({"write", service, "token", "theirs"}, session.environment()), "done\n");
    EXPECT_EQ(stored("token"), "theirs");
    EXPECT_EQ(asked({"remove", service, "token"}, session.environment()), "done\n");
    EXPECT_EQ(stored("token"), std::nullopt);
}

TEST_F(LibsecretStoreTest, itemsAreFoundAgainByTheirTwoAttributesAlone) {
    ASSERT_TRUE(store.write(service, "token", "plain").ok());
    const auto found =
        runProgram({"/usr/bin/secret-tool", "lookup", "service", service, "account", "token"},
                   session.environment());
    EXPECT_EQ(found.output, "plain");
}

TEST_F(LibsecretStoreTest, aLockedItemIsToldApartFromAMissingOne) {
    ASSERT_TRUE(store.write(service, "token", "secret").ok());
    session.lock();
    const auto read = store.read(service, "token");
    ASSERT_FALSE(read.ok());
    EXPECT_EQ(read.error(), SecureStoreFailure::locked);
    const auto removed = store.remove(service, "token");
    ASSERT_FALSE(removed.ok());
    EXPECT_EQ(removed.error(), SecureStoreFailure::locked);
    EXPECT_EQ(stored("other"), std::nullopt);
    session.restart();
    EXPECT_EQ(stored("token"), "secret");
}

TEST_F(LibsecretStoreTest, aWriteThatCannotBeUnlockedForIsRefusedAndChangesNothing) {
    ASSERT_TRUE(store.write(service, "token", "old").ok());
    session.lock();
    EXPECT_FALSE(store.write(service, "token", "new").ok());
    session.restart();
    EXPECT_EQ(stored("token"), "old");
}

TEST_F(LibsecretStoreTest, aStoreThatWasRestartedIsFoundAgain) {
    ASSERT_TRUE(store.write(service, "token", "kept").ok());
    session.restart();
    EXPECT_EQ(stored("token"), "kept");
    session.restart();
    ASSERT_TRUE(store.write(service, "token", "changed").ok());
    EXPECT_EQ(stored("token"), "changed");
}

TEST_F(LibsecretStoreTest, withoutASecretServiceThatIsSaid) {
    auto nowhere = session.environment();
    nowhere["DBUS_SESSION_BUS_ADDRESS"] = "unix:path=/nonexistent";
    EXPECT_EQ(asked({"read", service, "token"}, nowhere), "unavailable\n");
    EXPECT_EQ(asked({"write", service, "token", "x"}, nowhere), "unavailable\n");
    EXPECT_EQ(asked({"remove", service, "token"}, nowhere), "unavailable\n");
}
