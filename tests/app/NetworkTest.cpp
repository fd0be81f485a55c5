// What leaves the machine while everything that the model can do is done: every connection of this
// process and every request on it, held against the list of what may.

#include "core/usage/UsageAccumulator.h"
#include "platform/linux/NetworkHttp.h"
#include "tests/app/Desk.h"
#include "tests/service/LocalService.h"

#include <arpa/inet.h>
#include <dlfcn.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <mutex>
#include <regex>
#include <set>

namespace {

std::mutex connectedGuard;
std::set<std::string> connectedTo; ///< "address port", datagrams too

void takeDown(const sockaddr* address) {
    if (address == nullptr || (address->sa_family != AF_INET && address->sa_family != AF_INET6))
        return;
    std::array<char, INET6_ADDRSTRLEN> text{};
    std::uint16_t port = 0;
    if (address->sa_family == AF_INET) {
        const auto* v4 = reinterpret_cast<const sockaddr_in*>(address);
        ::inet_ntop(AF_INET, &v4->sin_addr, text.data(), text.size());
        port = ntohs(v4->sin_port);
    } else {
        const auto* v6 = reinterpret_cast<const sockaddr_in6*>(address);
        ::inet_ntop(AF_INET6, &v6->sin6_addr, text.data(), text.size());
        port = ntohs(v6->sin6_port);
    }
    const std::lock_guard lock(connectedGuard);
    connectedTo.insert(std::string(text.data()) + " " + std::to_string(port));
}

} // namespace

// The program's own come before the C library's, so that nothing connects or sends past them.
extern "C" int connect(int descriptor, const sockaddr* address, socklen_t length) {
    takeDown(address);
    return static_cast<int>(::syscall(SYS_connect, descriptor, address, length));
}
extern "C" ssize_t sendto(int descriptor, const void* bytes, size_t count, int flags,
                          const sockaddr* address, socklen_t length) {
    takeDown(address);
    return ::syscall(SYS_sendto, descriptor, bytes, count, flags, address, length);
}

namespace brinmoor {
namespace {

using namespace std::chrono_literals;
using testing::Desk;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsSubsetOf;
using ::testing::MatchesRegex;
using ::testing::Not;
using testing::waitUntil;

/// A request as it arrived.
struct Arrived {
    std::string line; ///< "POST /api/usage"
    std::set<std::string> headers;
    std::string head;
    std::string body;
};

class NetworkTest : public Desk {
protected:
    NetworkTest() {
        service.interfere([this](const testing::HttpRequest& request) {
            const std::lock_guard lock(guard_);
            arrived_.push_back({request.method + " " + request.path, namesOf(request.head),
                                request.head, request.body});
            return std::nullopt;
        });
    }
    ~NetworkTest() override {
        endOnline();
        testing::settle();
    }

    /// A model whose network is real and whose clock is the test's.
    AppModel& online() {
        if (!online_) {
            AppParts with = parts();
            AccountParts account{.clock = clock,
                                 .http = network_,
                                 .random = random,
                                 .secrets = secrets,
                                 .folder = folder.path("Brinmoor"),
                                 .serviceURL = service.address(),
                                 .ownerAddress = "ada@example.org"};
            const AppParts all{.browsers = with.browsers,
                               .clock = with.clock,
                               .files = with.files,
                               .hotKeys = with.hotKeys,
                               .opener = with.opener,
                               .pasteboard = with.pasteboard,
                               .preferences = with.preferences,
                               .scripts = with.scripts,
                               .workspace = with.workspace,
                               .libraryPath = with.libraryPath,
                               .account = account,
                               .makeUsageSession = [this] {
                                   return std::make_unique<NetworkHttp>(service.certificate());
                               }};
            online_ = std::make_unique<AppModel>(all);
        }
        return *online_;
    }
    void endOnline() { online_.reset(); }

    [[nodiscard]] std::vector<Arrived> arrived() const {
        const std::lock_guard lock(guard_);
        return arrived_;
    }
    [[nodiscard]] std::vector<Arrived> arrived(const std::string& line) const {
        std::vector<Arrived> of;
        for (const Arrived& each : arrived())
            if (each.line == line)
                of.push_back(each);
        return of;
    }

    /// Everything that the library can do, with words that must not leave the machine.
    void useTheLibrary() {
        AppModel& model = online();
        pageIs("https://secret.example/page", "Secret title");
        model.capture(CaptureAction::quick);
        ASSERT_TRUE(waitUntil([&] { return !model.isCapturing(); }));
        model.add("https://secret.example/two", "Secret two", "Inbox", "Secret note", {"secret"});
        pasteboard.copy("https://secret.example/three");
        model.setClipboardEnabled(true);
        model.saveCurrentClipboard();
        const SavedLink link = model.library().links.front();
        model.copy(link);
        model.open(link);
        model.share(link);
        model.toggleFavorite(link.id);
        model.labelImportance(link.id, LinkImportance::important);
        model.renameTag("secret", "secret2");
        model.deleteTag("secret2");
        model.setArchived(true, {link.id});
        model.emptyArchive({link.id});
        model.undoLastAction();
        model.exportLibrary();
        files.answer(folder.path("secret.json"));
        model.importLibrary();
        files.answer(folder.path("secret.json"));
        model.revealLibrary();
    }
    void sendCounts() {
        const auto before = arrived("POST /api/usage").size();
        clock.advance(60s);
        ASSERT_TRUE(waitUntil([&] { return arrived("POST /api/usage").size() > before; }));
    }
    void signInAndOut() {
        AccountController& account = online().account();
        account.setSignInEmail(QStringLiteral("ada@example.org"));
        account.setSignInName(QStringLiteral("Ada"));
        account.sendSignInEmail();
        ASSERT_TRUE(waitUntil([&] { return !service.mails().empty(); }));
        ASSERT_TRUE(waitUntil(
            [&] { return account.signInStage() == AccountController::SignInStage::waiting; }));
        account.handleIncomingURL(service.mails().back().link);
        ASSERT_TRUE(waitUntil([&] { return account.hasLogin(); }));
        account.loadUsageReport();
        ASSERT_TRUE(waitUntil([&] { return !arrived("GET /api/usage/report").empty(); }));
        account.refresh(AccountController::Force::yes);
        ASSERT_TRUE(waitUntil([&] { return !account.isRefreshing(); }));
        account.signOut();
        ASSERT_TRUE(waitUntil([&] { return !arrived("POST /api/auth/logout").empty(); }));
    }

    testing::LocalService service{
        {.mailFolder = folder.path("mails"), .ownerAddress = "ada@example.org"}};

private:
    static std::set<std::string> namesOf(const std::string& head) {
        std::set<std::string> names;
        static const std::regex header("\r\n([^:\r\n]+):");
        for (std::sregex_iterator at(head.begin(), head.end(), header), end; at != end; ++at)
            names.insert((*at)[1].str());
        return names;
    }

    mutable std::mutex guard_;
    std::vector<Arrived> arrived_;
    NetworkHttp network_{service.certificate()};
    std::unique_ptr<AppModel> online_;
};

TEST_F(NetworkTest, onlyTheListedRequestsLeaveTheMachineWhateverIsDone) {
    connectedTo.clear();
    useTheLibrary();
    sendCounts();
    signInAndOut();

    std::set<std::string> lines;
    for (const Arrived& each : arrived()) {
        lines.insert(each.line);
        EXPECT_THAT(each.head + each.body, Not(HasSubstr("ecret"))) << each.line;
        EXPECT_THAT(each.head, Not(HasSubstr("Cookie"))) << each.line;
        EXPECT_THAT(each.headers, IsSubsetOf({"Host", "User-Agent", "Accept", "Accept-Encoding",
                                              "Accept-Language", "Connection", "Content-Type",
                                              "Content-Length", "Authorization"}))
            << each.head;
    }
    EXPECT_THAT(lines, IsSubsetOf({"POST /api/auth/native/request", "POST /api/auth/exchange",
                                   "GET /api/account", "POST /api/auth/logout", "POST /api/usage",
                                   "GET /api/usage/report"}));

    const std::string servicePlace =
        "127.0.0.1 " + std::regex_replace(service.address(), std::regex("[^:]*:[^:]*:|/"), "");
    EXPECT_THAT(connectedTo, ElementsAre(servicePlace));
}

TEST_F(NetworkTest, aCountTellsTotalsAndNothingOfTheUserOrTheMachine) {
    useTheLibrary();
    sendCounts();
    const auto counts = arrived("POST /api/usage");
    ASSERT_EQ(counts.size(), 1);
    EXPECT_TRUE(decodeUsageBatch(counts[0].body)) << counts[0].body;
    EXPECT_THAT(counts[0].head, HasSubstr("\r\nUser-Agent: Brinmoor\r\n"));
    EXPECT_FALSE(counts[0].headers.contains("Authorization"));
    static const std::regex batch(
        R"(\{"batchID":"[0-9A-F-]{36}","counts":\{("[a-z_]+":[0-9]+,?)+\}\})");
    EXPECT_TRUE(std::regex_match(counts[0].body, batch)) << counts[0].body;
}

TEST_F(NetworkTest, withCountsOffAndNobodySignedInNothingLeavesTheMachine) {
    connectedTo.clear();
    preferences.set("analyticsEnabled", false);
    useTheLibrary();
    clock.advance(10min);
    testing::settle();
    EXPECT_TRUE(arrived().empty());
    EXPECT_TRUE(connectedTo.empty());
}

} // namespace
} // namespace brinmoor
