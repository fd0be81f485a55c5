#include "tests/support/TlsIdentity.h"

#include <openssl/evp.h>
#include <openssl/x509.h>

#include <csignal>
#include <stdexcept>

namespace brinmoor::testing {
namespace {

constexpr long oneDay = 24L * 60 * 60;

using Key = std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)>;
using Certificate = std::unique_ptr<X509, decltype(&X509_free)>;

Certificate selfSigned(EVP_PKEY* key) {
    Certificate certificate(X509_new(), X509_free);
    X509_set_version(certificate.get(), X509_VERSION_3);
    ASN1_INTEGER_set(X509_get_serialNumber(certificate.get()), 1);
    X509_gmtime_adj(X509_getm_notBefore(certificate.get()), -oneDay);
    X509_gmtime_adj(X509_getm_notAfter(certificate.get()), oneDay);
    X509_set_pubkey(certificate.get(), key);
    X509_NAME* name = X509_get_subject_name(certificate.get());
    X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC,
                               reinterpret_cast<const unsigned char*>("test"), -1, -1, 0);
    X509_set_issuer_name(certificate.get(), name);
    if (X509_sign(certificate.get(), key, EVP_sha256()) == 0)
        throw std::runtime_error("no certificate");
    return certificate;
}

} // namespace

TlsIdentity::TlsIdentity() : context_(SSL_CTX_new(TLS_server_method()), SSL_CTX_free) {
    // OpenSSL writes to its sockets without leave to fail quietly.
    std::signal(SIGPIPE, SIG_IGN);
    const Key key(EVP_EC_gen("P-256"), EVP_PKEY_free);
    const Certificate certificate = selfSigned(key.get());
    if (SSL_CTX_use_certificate(context_.get(), certificate.get()) != 1 ||
        SSL_CTX_use_PrivateKey(context_.get(), key.get()) != 1)
        throw std::runtime_error("no TLS");
}

TlsIdentity::Stream::Stream(const TlsIdentity& identity, int connection)
    : session_(SSL_new(identity.context_.get()), SSL_free) {
    SSL_set_fd(session_.get(), connection);
}

bool TlsIdentity::Stream::accept() {
    return SSL_accept(session_.get()) == 1;
}

int TlsIdentity::Stream::read(char* bytes, int size) {
    return SSL_read(session_.get(), bytes, size);
}

int TlsIdentity::Stream::write(const char* bytes, int size) {
    return SSL_write(session_.get(), bytes, size);
}

void TlsIdentity::Stream::end() {
    SSL_shutdown(session_.get());
}

} // namespace brinmoor::testing
