#pragma once

#include "bridge/frames/FileDescriptor.h"
#include "bridge/frames/Frames.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace brinmoor::bridge {

/// Room for the digits that a request's identifier may grow by on its way to the browser.
inline constexpr std::size_t requestCap = frameCapToBrowser - 32;
/// A client that asks for more at once without taking its answers is dropped.
inline constexpr std::size_t unansweredCap = 64;
inline constexpr std::size_t unreadAnswersCap = frameCapFromBrowser + frameCapToBrowser;

/// One program that is connected to the host's socket.
struct Client {
    explicit Client(FileDescriptor descriptor, std::uint64_t itsSerial)
        : connection(std::move(descriptor)), serial(itsSerial) {}

    FileDescriptor connection;
    std::uint64_t serial; ///< never given twice, other than the number of a descriptor
    FrameDecoder incoming{requestCap};
    OutgoingBytes outgoing;
    std::size_t unanswered = 0;
    std::optional<std::uint64_t> focusWatch; ///< the identifier under which it watches the focus
    bool gone = false;

    void send(std::string_view body) {
        if (body.size() > frameCapFromBrowser || outgoing.size() > unreadAnswersCap - body.size()) {
            gone = true;
            return;
        }
        outgoing.append(frameHeader(body.size()));
        outgoing.append(body);
    }
};

} // namespace brinmoor::bridge
