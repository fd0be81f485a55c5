#pragma once

#include "core/Result.h"

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// Frames: a length of four bytes, the lowest first, and that many bytes of JSON. The same on both
/// hops. Nothing here reads the JSON. One thread.
namespace brinmoor::bridge {

/// What the browser accepts in one frame from its helper program.
inline constexpr std::size_t frameCapToBrowser = std::size_t{1} << 20;
/// What is accepted in one frame that comes from the browser.
inline constexpr std::size_t frameCapFromBrowser = std::size_t{64} << 20;
inline constexpr std::size_t frameHeaderSize = 4;

using Deadline = std::chrono::steady_clock::time_point;

enum class FrameFailure {
    closed,   ///< the other side ended between two frames
    cut,      ///< the other side ended within a frame
    tooLong,  ///< a length above the cap was announced, or a body above it was given
    timedOut, ///< the deadline passed
    broken,   ///< the operating system refused
};

/// The header that stands before a body of `size` bytes, which is at most frameCapFromBrowser.
[[nodiscard]] std::string frameHeader(std::size_t size);

/// Cuts a stream of bytes, which may come in pieces of any size, into the bodies of its frames.
class FrameDecoder {
public:
    explicit FrameDecoder(std::size_t cap) : cap_(cap) {}

    void append(std::string_view bytes);

    /// The next whole body, valid until the next call of append(); absent while more bytes are
    /// needed, and for good once a frame was too long.
    [[nodiscard]] std::optional<std::string_view> next();

    [[nodiscard]] bool refused() const noexcept { return refused_; }
    /// Nothing of an unfinished frame is held.
    [[nodiscard]] bool atFrameEnd() const noexcept { return read_ == bytes_.size(); }

private:
    std::size_t cap_;
    std::string bytes_;
    std::size_t read_ = 0;
    bool refused_ = false;
};

/// Bytes that wait until a non-blocking descriptor takes them.
class OutgoingBytes {
public:
    enum class State { drained, waiting, broken };

    void append(std::string_view bytes) { bytes_.append(bytes); }
    [[nodiscard]] std::size_t size() const noexcept { return bytes_.size() - sent_; }
    /// Writes as much as the descriptor takes now.
    [[nodiscard]] State flush(int descriptor);

private:
    std::string bytes_;
    std::size_t sent_ = 0;
};

enum class Arrival { bytes, nothingYet, end, broken };

/// Reads what is there, at most 64 KiB, into the decoder. Takes blocking descriptors too.
[[nodiscard]] Arrival readAvailable(int descriptor, FrameDecoder& decoder);

/// Waits for one whole frame. Bytes behind it stay in the decoder for the next call.
[[nodiscard]] Result<std::string, FrameFailure> readFrame(int descriptor, FrameDecoder& decoder,
                                                          Deadline deadline);

/// Sends one whole frame to a non-blocking descriptor. SIGPIPE has to be ignored by the process.
[[nodiscard]] Result<Done, FrameFailure> writeFrame(int descriptor, std::string_view body,
                                                    std::size_t cap, Deadline deadline);

} // namespace brinmoor::bridge
