#include "tests/support/HttpServer.h"

#include "tests/support/TlsIdentity.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <charconv>
#include <optional>
#include <sstream>
#include <stdexcept>

namespace brinmoor::testing {
namespace {

int listenOnLoopback(std::uint16_t& port) {
    const int listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const int yes = 1;
    ::setsockopt(listener, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* generic = reinterpret_cast<sockaddr*>(&address);
    if (listener < 0 || ::bind(listener, generic, size) != 0 || ::listen(listener, 64) != 0 ||
        ::getsockname(listener, generic, &size) != 0)
        throw std::runtime_error("no listening socket");
    port = ntohs(address.sin_port);
    return listener;
}

/// One connection, whichever way its bytes go.
class Stream {
public:
    virtual ~Stream() = default;
    /// How many bytes were read or written; 0 or less at the end.
    virtual ssize_t read(char* bytes, std::size_t size) = 0;
    virtual ssize_t write(const char* bytes, std::size_t size) = 0;
};

class PlainStream final : public Stream {
public:
    explicit PlainStream(int connection) : connection_(connection) {}
    ssize_t read(char* bytes, std::size_t size) override {
        return ::recv(connection_, bytes, size, 0);
    }
    ssize_t write(const char* bytes, std::size_t size) override {
        return ::send(connection_, bytes, size, MSG_NOSIGNAL);
    }

private:
    int connection_;
};

class TlsStream final : public Stream {
public:
    TlsStream(const TlsIdentity& identity, int connection) : stream_(identity, connection) {}
    ~TlsStream() override {
        if (ready_)
            stream_.end();
    }
    ssize_t read(char* bytes, std::size_t size) override {
        ready_ = ready_ || stream_.accept();
        return ready_ ? stream_.read(bytes, static_cast<int>(size)) : 0;
    }
    ssize_t write(const char* bytes, std::size_t size) override {
        return stream_.write(bytes, static_cast<int>(size));
    }

private:
    TlsIdentity::Stream stream_;
    bool ready_ = false;
};

bool receive(Stream& stream, std::string& bytes) {
    std::array<char, 16384> piece{};
    const ssize_t size = stream.read(piece.data(), piece.size());
    if (size > 0)
        bytes.append(piece.data(), static_cast<std::size_t>(size));
    return size > 0;
}

std::optional<HttpRequest> readRequest(Stream& stream) {
    std::string bytes;
    while (bytes.find("\r\n\r\n") == std::string::npos)
        if (!receive(stream, bytes))
            return std::nullopt;
    const auto headEnd = bytes.find("\r\n\r\n") + 2;
    const std::string head = bytes.substr(0, headEnd);
    HttpRequest request;
    request.head = head;
    std::istringstream(head) >> request.method >> request.path;
    request.host = request.header("Host");
    const std::string length = request.header("Content-Length");
    std::size_t size = 0;
    std::from_chars(length.data(), length.data() + length.size(), size);
    while (bytes.size() < headEnd + 2 + size)
        if (!receive(stream, bytes))
            return std::nullopt;
    request.body = bytes.substr(headEnd + 2, size);
    return request;
}

bool sendAll(Stream& stream, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t size = stream.write(bytes.data(), bytes.size());
        if (size <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(size));
    }
    return true;
}

std::string bytesOf(const HttpAnswer& answer) {
    std::string bytes = "HTTP/1.1 " + std::to_string(answer.status) + " Answer\r\n";
    bytes += "Content-Type: " + answer.type + "\r\n";
    bytes += "Content-Length: " + std::to_string(answer.body.size()) + "\r\n";
    for (const std::string& header : answer.headers)
        bytes += header + "\r\n";
    return bytes + "Cache-Control: no-store\r\nConnection: close\r\n\r\n" + answer.body;
}

void send(Stream& stream, const HttpAnswer& answer) {
    if (answer.raw)
        answer.raw([&stream](std::string_view bytes) { return sendAll(stream, bytes); });
    else
        sendAll(stream, bytesOf(answer));
}

} // namespace

HttpAnswer unannounced(const std::string& body) {
    return {.raw = [body](const HttpWriter& write) {
        write("HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n" + body);
    }};
}

std::string HttpRequest::header(const std::string& name) const {
    const auto start = head.find("\r\n" + name + ": ");
    if (start == std::string::npos)
        return {};
    const auto value = start + name.size() + 4;
    return head.substr(value, head.find("\r\n", value) - value);
}

HttpServer::HttpServer(Handler handler, Transport transport)
    : HttpServer(std::move(handler),
                 transport == Transport::tls ? std::make_unique<TlsIdentity>() : nullptr, 0) {}

HttpServer::HttpServer(Handler handler, std::unique_ptr<TlsIdentity> identity, std::uint16_t port)
    : handler_(std::move(handler)), identity_(std::move(identity)), port_(port),
      listener_(listenOnLoopback(port_)), acceptor_([this] { accept(); }) {}

std::string HttpServer::certificate() const {
    return identity_ ? identity_->certificate() : std::string();
}

std::string HttpServer::address() const {
    return (identity_ ? "https://127.0.0.1:" : "http://127.0.0.1:") + std::to_string(port_) + "/";
}

HttpServer::~HttpServer() {
    ending_ = true;
    ::shutdown(listener_, SHUT_RDWR);
    acceptor_.join();
    {
        const std::scoped_lock lock(guard_);
        for (const int connection : open_)
            ::shutdown(connection, SHUT_RDWR);
    }
    for (std::thread& thread : threads_)
        thread.join();
    ::close(listener_);
}

void HttpServer::accept() {
    while (!ending_) {
        const int connection = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
        if (connection < 0)
            continue;
        const std::scoped_lock lock(guard_);
        open_.push_back(connection);
        threads_.emplace_back([this, connection] { serve(connection); });
    }
}

void HttpServer::serve(int connection) {
    std::unique_ptr<Stream> stream;
    if (identity_)
        stream = std::make_unique<TlsStream>(*identity_, connection);
    else
        stream = std::make_unique<PlainStream>(connection);
    if (const auto request = readRequest(*stream)) {
        ++requestCount_;
        send(*stream, handler_(*request));
    }
    stream.reset();
    const std::scoped_lock lock(guard_);
    open_.remove(connection);
    ::close(connection);
}

} // namespace brinmoor::testing
