#pragma once

#include "platform/Http.h"

#include <QNetworkAccessManager>
#include <QSslConfiguration>

#include <string_view>

namespace brinmoor {

/// Http over Qt's network stack. Two objects share no connection.
class NetworkHttp final : public Http {
public:
    NetworkHttp();
    /// Trusts the certificates of `authorities` (PEM, one or several) too, beside those that the
    /// system trusts.
    explicit NetworkHttp(std::string_view authorities);
    ~NetworkHttp() override;
    NetworkHttp(const NetworkHttp&) = delete;
    NetworkHttp& operator=(const NetworkHttp&) = delete;

    [[nodiscard]] Subscription send(HttpRequest request, HttpListener listener) override;

private:
    QSslConfiguration tls_;
    QNetworkAccessManager network_;
};

} // namespace brinmoor
