#pragma once

#include <openssl/ssl.h>

#include <memory>
#include <string>

namespace brinmoor::testing {

/// A server's side of TLS for 127.0.0.1 and localhost, with a certificate of its own making, which
/// nobody trusts who was not given it.
class TlsIdentity {
public:
    TlsIdentity();
    /// With the key and the certificate of that file (PEM), which is made when there is none: a
    /// server that is started again keeps its identity.
    explicit TlsIdentity(const std::string& file);

    /// The certificate (PEM), with which a client can check the server.
    [[nodiscard]] std::string certificate() const;

    /// Bytes over one connection. Blocking; false and 0 at its end or after any failure.
    class Stream {
    public:
        Stream(const TlsIdentity& identity, int connection);
        [[nodiscard]] bool accept();
        [[nodiscard]] int read(char* bytes, int size);
        [[nodiscard]] int write(const char* bytes, int size);
        void end();

    private:
        std::unique_ptr<SSL, decltype(&SSL_free)> session_;
    };

private:
    std::unique_ptr<SSL_CTX, decltype(&SSL_CTX_free)> context_;
};

} // namespace brinmoor::testing
