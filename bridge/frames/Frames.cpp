#include "bridge/frames/Frames.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <limits>

namespace brinmoor::bridge {
namespace {

constexpr std::size_t pieceSize = std::size_t{64} << 10;

std::uint32_t announcedSize(std::string_view header) {
    std::uint32_t size = 0;
    for (std::size_t i = frameHeaderSize; i-- > 0;)
        size = size << 8 | static_cast<unsigned char>(header[i]);
    return size;
}

int millisecondsUntil(Deadline deadline) {
    using namespace std::chrono;
    const auto left = ceil<milliseconds>(deadline - steady_clock::now()).count();
    return static_cast<int>(std::clamp<long long>(left, 0, std::numeric_limits<int>::max()));
}

/// True once the descriptor is ready or has an error to tell, false when the deadline passed.
bool waitFor(int descriptor, short events, Deadline deadline) {
    for (;;) {
        const int wait = millisecondsUntil(deadline);
        pollfd entry{descriptor, events, 0};
        const int ready = ::poll(&entry, 1, wait);
        if (ready > 0 || (ready < 0 && errno != EINTR))
            return true;
        if (wait == 0)
            return false;
    }
}

} // namespace

std::string frameHeader(std::size_t size) {
    std::string header(frameHeaderSize, '\0');
    for (char& byte : header) {
        byte = static_cast<char>(size & 0xff);
        size >>= 8;
    }
    return header;
}

void FrameDecoder::append(std::string_view bytes) {
    bytes_.erase(0, std::exchange(read_, 0));
    if (!refused_)
        bytes_.append(bytes);
}

std::optional<std::string_view> FrameDecoder::next() {
    const auto waiting = std::string_view(bytes_).substr(read_);
    if (refused_ || waiting.size() < frameHeaderSize)
        return std::nullopt;
    const std::size_t size = announcedSize(waiting);
    if (size > cap_) {
        refused_ = true;
        return std::nullopt;
    }
    if (waiting.size() - frameHeaderSize < size)
        return std::nullopt;
    read_ += frameHeaderSize + size;
    return waiting.substr(frameHeaderSize, size);
}

OutgoingBytes::State OutgoingBytes::flush(int descriptor) {
    while (size() > 0) {
        const ssize_t taken = ::write(descriptor, bytes_.data() + sent_, size());
        if (taken >= 0)
            sent_ += static_cast<std::size_t>(taken);
        else if (errno == EAGAIN)
            break;
        else if (errno != EINTR)
            return State::broken;
    }
    if (size() > 0 && sent_ < pieceSize)
        return State::waiting;
    bytes_.erase(0, std::exchange(sent_, 0));
    return bytes_.empty() ? State::drained : State::waiting;
}

Arrival readAvailable(int descriptor, FrameDecoder& decoder) {
    std::array<char, pieceSize> piece; // NOLINT: read() fills it
    for (;;) {
        const ssize_t size = ::read(descriptor, piece.data(), piece.size());
        if (size > 0) {
            decoder.append({piece.data(), static_cast<std::size_t>(size)});
            return Arrival::bytes;
        }
        if (size == 0)
            return Arrival::end;
        if (errno == EAGAIN)
            return Arrival::nothingYet;
        if (errno != EINTR)
            return errno == ECONNRESET ? Arrival::end : Arrival::broken;
    }
}

Result<std::string, FrameFailure> readFrame(int descriptor, FrameDecoder& decoder,
                                            Deadline deadline) {
    for (;;) {
        if (const auto body = decoder.next())
            return std::string(*body);
        if (decoder.refused())
            return failure(FrameFailure::tooLong);
        if (!waitFor(descriptor, POLLIN, deadline))
            return failure(FrameFailure::timedOut);
        const Arrival arrival = readAvailable(descriptor, decoder);
        if (arrival == Arrival::end)
            return failure(decoder.atFrameEnd() ? FrameFailure::closed : FrameFailure::cut);
        if (arrival == Arrival::broken)
            return failure(FrameFailure::broken);
    }
}

Result<Done, FrameFailure> writeFrame(int descriptor, std::string_view body, std::size_t cap,
                                      Deadline deadline) {
    if (body.size() > cap)
        return failure(FrameFailure::tooLong);
    OutgoingBytes outgoing;
    outgoing.append(frameHeader(body.size()));
    outgoing.append(body);
    for (;;) {
        const auto state = outgoing.flush(descriptor);
        if (state == OutgoingBytes::State::drained)
            return Done{};
        if (state == OutgoingBytes::State::broken)
            return failure(errno == EPIPE ? FrameFailure::closed : FrameFailure::broken);
        if (!waitFor(descriptor, POLLOUT, deadline))
            return failure(FrameFailure::timedOut);
    }
}

} // namespace brinmoor::bridge
