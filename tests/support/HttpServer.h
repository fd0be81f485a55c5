#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace brinmoor::testing {

struct HttpRequest {
    std::string method;
    std::string host; ///< as the Host header gives it
    std::string path; ///< with the query
    std::string body;
    std::string head; ///< all of it: the request line and the headers, each with its line end

    /// The value of a header, its name spelled as it was sent; empty when there is none.
    [[nodiscard]] std::string header(const std::string& name) const;
};

/// Sends bytes to the client; false when it has gone.
using HttpWriter = std::function<bool(std::string_view)>;

struct HttpAnswer {
    int status = 200;
    std::string type = "text/html; charset=utf-8";
    std::string body = {};
    std::vector<std::string> headers = {}; ///< further ones, each "Name: value"
    /// When given, writes all there is to the connection, head and body and at its own pace, in
    /// place of everything above; the connection is closed when it returns.
    std::function<void(const HttpWriter&)> raw = {};
};

/// A body without an announcement of its length.
[[nodiscard]] HttpAnswer unannounced(const std::string& body);

enum class Transport { plain, tls };

class TlsIdentity;

/// A web server on the loopback interface, on a port that the system chose. The handler is called
/// on a thread of each connection and may take its time.
class HttpServer {
public:
    using Handler = std::function<HttpAnswer(const HttpRequest&)>;

    explicit HttpServer(Handler handler, Transport transport = Transport::plain);
    /// A TLS server with this identity, on this port; 0 lets the system choose.
    HttpServer(Handler handler, std::unique_ptr<TlsIdentity> identity, std::uint16_t port);
    HttpServer(const HttpServer&) = delete;
    HttpServer& operator=(const HttpServer&) = delete;
    ~HttpServer();

    [[nodiscard]] std::uint16_t port() const { return port_; }
    [[nodiscard]] std::size_t requestCount() const { return requestCount_; }
    /// With which a client can check a TLS server (PEM); empty for a plain one.
    [[nodiscard]] std::string certificate() const;
    /// "https://127.0.0.1:1234/" or the same with http.
    [[nodiscard]] std::string address() const;

private:
    void accept();
    void serve(int connection);

    Handler handler_;
    std::unique_ptr<TlsIdentity> identity_; ///< none for a plain server
    std::uint16_t port_ = 0;                // before the listener, whose making sets it
    int listener_ = -1;
    std::atomic<bool> ending_ = false;
    std::atomic<std::size_t> requestCount_ = 0;
    std::mutex guard_;
    std::list<int> open_;
    std::list<std::thread> threads_;
    std::thread acceptor_;
};

} // namespace brinmoor::testing
