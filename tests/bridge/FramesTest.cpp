#include "bridge/frames/Frames.h"
#include "bridge/frames/FileDescriptor.h"

#include <fcntl.h>
#include <pthread.h>
#include <signal.h>
#include <sys/socket.h>

#include <gmock/gmock.h>

#include <array>
#include <atomic>
#include <random>
#include <thread>

namespace brinmoor::bridge {
namespace {

using namespace std::chrono_literals;

struct Pair {
    FileDescriptor left;
    FileDescriptor right;
};

Pair socketPair() {
    std::array<int, 2> ends{};
    EXPECT_EQ(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0, ends.data()), 0);
    return {FileDescriptor(ends[0]), FileDescriptor(ends[1])};
}

Deadline soon() {
    return std::chrono::steady_clock::now() + 10s;
}

std::string framed(const std::string& body) {
    return frameHeader(body.size()) + body;
}

std::string randomBody(std::mt19937& random) {
    // Small ones mostly, empty ones among them, and some beyond what a socket holds.
    const std::size_t size = random() % 50 == 0 ? random() % 700'000 : random() % 40;
    std::string body(size, '\0');
    for (char& byte : body)
        byte = static_cast<char>(random());
    return body;
}

TEST(Frames, theLengthStandsInFrontWithTheLowestByteFirst) {
    EXPECT_EQ(frameHeader(0x01020304), std::string("\x04\x03\x02\x01"));
    EXPECT_EQ(frameHeader(0), std::string(4, '\0'));
}

TEST(Frames, comeOutWholeHoweverTheStreamIsCut) {
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    for (int round = 0; round < 200; ++round) {
        std::vector<std::string> bodies;
        std::string stream;
        for (unsigned i = 0; i < 1 + random() % 20; ++i) {
            bodies.push_back(randomBody(random));
            stream += framed(bodies.back());
        }
        FrameDecoder decoder(std::size_t{1} << 20);
        std::vector<std::string> received;
        for (std::size_t at = 0; at < stream.size();) {
            const std::size_t size =
                std::min<std::size_t>(stream.size() - at, 1 + random() % (1U << random() % 18));
            decoder.append(std::string_view(stream).substr(at, size));
            at += size;
            while (const auto body = decoder.next())
                received.emplace_back(*body);
        }
        ASSERT_EQ(received, bodies);
        ASSERT_TRUE(decoder.atFrameEnd());
    }
}

TEST(Frames, oneThatIsTooLongEndsTheStreamBeforeItsBytesAreAwaited) {
    FrameDecoder decoder(10);
    decoder.append(framed("0123456789"));
    decoder.append(frameHeader(11));
    EXPECT_EQ(decoder.next(), "0123456789");
    EXPECT_EQ(decoder.next(), std::nullopt);
    EXPECT_TRUE(decoder.refused());
    decoder.append(framed("more"));
    EXPECT_EQ(decoder.next(), std::nullopt);
}

TEST(Frames, crossASocketThatHoldsLessThanTheyDo) {
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    std::vector<std::string> bodies{std::string(3'000'000, 'x')};
    for (int i = 0; i < 50; ++i)
        bodies.push_back(randomBody(random));
    const Pair pair = socketPair();
    std::thread writer([&] {
        for (const std::string& body : bodies)
            EXPECT_TRUE(writeFrame(pair.left.number(), body, frameCapFromBrowser, soon()).ok());
    });
    FrameDecoder decoder(frameCapFromBrowser);
    for (const std::string& body : bodies) {
        const auto received = readFrame(pair.right.number(), decoder, soon());
        EXPECT_TRUE(received && *received == body);
    }
    writer.join();
}

TEST(Frames, aBodyAboveTheCapIsNotSent) {
    const Pair pair = socketPair();
    const auto sent = writeFrame(pair.left.number(), "12345", 4, soon());
    EXPECT_EQ(sent.error(), FrameFailure::tooLong);
    FrameDecoder decoder(10);
    EXPECT_EQ(readAvailable(pair.right.number(), decoder), Arrival::nothingYet);
}

struct EndCase {
    std::string sent;
    FrameFailure expected;
};

class FrameStreamEnd : public ::testing::TestWithParam<EndCase> {};

TEST_P(FrameStreamEnd, tellsBetweenFramesFromWithinOne) {
    Pair pair = socketPair();
    const auto& sent = GetParam().sent;
    ASSERT_EQ(::send(pair.left.number(), sent.data(), sent.size(), 0),
              static_cast<ssize_t>(sent.size()));
    pair.left = FileDescriptor();
    FrameDecoder decoder(100);
    EXPECT_EQ(readFrame(pair.right.number(), decoder, soon()).error(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, FrameStreamEnd,
    ::testing::Values(EndCase{"", FrameFailure::closed},
                      EndCase{std::string("\x05"), FrameFailure::cut},
                      EndCase{std::string("\x05\0\0\0", 4), FrameFailure::cut},
                      EndCase{std::string("\x05\0\0\0abcd", 8), FrameFailure::cut},
                      EndCase{std::string("\x65\0\0\0", 4), FrameFailure::tooLong}));

TEST(Frames, aSilentOtherSideIsATimeOut) {
    const Pair pair = socketPair();
    FrameDecoder decoder(100);
    decoder.append(std::string("\x05\0\0\0ab", 6));
    const auto deadline = std::chrono::steady_clock::now() + 30ms;
    EXPECT_EQ(readFrame(pair.right.number(), decoder, deadline).error(), FrameFailure::timedOut);
    EXPECT_GE(std::chrono::steady_clock::now(), deadline);
}

TEST(Frames, anOtherSideThatTakesNothingIsATimeOut) {
    const Pair pair = socketPair();
    const auto deadline = std::chrono::steady_clock::now() + 30ms;
    EXPECT_EQ(
        writeFrame(pair.left.number(), std::string(8'000'000, 'x'), frameCapFromBrowser, deadline)
            .error(),
        FrameFailure::timedOut);
}

TEST(Frames, anOtherSideThatIsGoneIsClosed) {
    ::signal(SIGPIPE, SIG_IGN);
    Pair pair = socketPair();
    pair.right = FileDescriptor();
    EXPECT_EQ(writeFrame(pair.left.number(), "x", 10, soon()).error(), FrameFailure::closed);
}

TEST(Frames, interruptionsBySignalsLoseNothing) {
    struct sigaction action {};
    action.sa_handler = [](int) {};
    ASSERT_EQ(::sigaction(SIGUSR1, &action, nullptr), 0);
    const Pair pair = socketPair();
    const std::string body(2'000'000, 'y');
    const pthread_t reader = ::pthread_self();
    std::atomic<bool> done = false;
    std::thread writer([&] {
        EXPECT_TRUE(writeFrame(pair.left.number(), body, frameCapFromBrowser, soon()).ok());
    });
    std::thread interrupter([&] {
        while (!done) {
            ::pthread_kill(reader, SIGUSR1);
            ::pthread_kill(writer.native_handle(), SIGUSR1);
            std::this_thread::sleep_for(50us);
        }
    });
    FrameDecoder decoder(frameCapFromBrowser);
    const auto received = readFrame(pair.right.number(), decoder, soon());
    done = true;
    interrupter.join();
    writer.join();
    EXPECT_TRUE(received && *received == body);
}

} // namespace
} // namespace brinmoor::bridge
