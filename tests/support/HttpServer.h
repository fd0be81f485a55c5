#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace brinmoor::testing {

struct HttpRequest {
    std::string method;
    std::string host; ///< as the Host header gives it
    std::string path; ///< with the query
    std::string body;
};

struct HttpAnswer {
    int status = 200;
    std::string type = "text/html; charset=utf-8";
    std::string body;
    std::vector<std::string> headers = {}; ///< further ones, each "Name: value"
};

enum class Transport { plain, tls };

class TlsIdentity;

/// A web server on the loopback interface, on a port that the system chose. The handler is called
/// on a thread of each connection and may take its time.
class HttpServer {
public:
    using Handler = std::function<HttpAnswer(const HttpRequest&)>;

    explicit HttpServer(Handler handler, Transport transport = Transport::plain);
    HttpServer(const HttpServer&) = delete;
    HttpServer& operator=(const HttpServer&) = delete;
    ~HttpServer();

    [[nodiscard]] std::uint16_t port() const { return port_; }
    [[nodiscard]] std::size_t requestCount() const { return requestCount_; }

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
