#include "platform/linux/NetworkHttp.h"

#include "platform/linux/NetworkExchange.h"

#include <QNetworkCookie>
#include <QNetworkCookieJar>
#include <QSslCertificate>

namespace brinmoor {
namespace {

class NoCookies final : public QNetworkCookieJar {
public:
    QList<QNetworkCookie> cookiesForUrl(const QUrl&) const override { return {}; }
    bool setCookiesFromUrl(const QList<QNetworkCookie>&, const QUrl&) override { return false; }
};

} // namespace

NetworkHttp::NetworkHttp() : NetworkHttp(std::string_view()) {}

NetworkHttp::NetworkHttp(std::string_view authorities)
    : tls_(QSslConfiguration::defaultConfiguration()) {
    tls_.addCaCertificates(QSslCertificate::fromData(
        QByteArray(authorities.data(), static_cast<qsizetype>(authorities.size()))));
    network_.setCookieJar(new NoCookies);
    network_.setRedirectPolicy(QNetworkRequest::ManualRedirectPolicy);
    network_.setAutoDeleteReplies(false);
}

NetworkHttp::~NetworkHttp() = default;

Subscription NetworkHttp::send(HttpRequest request, HttpListener listener) {
    auto* exchange = new NetworkExchange(network_, tls_, std::move(request), std::move(listener));
    exchange->start();
    return Subscription([held = QPointer<NetworkExchange>(exchange)] {
        if (held)
            held->drop();
    });
}

} // namespace brinmoor
