#pragma once

#include <openssl/ssl.h>

#include <memory>
#include <string>

namespace brinmoor::testing {

/// A server's side of TLS with a certificate of its own making, which nobody trusts.
class TlsIdentity {
public:
    TlsIdentity();

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
