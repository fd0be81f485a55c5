#pragma once

#include "bridge/frames/Envelope.h"
#include "bridge/frames/Frames.h"
#include "bridge/frames/HostSocket.h"
#include "bridge/host/BrowserEvent.h"
#include "bridge/host/BrowserStreams.h"
#include "bridge/host/Client.h"

#include <poll.h>

#include <list>
#include <map>
#include <string>
#include <vector>

namespace brinmoor::bridge {

/// Why the relay ended.
enum class RelayEnd {
    browserClosed, ///< the browser closed its end, as it does when the extension goes
    stopped,       ///< a signal asked for it
    badFrame,      ///< what came from the browser were no frames
    noSocket,      ///< the socket could not be made
    broken,        ///< the operating system refused
};

/// Carries requests of several clients to one extension and each answer back to whoever asked.
/// Single-threaded; holds nothing of a client that is gone. Clients find it once the extension has
/// said hello.
class Relay {
public:
    /// `folder` is the sockets' folder and `stopSignals` a signalfd; both stay open meanwhile.
    Relay(BrowserStreams streams, int folder, int stopSignals, std::string browserID,
          std::int32_t browserProcess);

    [[nodiscard]] RelayEnd run();

private:
    struct Request {
        std::uint64_t client = 0;
        std::uint64_t id = 0; ///< as the client numbered it
    };

    [[nodiscard]] std::vector<pollfd> awaited() const;
    [[nodiscard]] std::optional<RelayEnd> serve(const std::vector<pollfd>& ready);
    [[nodiscard]] std::optional<RelayEnd> readBrowser();
    [[nodiscard]] std::optional<RelayEnd> takeBrowserFrame(std::string_view body);
    [[nodiscard]] std::optional<RelayEnd> takeEvent(std::string_view body);
    void takeAnswer(const Envelope& answer);
    void acceptClients();
    void readClient(Client& client);
    void takeRequest(Client& client, std::string_view body);
    void tellFocus(Client& client) const;
    void dropGoneClients();
    [[nodiscard]] bool mayReadClients() const;

    BrowserStreams streams_;
    int folder_;
    int stopSignals_;
    std::string browserID_;
    std::int32_t browserProcess_;
    FrameDecoder fromBrowser_{frameCapFromBrowser};
    OutgoingBytes toBrowser_;
    std::optional<ListeningSocket> listener_;
    std::list<Client> clients_;
    std::uint64_t lastSerial_ = 0;
    std::map<std::uint64_t, Request> requests_; ///< by the number that the browser sees
    std::uint64_t lastRequest_ = 0;
    bool focused_ = false;
};

} // namespace brinmoor::bridge
