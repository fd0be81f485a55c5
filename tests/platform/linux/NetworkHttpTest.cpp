#include "platform/linux/NetworkHttp.h"

#include "tests/platform/linux/EventLoop.h"
#include "tests/support/HttpServer.h"

#include <gmock/gmock.h>

#include <atomic>
#include <semaphore>
#include <thread>

using namespace brinmoor;
using brinmoor::testing::eventually;
using brinmoor::testing::HttpAnswer;
using brinmoor::testing::HttpServer;
using brinmoor::testing::HttpWriter;
using brinmoor::testing::letEventsRun;
using brinmoor::testing::Transport;
using namespace std::chrono_literals;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

namespace {

/// What one call was told, in order.
struct Told {
    std::optional<HttpHead> head;
    std::string body;
    std::vector<HttpRedirect> redirects;
    std::optional<HttpFailure> failure;
    int heads = 0;
    int ends = 0;
    std::size_t largestPiece = 0;

    HttpListener listener() {
        HttpListener listener;
        listener.head = [this](const HttpHead& arrived) {
            head = arrived;
            ++heads;
            return HttpGoOn::yes;
        };
        listener.bytes = [this](std::string_view piece) {
            body += piece;
            largestPiece = std::max(largestPiece, piece.size());
            return HttpGoOn::yes;
        };
        listener.end = [this](std::optional<HttpFailure> ended) {
            failure = ended;
            ++ends;
        };
        return listener;
    }

    HttpListener following() {
        HttpListener listener = this->listener();
        listener.redirect = [this](const HttpRedirect& redirect) {
            redirects.push_back(redirect);
            return HttpGoOn::yes;
        };
        return listener;
    }
};

Told askedFor(Http& http, HttpRequest request) {
    Told told;
    const Subscription call = http.send(std::move(request), told.listener());
    EXPECT_EQ(told.ends, 0) << "told before the call stood";
    EXPECT_TRUE(eventually([&] { return told.ends > 0; }));
    letEventsRun(5);
    EXPECT_EQ(told.ends, 1);
    return told;
}

Told following(Http& http, HttpRequest request) {
    Told told;
    const Subscription call = http.send(std::move(request), told.following());
    EXPECT_TRUE(eventually([&] { return told.ends > 0; }));
    return told;
}

HttpServer::Handler always(HttpAnswer answer) {
    return [answer](const auto&) { return answer; };
}

std::string chunk(std::string_view bytes) {
    char size[17];
    std::snprintf(size, sizeof size, "%zx", bytes.size());
    return std::string(size) + "\r\n" + std::string(bytes) + "\r\n";
}

} // namespace

TEST(NetworkHttp, anAnswerIsToldWithItsStatusHeadersAndBytes) {
    HttpServer server(always({.type = "text/plain", .body = "hello", .headers = {"X-Kind: one"}}));
    NetworkHttp http;
    const Told told = askedFor(http, {.address = server.address() + "a?b=c"});
    ASSERT_TRUE(told.head);
    EXPECT_EQ(told.head->status, 200);
    EXPECT_EQ(told.head->address, server.address() + "a?b=c");
    EXPECT_EQ(told.head->header("x-kind"), "one");
    EXPECT_EQ(told.head->header("Missing"), std::nullopt);
    EXPECT_EQ(told.body, "hello");
    EXPECT_EQ(told.failure, std::nullopt);
}

TEST(NetworkHttp, aFailingStatusIsAnAnswerWithItsBody) {
    for (const int status : {400, 401, 403, 404, 409, 410, 418, 429, 500, 501, 503, 599}) {
        HttpServer server(always({.status = status, .body = "words", .headers = {}}));
        NetworkHttp http;
        const Told told = askedFor(http, {.address = server.address()});
        EXPECT_EQ(told.failure, std::nullopt) << status;
        ASSERT_TRUE(told.head) << status;
        EXPECT_EQ(told.head->status, status);
        EXPECT_EQ(told.body, "words") << status;
        EXPECT_EQ(told.heads, 1) << status;
        EXPECT_EQ(server.requestCount(), 1U) << status;
    }
}

TEST(NetworkHttp, noPasswordIsOfferedToAServerThatAsksForOne) {
    HttpServer server(
        always({.status = 401,
                .body = "no",
                .headers = {"WWW-Authenticate: Basic realm=\"x\"", "WWW-Authenticate: Negotiate",
                            "WWW-Authenticate: NTLM"}}));
    NetworkHttp http;
    for (const char* method : {"GET", "POST"}) {
        const Told told =
            askedFor(http, {.method = method, .address = server.address(), .body = "{}"});
        ASSERT_TRUE(told.head);
        EXPECT_EQ(told.head->status, 401);
        EXPECT_EQ(told.body, "no");
    }
    EXPECT_EQ(server.requestCount(), 2U);
}

TEST(NetworkHttp, whatIsSentTellsNothingAboutTheUser) {
    std::string head;
    HttpServer server([&](const auto& request) {
        head = request.head;
        return HttpAnswer{.headers = {"Set-Cookie: a=b; Path=/"}};
    });
    NetworkHttp http;
    (void)askedFor(http, {.address = server.address()});
    (void)askedFor(http, {.address = server.address()});
    EXPECT_THAT(head, AllOf(HasSubstr("User-Agent: Brinmoor\r\n"),
                            HasSubstr("Accept-Language: *\r\n"), Not(HasSubstr("Cookie"))));
}

TEST(NetworkHttp, aPostCarriesItsBodyAndItsHeadersAndNoMore) {
    brinmoor::testing::HttpRequest seen;
    HttpServer server([&](const brinmoor::testing::HttpRequest& request) {
        seen = request;
        return HttpAnswer{};
    });
    NetworkHttp http;
    (void)askedFor(http, {.method = "POST",
                          .address = server.address() + "p",
                          .headers = {{"Content-Type", "application/json"}, {"User-Agent", "Me"}},
                          .body = R"({"a":1})"});
    EXPECT_EQ(seen.method, "POST");
    EXPECT_EQ(seen.body, R"({"a":1})");
    EXPECT_EQ(seen.header("Content-Type"), "application/json");
    EXPECT_EQ(seen.header("User-Agent"), "Me");
    (void)askedFor(http, {.method = "POST", .address = server.address() + "p"});
    EXPECT_EQ(seen.header("Content-Length"), "0");
    EXPECT_EQ(seen.header("Content-Type"), "");
}

TEST(NetworkHttp, aRedirectIsTheAnswerUnlessTheCallerLetsItBeFollowed) {
    HttpServer server([](const auto& request) {
        if (request.path == "/to")
            return HttpAnswer{.body = "there", .headers = {}};
        return HttpAnswer{.status = 302, .body = "moved", .headers = {"Location: /to"}};
    });
    NetworkHttp http;
    const Told refused = askedFor(http, {.address = server.address()});
    EXPECT_EQ(refused.head->status, 302);
    EXPECT_EQ(refused.body, "moved");
    EXPECT_EQ(server.requestCount(), 1U);

    const Told followed = following(http, {.address = server.address()});
    EXPECT_EQ(followed.head->status, 200);
    EXPECT_EQ(followed.head->address, server.address() + "to");
    EXPECT_EQ(followed.body, "there");
    EXPECT_EQ(followed.heads, 1);
    ASSERT_EQ(followed.redirects.size(), 1U);
    EXPECT_EQ(followed.redirects[0].from, server.address());
    EXPECT_EQ(followed.redirects[0].target, server.address() + "to");
}

TEST(NetworkHttp, everyRedirectIsAskedForAndEndsAtTheTwentiethAtLatest) {
    HttpServer server([](const auto& request) {
        return HttpAnswer{.status = 307, .headers = {"Location: " + request.path + "x"}};
    });
    NetworkHttp http;
    const Told told = following(http, {.address = server.address()});
    EXPECT_EQ(told.redirects.size(), 20U);
    EXPECT_EQ(told.head->status, 307);
}

TEST(NetworkHttp, onlyAGetToAWebAddressIsSentOn) {
    std::string target;
    HttpServer server(
        [&](const auto&) { return HttpAnswer{.status = 302, .headers = {"Location: " + target}}; });
    NetworkHttp http;
    for (const char* refused : {"file:///etc/hostname", "ftp://127.0.0.1/", "http://a@127.0.0.1/",
                                "brinmoor://auth/callback", "http://[", "data:,x"}) {
        target = refused;
        const Told told = following(http, {.address = server.address()});
        EXPECT_EQ(told.redirects.size(), 0U) << target;
        ASSERT_TRUE(told.head) << target;
        EXPECT_EQ(told.head->status, 302) << target;
    }
    target = "/on";
    EXPECT_EQ(following(http, {.method = "POST", .address = server.address()}).redirects.size(),
              0U);
}

TEST(NetworkHttp, authorizationGoesToTheFirstServerOnly) {
    std::atomic<bool> carried = true;
    HttpServer other([&](const auto& request) {
        carried = !request.header("Authorization").empty();
        return HttpAnswer{};
    });
    HttpServer first(always({.status = 302, .headers = {"Location: " + other.address()}}));
    NetworkHttp http;
    (void)following(http, {.address = first.address(), .headers = {{"Authorization", "Bearer t"}}});
    EXPECT_EQ(other.requestCount(), 1U);
    EXPECT_FALSE(carried);
}

TEST(NetworkHttp, aServerIsTrustedOnlyWithAnAuthorityThatWasGiven) {
    HttpServer server(always({.body = "safe"}), Transport::tls);
    NetworkHttp stranger;
    const Told refused = askedFor(stranger, {.address = server.address()});
    EXPECT_EQ(refused.failure, HttpFailure::insecure);
    EXPECT_EQ(refused.heads, 0);
    EXPECT_EQ(server.requestCount(), 0U);

    NetworkHttp acquainted(server.certificate());
    EXPECT_EQ(askedFor(acquainted, {.address = server.address()}).body, "safe");
}

TEST(NetworkHttp, aCertificateForAnotherNameIsRefused) {
    HttpServer server(always({.body = "safe"}), Transport::tls);
    NetworkHttp http(server.certificate());
    const Told told =
        askedFor(http, {.address = "https://127.0.0.2:" + std::to_string(server.port()) + "/"});
    EXPECT_NE(told.failure, std::nullopt);
    EXPECT_EQ(server.requestCount(), 0U);
}

TEST(NetworkHttp, aRedirectFromASafeServerToAnUnsafeOneIsNotFollowed) {
    HttpServer plain(always({}));
    HttpServer safe(always({.status = 302, .headers = {"Location: " + plain.address()}}),
                    Transport::tls);
    NetworkHttp http(safe.certificate());
    EXPECT_EQ(following(http, {.address = safe.address()}).head->status, 302);
    EXPECT_EQ(plain.requestCount(), 0U);
}

TEST(NetworkHttp, failuresAreToldApart) {
    NetworkHttp http;
    std::uint16_t closedPort = 0;
    {
        const HttpServer gone(always({}));
        closedPort = gone.port();
    }
    const auto failureOf = [&](const std::string& address) {
        return askedFor(http, {.address = address}).failure;
    };
    EXPECT_EQ(failureOf("http://127.0.0.1:" + std::to_string(closedPort) + "/"),
              HttpFailure::unreachable);
    EXPECT_EQ(failureOf("https://service.brinmoor.invalid/"), HttpFailure::unreachable);
    for (const char* address : {"", "x", "/a", "ftp://127.0.0.1/", "file:///etc/hostname",
                                "http://a:b@127.0.0.1/", "http://", "data:,x"})
        EXPECT_EQ(failureOf(address), HttpFailure::refusedAddress) << address;
    HttpServer babbler(always({.body = "not compressed", .headers = {"Content-Encoding: gzip"}}));
    EXPECT_EQ(failureOf(babbler.address()), HttpFailure::malformed);
    HttpServer noWebServer(always({.raw = [](const HttpWriter& write) { write("HELO\r\n\r\n"); }}));
    EXPECT_EQ(failureOf(noWebServer.address()), HttpFailure::unreachable);
}

TEST(NetworkHttp, anAnswerThatBreaksOffBeforeItsToldLengthIsAFailure) {
    const auto brokenOff = [](std::string bytes) {
        return always({.raw = [bytes](const HttpWriter& write) { write(bytes); }});
    };
    NetworkHttp http;
    for (const char* bytes : {"", "HTTP/1.1 200 OK\r\nContent-Le",
                              "HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\nhalf"}) {
        HttpServer server(brokenOff(bytes));
        EXPECT_NE(askedFor(http, {.address = server.address()}).failure, std::nullopt) << bytes;
    }
}

TEST(NetworkHttp, silenceEndsACallAtItsLimit) {
    std::binary_semaphore clientGone{0};
    HttpServer server(always({.raw = [&](const HttpWriter&) { clientGone.acquire(); }}));
    NetworkHttp http;
    const auto started = std::chrono::steady_clock::now();
    const Told told = askedFor(http, {.address = server.address(), .silenceLimit = 150ms});
    EXPECT_EQ(told.failure, HttpFailure::timedOut);
    EXPECT_GE(std::chrono::steady_clock::now() - started, 145ms);
    clientGone.release();
}

TEST(NetworkHttp, anAnswerThatDripsEndsAtTheTotalLimitOnly) {
    const auto drip = [](int drops) {
        return always({.raw = [drops](const HttpWriter& write) {
            write("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n");
            for (int i = 0; i < drops && write(chunk("drop")); ++i)
                std::this_thread::sleep_for(50ms);
            write("0\r\n\r\n");
        }});
    };
    NetworkHttp http;
    HttpServer patient(drip(40));
    const Told whole =
        askedFor(http, {.address = patient.address(), .silenceLimit = 1500ms, .totalLimit = 20s});
    EXPECT_EQ(whole.failure, std::nullopt);
    EXPECT_EQ(whole.body.size(), 160U);

    HttpServer endless(drip(1000000));
    const Told cut =
        askedFor(http, {.address = endless.address(), .silenceLimit = 20s, .totalLimit = 300ms});
    EXPECT_EQ(cut.failure, HttpFailure::timedOut);
}

TEST(NetworkHttp, theHeadIsToldBeforeTheBodyAndCanEndTheCall) {
    std::binary_semaphore headSeen{0};
    HttpServer server(always({.raw = [&](const HttpWriter& write) {
        write("HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\n");
        headSeen.acquire();
        write("body");
    }}));
    NetworkHttp http;
    Told told;
    HttpListener listener = told.listener();
    listener.head = [&](const HttpHead&) {
        ++told.heads;
        headSeen.release();
        return HttpGoOn::no;
    };
    const Subscription call = http.send({.address = server.address()}, listener);
    ASSERT_TRUE(eventually([&] { return told.heads == 1; }));
    letEventsRun(50);
    EXPECT_EQ(told.body, "");
    EXPECT_EQ(told.ends, 0);
}

TEST(NetworkHttp, aLongBodyComesWholeInBoundedPieces) {
    std::string body(5'000'000, 'x');
    for (std::size_t i = 0; i < body.size(); i += 997)
        body[i] = static_cast<char>('a' + i % 26);
    HttpServer server(always({.body = body}));
    NetworkHttp http;
    const Told told = askedFor(http, {.address = server.address()});
    EXPECT_EQ(told.failure, std::nullopt);
    EXPECT_TRUE(told.body == body);
    EXPECT_LE(told.largestPiece, HttpListener::pieceLimit);
}

TEST(NetworkHttp, bytesAreReadOnlyAsFarAsTheyAreWanted) {
    std::atomic<std::size_t> sent = 0;
    std::atomic<bool> gone = false;
    HttpServer server(always({.raw = [&](const HttpWriter& write) {
        write("HTTP/1.1 200 OK\r\n\r\n");
        const std::string piece(10000, 'x');
        while (write(piece))
            sent += piece.size();
        gone = true;
    }}));
    NetworkHttp http;
    std::size_t seen = 0;
    HttpListener listener;
    listener.bytes = [&](std::string_view piece) {
        seen += piece.size();
        return seen < 100'000 ? HttpGoOn::yes : HttpGoOn::no;
    };
    const Subscription call = http.send({.address = server.address()}, listener);
    ASSERT_TRUE(eventually([&] { return gone.load(); }));
    EXPECT_LE(seen, 100'000 + HttpListener::pieceLimit);
    EXPECT_LT(sent, 16'000'000U) << "an endless answer was read on";
}

TEST(NetworkHttp, aDroppedCallIsNeverHeardOfAgain) {
    std::binary_semaphore answer{0};
    HttpServer server(always({.raw = [&](const HttpWriter& write) {
        answer.acquire();
        write("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n");
    }}));
    NetworkHttp http;
    Told told;
    Subscription call = http.send({.address = server.address()}, told.listener());
    ASSERT_TRUE(eventually([&] { return server.requestCount() == 1; }));
    call.cancel();
    answer.release();
    letEventsRun(50);
    EXPECT_EQ(told.heads + told.ends, 0);
}

TEST(NetworkHttp, aListenerMayDropItsOwnCall) {
    HttpServer server(always({.body = "hello"}));
    NetworkHttp http;
    for (const bool inHead : {true, false}) {
        auto call = std::make_unique<Subscription>();
        int ends = 0;
        int drops = 0;
        const auto drop = [&] {
            ++drops;
            call.reset();
            return HttpGoOn::yes;
        };
        HttpListener listener;
        if (inHead)
            listener.head = [&](const HttpHead&) { return drop(); };
        else
            listener.bytes = [&](std::string_view) { return drop(); };
        listener.end = [&](auto) { ++ends; };
        *call = http.send({.address = server.address()}, std::move(listener));
        ASSERT_TRUE(eventually([&] { return drops == 1; }));
        letEventsRun(20);
        EXPECT_EQ(ends, 0);
    }
}

TEST(NetworkHttp, openCallsGoWithTheNetworkAndTheirSubscriptionsMayStay) {
    std::binary_semaphore answer{0};
    HttpServer server(always({.raw = [&](const HttpWriter&) { answer.acquire(); }}));
    Told told;
    Subscription call;
    {
        NetworkHttp http;
        call = http.send({.address = server.address()}, told.listener());
        ASSERT_TRUE(eventually([&] { return server.requestCount() == 1; }));
    }
    answer.release();
    letEventsRun(20);
    EXPECT_EQ(told.ends, 0);
}

TEST(NetworkHttp, anOpenCallMayGoWithTheNetworkWhenItsListenerHoldsItsSubscription) {
    std::binary_semaphore answer{0};
    HttpServer server(always({.raw = [&](const HttpWriter&) { answer.acquire(); }}));
    int ends = 0;
    std::weak_ptr<Subscription> call;
    {
        NetworkHttp http;
        const auto own = std::make_shared<Subscription>();
        call = own;
        HttpListener listener;
        listener.end = [own, &ends](auto) { ++ends; };
        *own = http.send({.address = server.address()}, std::move(listener));
        ASSERT_TRUE(eventually([&] { return server.requestCount() == 1; }));
    }
    answer.release();
    EXPECT_TRUE(call.expired());
    letEventsRun(20);
    EXPECT_EQ(ends, 0);
}
