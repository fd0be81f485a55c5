#include "bridge/ExtensionIdentity.h"
#include "bridge/frames/Frames.h"
#include "bridge/frames/HostSocket.h"
#include "tests/support/ChromiumSession.h"
#include "tests/support/Eventually.h"

#include <gmock/gmock.h>

#include <csignal>
#include <cstdlib>

namespace brinmoor::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

HttpAnswer page(const HttpRequest&) {
    return {200, "text/html", "<title>T</title>"};
}

/// A connection to the host of the only running browser.
class RawClient {
public:
    explicit RawClient(const ChromiumSession& browser) {
        const auto folder =
            bridge::openBridgeFolder(std::getenv("XDG_RUNTIME_DIR"), bridge::MissingFolder::leave);
        connection_ =
            bridge::connectedTo(folder->number(), *bridge::hostOfSocket(browser.sockets().at(0)));
    }
    [[nodiscard]] std::string ask(const std::string& body) {
        const auto soon = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        EXPECT_TRUE(
            bridge::writeFrame(connection_.number(), body, bridge::frameCapToBrowser, soon).ok());
        const auto answer = bridge::readFrame(connection_.number(), decoder_, soon);
        return answer ? *answer : std::string();
    }

private:
    bridge::FileDescriptor connection_;
    bridge::FrameDecoder decoder_{bridge::frameCapFromBrowser};
};

class Extension : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(browser.start({"http://first.test/"})); }

    ChromiumSession browser{{BRINMOOR_HOST, BRINMOOR_EXTENSION, page}};
};

TEST_F(Extension, answersWhatItDoesNotUnderstandWithATypedError) {
    const int tab = browser.loadedTab("http://first.test/");
    const std::string number = std::to_string(tab);
    RawClient client(browser);
    const std::vector<std::pair<std::string, std::string>> cases{
        {R"("protocol":2,"request":"windows")", "protocol"},
        {R"("request":"windows")", "protocol"},
        {R"("protocol":"1","request":"windows")", "protocol"},
        {R"("protocol":1,"request":"evaluate")", "unknown"},
        {R"("protocol":1,"request":"constructor")", "unknown"},
        {R"("protocol":1,"request":7)", "unknown"},
        {R"("protocol":1)", "unknown"},
        {R"("protocol":1,"request":"windows","more":1)", "malformed"},
        {R"("protocol":1,"request":"tab")", "malformed"},
        {R"("protocol":1,"request":"tab","tab":"1")", "malformed"},
        {R"("protocol":1,"request":"tab","tab":1.5)", "malformed"},
        {R"("protocol":1,"request":"readPage","tab":)" + number + R"(,"text":"alert")",
         "malformed"},
        {R"("protocol":1,"request":"closeTab","tab":)" + number, "malformed"},
        {R"("protocol":1,"request":"tab","tab":99999)", "gone"},
        {R"("protocol":1,"request":"readPage","tab":99999)", "gone"},
        {R"("protocol":1,"request":"closeTab","tab":99999,"url":"")", "gone"},
        {R"("protocol":1,"request":"focusWindow","window":99999)", "gone"},
        {R"("protocol":1,"request":"unminimizeWindow","window":99999)", "gone"},
        {R"("protocol":1,"request":"selectTab","window":99999,"tab":)" + number, "gone"},
        {R"("protocol":1,"request":"closeTab","url":"http://first.test","tab":)" + number,
         "changed"},
        {R"("protocol":1,"request":"closeTab","url":"","tab":)" + number, "changed"},
    };
    for (const auto& [request, code] : cases)
        EXPECT_EQ(client.ask(R"({"id":5,)" + request + "}"),
                  R"({"id":5,"protocol":1,"error":{"code":")" + code + "\"}}")
            << request;
    EXPECT_EQ(browser.loadedTab("http://first.test/"), tab);
}

TEST_F(Extension, cannotReadThePagesOfTheBrowserItself) {
    (void)browser.call("tabs.create", "[{\"url\":\"chrome://version/\"}]");
    const int tab = browser.loadedTab("chrome://version/");
    ASSERT_GE(tab, 0);
    EXPECT_THAT(RawClient(browser).ask(R"({"id":5,"protocol":1,"request":"readPage","tab":)" +
                                       std::to_string(tab) + "}"),
                HasSubstr(R"("error":{"code":"unreadable"}})"));
}

TEST_F(Extension, servesSeveralClientsAtOnce) {
    std::vector<RawClient> clients;
    for (int i = 0; i < 8; ++i)
        clients.emplace_back(browser);
    for (int round = 1; round <= 20; ++round)
        for (RawClient& client : clients)
            EXPECT_THAT(client.ask(R"({"id":)" + std::to_string(round) +
                                   R"(,"protocol":1,"request":"windows"})"),
                        StartsWith(R"({"id":)" + std::to_string(round) + ","));
}

TEST_F(Extension, carriesTheTabsOfALargeWindowInOneAnswer) {
    const std::string query(8000, 'q');
    for (int i = 0; i < 12; ++i)
        (void)browser.call("tabs.create", "[{\"active\":false,\"url\":\"http://first.test/?" +
                                              query + std::to_string(i) + "\"}]");
    ASSERT_GE(browser.loadedTab("http://first.test/?" + query + "11"), 0);
    EXPECT_GT(RawClient(browser).ask(R"({"id":1,"protocol":1,"request":"windows"})").size(),
              90'000U);
}

} // namespace
} // namespace brinmoor::testing

int main(int count, char** arguments) {
    ::testing::InitGoogleTest(&count, arguments);
    std::signal(SIGPIPE, SIG_IGN);
    return RUN_ALL_TESTS();
}
