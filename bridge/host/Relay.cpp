#include "bridge/host/Relay.h"

#include <algorithm>
#include <cerrno>

namespace brinmoor::bridge {
namespace {

constexpr std::size_t mostClients = 64;
constexpr short ended = POLLHUP | POLLERR | POLLNVAL;

/// The one request that the host answers itself, as its writer spells it behind the identifier.
constexpr std::string_view watchFocusRequest = R"(,"protocol":1,"request":"watchFocus"})";

} // namespace

Relay::Relay(BrowserStreams streams, int folder, int stopSignals, std::string browserID,
             std::int32_t browserProcess)
    : streams_(std::move(streams)), folder_(folder), stopSignals_(stopSignals),
      browserID_(std::move(browserID)), browserProcess_(browserProcess) {}

RelayEnd Relay::run() {
    for (;;) {
        auto entries = awaited();
        if (::poll(entries.data(), entries.size(), -1) < 0) {
            if (errno == EINTR)
                continue;
            return RelayEnd::broken;
        }
        if (const auto end = serve(entries))
            return *end;
        dropGoneClients();
    }
}

bool Relay::mayReadClients() const {
    return toBrowser_.size() < frameCapToBrowser;
}

/// In a fixed order: signals, the browser's two ends, the listener, then the clients.
std::vector<pollfd> Relay::awaited() const {
    const short output = toBrowser_.size() > 0 ? POLLOUT : 0;
    std::vector<pollfd> entries{
        {stopSignals_, POLLIN, 0},
        {streams_.input.number(), POLLIN, 0},
        {streams_.output.number(), output, 0},
        {listener_ && clients_.size() < mostClients ? listener_->number() : -1, POLLIN, 0}};
    for (const Client& client : clients_) {
        short events = mayReadClients() ? POLLIN : 0;
        if (client.outgoing.size() > 0)
            events = static_cast<short>(events | POLLOUT);
        entries.push_back({client.connection.number(), events, 0});
    }
    return entries;
}

std::optional<RelayEnd> Relay::serve(const std::vector<pollfd>& ready) {
    if (ready[0].revents != 0)
        return RelayEnd::stopped;
    auto entry = ready.begin() + 4;
    for (Client& client : clients_) {
        if ((entry->revents & POLLIN) != 0)
            readClient(client);
        else if ((entry->revents & ended) != 0)
            client.gone = true;
        ++entry;
    }
    if (ready[3].revents != 0)
        acceptClients();
    if (ready[1].revents != 0)
        if (const auto end = readBrowser())
            return end;
    if ((ready[2].revents & ended) != 0)
        return RelayEnd::browserClosed;
    if (toBrowser_.flush(streams_.output.number()) == OutgoingBytes::State::broken)
        return RelayEnd::browserClosed;
    for (Client& client : clients_)
        if (!client.gone)
            client.gone =
                client.outgoing.flush(client.connection.number()) == OutgoingBytes::State::broken;
    return std::nullopt;
}

std::optional<RelayEnd> Relay::readBrowser() {
    const Arrival arrival = readAvailable(streams_.input.number(), fromBrowser_);
    if (arrival == Arrival::end)
        return RelayEnd::browserClosed;
    if (arrival == Arrival::broken)
        return RelayEnd::broken;
    while (const auto body = fromBrowser_.next())
        if (const auto end = takeBrowserFrame(*body))
            return end;
    return fromBrowser_.refused() ? std::optional(RelayEnd::badFrame) : std::nullopt;
}

std::optional<RelayEnd> Relay::takeBrowserFrame(std::string_view body) {
    const auto envelope = openedEnvelope(body);
    if (!envelope)
        return RelayEnd::badFrame;
    if (envelope->id == 0)
        return takeEvent(body);
    takeAnswer(*envelope);
    return std::nullopt;
}

std::optional<RelayEnd> Relay::takeEvent(std::string_view body) {
    const auto event = browserEvent(body);
    // A newer extension may have more to tell than this program knows of.
    if (!event)
        return std::nullopt;
    if (const auto* hello = std::get_if<Hello>(&*event)) {
        if (!listener_)
            listener_ = ListeningSocket::publish(
                folder_, HostName{browserID_, browserProcess_, hello->profile});
        return listener_ ? std::nullopt : std::optional(RelayEnd::noSocket);
    }
    focused_ = std::get<FocusChange>(*event).focused;
    for (Client& client : clients_)
        tellFocus(client);
    return std::nullopt;
}

void Relay::takeAnswer(const Envelope& answer) {
    const auto request = requests_.find(answer.id);
    if (request == requests_.end())
        return;
    const auto client = std::find_if(clients_.begin(), clients_.end(), [&](const Client& each) {
        return each.serial == request->second.client;
    });
    if (client != clients_.end()) {
        --client->unanswered;
        client->send(closedEnvelope(request->second.id, answer.rest));
    }
    requests_.erase(request);
}

void Relay::acceptClients() {
    while (clients_.size() < mostClients) {
        FileDescriptor connection = listener_->accepted();
        if (!connection)
            return;
        clients_.emplace_back(std::move(connection), ++lastSerial_);
    }
}

void Relay::readClient(Client& client) {
    const Arrival arrival = readAvailable(client.connection.number(), client.incoming);
    if (arrival == Arrival::end || arrival == Arrival::broken)
        client.gone = true;
    while (const auto body = client.gone ? std::nullopt : client.incoming.next())
        takeRequest(client, *body);
    if (client.incoming.refused())
        client.gone = true;
}

void Relay::takeRequest(Client& client, std::string_view body) {
    const auto envelope = openedEnvelope(body);
    if (!envelope || envelope->id == 0 || client.unanswered == unansweredCap) {
        client.gone = true;
        return;
    }
    if (envelope->rest == watchFocusRequest) {
        client.focusWatch = envelope->id;
        return tellFocus(client);
    }
    ++client.unanswered;
    requests_[++lastRequest_] = Request{client.serial, envelope->id};
    const std::string request = closedEnvelope(lastRequest_, envelope->rest);
    toBrowser_.append(frameHeader(request.size()));
    toBrowser_.append(request);
}

void Relay::tellFocus(Client& client) const {
    if (client.focusWatch)
        client.send(closedEnvelope(*client.focusWatch,
                                   std::string(R"(,"protocol":1,"result":{"focused":)") +
                                       (focused_ ? "true}}" : "false}}")));
}

void Relay::dropGoneClients() {
    for (const Client& client : clients_)
        if (client.gone)
            std::erase_if(requests_, [&](const auto& request) {
                return request.second.client == client.serial;
            });
    clients_.remove_if([](const Client& client) { return client.gone; });
}

} // namespace brinmoor::bridge
