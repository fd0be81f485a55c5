// Two copies of the program, each a process of its own, with one real keyring between them.

#include "account/AccountLock.h"
#include "tests/service/LocalService.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/Eventually.h"
#include "tests/support/KeyringSession.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <semaphore>

namespace brinmoor {
namespace {

using testing::ChildOptions;
using testing::ChildProcess;
using testing::eventually;
using ::testing::HasSubstr;
using testing::HttpAnswer;

/// One running copy, told what its user does and asked what its screen shows.
class Copy {
public:
    Copy(const testing::KeyringSession& session, const std::vector<std::string>& arguments)
        : process_(ChildOptions{arguments, session.environment()}), last_(readLine()) {}

    std::string tell(const std::string& command) {
        const std::string line = command + "\n";
        if (::write(process_.input(), line.data(), line.size()) !=
            static_cast<ssize_t>(line.size()))
            ADD_FAILURE() << "the copy has ended";
        return last_ = readLine();
    }
    /// Waits until the screen shows all of this.
    void expect(const std::vector<std::string>& parts) {
        EXPECT_TRUE(eventually([&] {
            tell("state");
            return std::ranges::all_of(parts, [&](const std::string& part) {
                return last_.find(part) != std::string::npos;
            });
        })) << "it shows "
            << last_ << ", not " << ::testing::PrintToString(parts);
    }
    [[nodiscard]] const std::string& last() const { return last_; }

private:
    std::string readLine() {
        std::string line;
        for (char next = 0; ::read(process_.output(), &next, 1) == 1 && next != '\n';)
            line += next;
        return line;
    }

    ChildProcess process_;
    std::string last_;
};

class TwoCopiesTest : public ::testing::Test {
protected:
    [[nodiscard]] std::vector<std::string> command() const {
        const std::string certificate = folder.path("certificate.pem");
        std::ofstream(certificate) << service.certificate();
        return {ACCOUNT_PROGRAM, service.address(), certificate, meetingPlace};
    }
    [[nodiscard]] std::string newestLink() const { return service.mails().back().link; }

    static void askForMail(Copy& copy, const std::string& address = "ada@example.org") {
        copy.tell("send " + address + " Ada");
        copy.expect({"stage=waiting"});
    }
    void signIn(Copy& copy, const std::string& address = "ada@example.org") {
        askForMail(copy, address);
        copy.tell("link " + newestLink());
        copy.expect({"stage=idle", "login=yes", "user=" + address, "busy=no"});
    }
    void bothSignedIn() {
        signIn(one);
        other.tell("come");
        other.expect({"login=yes", "user=ada@example.org"});
    }
    using Gate = std::counting_semaphore<>;

    /// Holds the service's answers to this call up until the gate opens.
    void holdUp(const std::string& path, Gate& gate) {
        service.interfere([this, path, &gate](const auto& request) -> std::optional<HttpAnswer> {
            if (request.path == path) {
                reached.release();
                gate.acquire();
            }
            return std::nullopt;
        });
    }

    testing::ScratchFolder folder;
    std::string meetingPlace = folder.path("Brinmoor");
    testing::KeyringSession session;
    Gate reached{0};
    Gate mailGate{0};
    Gate exchangeGate{0};
    testing::LocalService service{{.mailFolder = folder.path("mails")}};
    Copy one{session, command()};
    Copy other{session, command()};
};

TEST_F(TwoCopiesTest, aRequestThatWasReplacedWhileItsMailWasAskedForGivesWay) {
    holdUp("/api/auth/native/request", mailGate);
    one.tell("send ada@example.org");
    reached.acquire();
    service.interfere(nullptr);
    other.tell("come");
    other.tell("cancel");
    askForMail(other, "bob@example.org");
    mailGate.release();
    one.expect({"stage=waiting", "email=bob@example.org"});
}

TEST_F(TwoCopiesTest, aRequestThatWasUsedWhileItsMailWasAskedForIsVerifyingHereToo) {
    holdUp("/api/auth/native/request", mailGate);
    one.tell("send ada@example.org");
    reached.acquire();
    holdUp("/api/auth/exchange", exchangeGate);
    other.tell("come");
    askForMail(other); // the same request, whose mail comes at once this time
    other.tell("link " + newestLink());
    reached.acquire();
    mailGate.release();
    one.expect({"stage=verifying", "login=no"});
    exchangeGate.release();
    other.expect({"login=yes", "stage=idle"});
    one.tell("come");
    one.expect({"login=yes", "user=ada@example.org"});
}

TEST_F(TwoCopiesTest, aWaitingCopyFallsBackWhenTheOtherCancels) {
    askForMail(one);
    other.tell("come");
    other.expect({"stage=waiting", "email=ada@example.org"});
    other.tell("cancel");
    one.tell("come");
    one.expect({"stage=idle", "login=no"});
}

TEST_F(TwoCopiesTest, aWaitingCopyIsSignedInWhenTheOtherFinishes) {
    askForMail(one);
    other.tell("link " + newestLink());
    other.expect({"stage=idle", "login=yes"});
    one.tell("come");
    one.expect({"stage=idle", "login=yes", "user=ada@example.org"});
}

TEST_F(TwoCopiesTest, aWaitingCopyShowsTheOthersNewerRequest) {
    askForMail(one);
    askForMail(other, "bob@example.org");
    one.tell("come");
    one.expect({"stage=waiting", "email=bob@example.org"});
}

TEST_F(TwoCopiesTest, anExchangeThatTheOtherCancelsSignsNobodyIn) {
    askForMail(one);
    other.tell("come");
    holdUp("/api/auth/exchange", exchangeGate);
    one.tell("link " + newestLink());
    reached.acquire();
    other.tell("cancel");
    exchangeGate.release();
    one.expect({"stage=idle", "login=no",
                "message=Sign-in was cancelled in another copy of Brinmoor. Send a fresh link to "
                "continue."});
    EXPECT_TRUE(eventually([&] { return service.requests().back() == "POST /api/auth/logout"; }));
    other.tell("come");
    other.expect({"login=no", "stage=idle"});
}

TEST_F(TwoCopiesTest, oneLinkOpenedInBothSignsOneInAndIsOldInTheOther) {
    askForMail(one);
    holdUp("/api/auth/exchange", exchangeGate);
    one.tell("link " + newestLink());
    reached.acquire();
    other.tell("link " + newestLink());
    other.expect({"message=This sign-in link expired, was already used"});
    exchangeGate.release();
    one.expect({"login=yes", "stage=idle"});
}

TEST_F(TwoCopiesTest, aSignOutOfTheOtherIsFollowed) {
    bothSignedIn();
    one.tell("signout");
    other.tell("come");
    other.expect({"login=no", "user= ", "message=You signed out in another copy of Brinmoor."});
}

TEST_F(TwoCopiesTest, aLoginOfTheOtherAsAnotherUserIsRefusedUntilTheUserActs) {
    bothSignedIn();
    one.tell("signout");
    signIn(one, "eve@example.org");
    other.tell("come");
    other.expect(
        {"login=yes", "user=ada@example.org",
         "message=Another copy of Brinmoor signed in to a different account. Sign out here "
         "before switching."});
    other.tell("signout");
    other.tell("come");
    other.expect({"login=yes", "user=eve@example.org"});
    one.tell("come");
    one.expect({"login=yes", "user=eve@example.org"});
}

TEST_F(TwoCopiesTest, aNewLoginOfTheOtherAsTheSameUserIsAdoptedInSilence) {
    bothSignedIn();
    one.tell("signout");
    signIn(one);
    other.tell("come");
    other.expect({"login=yes", "user=ada@example.org", "busy=no"});
    EXPECT_THAT(other.last(), ::testing::EndsWith("message="));
    // It holds the new token, not the ended one: the service still knows it.
    other.tell("come");
    other.expect({"login=yes", "busy=no"});
    EXPECT_THAT(other.last(), ::testing::EndsWith("message="));
}

TEST_F(TwoCopiesTest, aLoginOfTheOtherIsAdoptedInSilence) {
    signIn(one);
    other.tell("come");
    other.expect({"login=yes", "user=ada@example.org"});
    EXPECT_THAT(other.last(), ::testing::EndsWith("message="));
}

TEST_F(TwoCopiesTest, whileTheLockIsHeldElsewhereThatIsSaidAndTheNextTimeItWorks) {
    signIn(one);
    {
        const auto lock = AccountLock::take(meetingPlace);
        ASSERT_TRUE(lock.ok());
        other.tell("come");
        other.expect({"login=no", "message=Another copy of Brinmoor is updating your account. "
                                  "Please try again in a moment."});
    }
    other.tell("come");
    other.expect({"login=yes"});
}

TEST_F(TwoCopiesTest, aLaterCopyStartsWithTheStoredLogin) {
    signIn(one);
    Copy later(session, command());
    EXPECT_THAT(later.last(), HasSubstr("login=yes"));
}

} // namespace
} // namespace brinmoor
