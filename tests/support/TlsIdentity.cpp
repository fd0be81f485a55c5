#include "tests/support/TlsIdentity.h"

#include <openssl/bio.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/x509.h>
#include <openssl/x509v3.h>

#include <csignal>
#include <filesystem>
#include <stdexcept>

namespace brinmoor::testing {
namespace {

constexpr long oneDay = 24L * 60 * 60;
constexpr long validity = 300 * oneDay;

using Key = std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)>;
using Certificate = std::unique_ptr<X509, decltype(&X509_free)>;
using Bio = std::unique_ptr<BIO, decltype(&BIO_free_all)>;

void addNames(X509* certificate) {
    X509_EXTENSION* const names =
        X509V3_EXT_conf_nid(nullptr, nullptr, NID_subject_alt_name, "IP:127.0.0.1,DNS:localhost");
    X509_add_ext(certificate, names, -1);
    X509_EXTENSION_free(names);
}

Certificate selfSigned(EVP_PKEY* key) {
    Certificate certificate(X509_new(), X509_free);
    X509_set_version(certificate.get(), X509_VERSION_3);
    ASN1_INTEGER_set(X509_get_serialNumber(certificate.get()), 1);
    X509_gmtime_adj(X509_getm_notBefore(certificate.get()), -oneDay);
    X509_gmtime_adj(X509_getm_notAfter(certificate.get()), validity);
    X509_set_pubkey(certificate.get(), key);
    X509_NAME* name = X509_get_subject_name(certificate.get());
    X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC,
                               reinterpret_cast<const unsigned char*>("test"), -1, -1, 0);
    X509_set_issuer_name(certificate.get(), name);
    addNames(certificate.get());
    if (X509_sign(certificate.get(), key, EVP_sha256()) == 0)
        throw std::runtime_error("no certificate");
    return certificate;
}

void use(SSL_CTX* context, X509* certificate, EVP_PKEY* key) {
    // OpenSSL writes to its sockets without leave to fail quietly.
    std::signal(SIGPIPE, SIG_IGN);
    if (SSL_CTX_use_certificate(context, certificate) != 1 ||
        SSL_CTX_use_PrivateKey(context, key) != 1)
        throw std::runtime_error("no TLS");
}

void keep(const std::string& file, X509* certificate, EVP_PKEY* key) {
    const Bio target(BIO_new_file(file.c_str(), "w"), BIO_free_all);
    if (!target || PEM_write_bio_X509(target.get(), certificate) != 1 ||
        PEM_write_bio_PrivateKey(target.get(), key, nullptr, nullptr, 0, nullptr, nullptr) != 1)
        throw std::runtime_error("no identity can be kept");
}

} // namespace

TlsIdentity::TlsIdentity() : context_(SSL_CTX_new(TLS_server_method()), SSL_CTX_free) {
    const Key key(EVP_EC_gen("P-256"), EVP_PKEY_free);
    use(context_.get(), selfSigned(key.get()).get(), key.get());
}

TlsIdentity::TlsIdentity(const std::string& file)
    : context_(SSL_CTX_new(TLS_server_method()), SSL_CTX_free) {
    if (!std::filesystem::exists(file)) {
        const Key key(EVP_EC_gen("P-256"), EVP_PKEY_free);
        keep(file, selfSigned(key.get()).get(), key.get());
    }
    const Bio source(BIO_new_file(file.c_str(), "r"), BIO_free_all);
    const Certificate certificate(PEM_read_bio_X509(source.get(), nullptr, nullptr, nullptr),
                                  X509_free);
    const Key key(PEM_read_bio_PrivateKey(source.get(), nullptr, nullptr, nullptr), EVP_PKEY_free);
    use(context_.get(), certificate.get(), key.get());
}

std::string TlsIdentity::certificate() const {
    const Bio memory(BIO_new(BIO_s_mem()), BIO_free_all);
    PEM_write_bio_X509(memory.get(), SSL_CTX_get0_certificate(context_.get()));
    char* bytes = nullptr;
    const long size = BIO_get_mem_data(memory.get(), &bytes);
    return {bytes, static_cast<std::size_t>(size)};
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
