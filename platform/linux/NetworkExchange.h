#pragma once

#include "platform/Http.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QPointer>
#include <QSslConfiguration>
#include <QTimer>

#include <cstdint>

namespace brinmoor {

/// One call from its first request over its redirects to its end. A child of the network, so that
/// it never outlives it; deletes itself when it has ended.
class NetworkExchange final : public QObject {
public:
    NetworkExchange(QNetworkAccessManager& network, QSslConfiguration tls, HttpRequest request,
                    HttpListener listener);
    ~NetworkExchange() override;

    void start();
    /// Ends it without a word.
    void drop();

private:
    void ask(const QUrl& address);
    [[nodiscard]] QNetworkRequest requestFor(const QUrl& address) const;
    void letReplyGo();
    void alive();
    void headArrived();
    void bytesArrived();
    void finished();
    [[nodiscard]] bool followed(const HttpHead& head);
    [[nodiscard]] bool isWhole() const;
    void fail(HttpFailure failure);

    QNetworkAccessManager& network_;
    QSslConfiguration tls_;
    HttpRequest request_;
    HttpListener listener_;
    QPointer<QNetworkReply> reply_;
    QTimer silence_;
    QTimer total_;
    QUrl first_;
    int redirects_ = 0;
    std::uint64_t received_ = 0;
    bool headTold_ = false;
    bool ended_ = false;
};

} // namespace brinmoor
