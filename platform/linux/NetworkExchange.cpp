#include "platform/linux/NetworkExchange.h"

#include <QNetworkRequest>

#include <array>
#include <string_view>
#include <utility>

namespace brinmoor {
namespace {

constexpr int mostRedirects = 20;

QUrl urlOf(const std::string& address) {
    return QUrl::fromEncoded(QByteArray::fromStdString(address), QUrl::StrictMode);
}

bool isAskable(const QUrl& address) {
    const QString scheme = address.scheme();
    return address.isValid() && (scheme == u"http" || scheme == u"https") &&
           !address.host().isEmpty() && address.userInfo().isEmpty();
}

/// The names under this domain exist nowhere, and asking for one tells others that it was asked.
bool isReservedAsInvalid(const QUrl& address) {
    const QString host = address.host();
    return host == u"invalid" || host.endsWith(u".invalid") || host.endsWith(u".invalid.");
}

bool isRedirect(int status) {
    return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

bool carriesBody(const std::string& method) {
    return method == "POST" || method == "PUT";
}

bool isAuthorization(const HttpHeader& header) {
    return QByteArray::fromStdString(header.name).toLower() == "authorization";
}

bool isSameServer(const QUrl& one, const QUrl& other) {
    return one.scheme() == other.scheme() && one.host() == other.host() &&
           one.port() == other.port();
}

/// A failing status is reported as an error by the network stack, but is an answer.
bool isAnswer(QNetworkReply::NetworkError error, int status) {
    if (error == QNetworkReply::NoError)
        return true;
    return status >= 400 && error >= QNetworkReply::ContentAccessDenied &&
           error <= QNetworkReply::UnknownServerError && error != QNetworkReply::ProtocolFailure;
}

HttpFailure failureOf(QNetworkReply::NetworkError error) {
    switch (error) {
    case QNetworkReply::TimeoutError:
        return HttpFailure::timedOut;
    case QNetworkReply::SslHandshakeFailedError:
        return HttpFailure::insecure;
    case QNetworkReply::ProtocolFailure:
    case QNetworkReply::ProtocolInvalidOperationError:
    case QNetworkReply::UnknownContentError:
        return HttpFailure::malformed;
    default:
        return HttpFailure::unreachable;
    }
}

int statusOf(const QNetworkReply& reply) {
    return reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

HttpHead headOf(const QNetworkReply& reply) {
    HttpHead head;
    head.status = statusOf(reply);
    head.address = reply.url().toEncoded().toStdString();
    for (const auto& [name, value] : reply.rawHeaderPairs())
        head.headers.push_back({name.toStdString(), value.toStdString()});
    return head;
}

} // namespace

NetworkExchange::NetworkExchange(QNetworkAccessManager& network, QSslConfiguration tls,
                                 HttpRequest request, HttpListener listener)
    : QObject(&network), network_(network), tls_(std::move(tls)), request_(std::move(request)),
      listener_(std::move(listener)) {
    for (QTimer* timer : {&silence_, &total_}) {
        timer->setSingleShot(true);
        connect(timer, &QTimer::timeout, this, [this] { fail(HttpFailure::timedOut); });
    }
}

NetworkExchange::~NetworkExchange() {
    // A listener may hold its own subscription, which drops this call when it goes: it goes while
    // there still is something to drop, and finds that nothing is left to do.
    ended_ = true;
    const HttpListener last = std::exchange(listener_, {});
    letReplyGo();
}

void NetworkExchange::start() {
    first_ = urlOf(request_.address);
    const auto failLater = [this](HttpFailure failure) {
        QMetaObject::invokeMethod(
            this, [this, failure] { fail(failure); }, Qt::QueuedConnection);
    };
    if (!isAskable(first_))
        return failLater(HttpFailure::refusedAddress);
    total_.start(request_.totalLimit);
    ask(first_);
}

void NetworkExchange::ask(const QUrl& address) {
    if (isReservedAsInvalid(address)) {
        QMetaObject::invokeMethod(
            this, [this] { fail(HttpFailure::unreachable); }, Qt::QueuedConnection);
        return;
    }
    const QNetworkRequest request = requestFor(address);
    const auto method = QByteArray::fromStdString(request_.method);
    if (carriesBody(request_.method))
        reply_ =
            network_.sendCustomRequest(request, method, QByteArray::fromStdString(request_.body));
    else
        reply_ = network_.sendCustomRequest(request, method);
    reply_->setReadBufferSize(HttpListener::pieceLimit);
    connect(reply_, &QNetworkReply::encrypted, this, &NetworkExchange::alive);
    connect(reply_, &QNetworkReply::uploadProgress, this, &NetworkExchange::alive);
    connect(reply_, &QNetworkReply::metaDataChanged, this, &NetworkExchange::headArrived);
    connect(reply_, &QNetworkReply::readyRead, this, &NetworkExchange::bytesArrived);
    connect(reply_, &QNetworkReply::finished, this, &NetworkExchange::finished);
    alive();
}

QNetworkRequest NetworkExchange::requestFor(const QUrl& address) const {
    QNetworkRequest request(address);
    request.setSslConfiguration(tls_);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute,
                         QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    // One answer a connection at a time: what is not read yet then holds up the server.
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    request.setRawHeader("User-Agent", "Brinmoor");
    // Otherwise the network stack tells the user's language.
    request.setRawHeader("Accept-Language", "*");
    const bool isFirstServer = isSameServer(address, first_);
    for (const HttpHeader& header : request_.headers)
        if (isFirstServer || !isAuthorization(header))
            request.setRawHeader(QByteArray::fromStdString(header.name),
                                 QByteArray::fromStdString(header.value));
    return request;
}

void NetworkExchange::letReplyGo() {
    if (!reply_)
        return;
    QNetworkReply* const reply = reply_;
    reply_.clear();
    disconnect(reply, nullptr, this, nullptr);
    // Its end breaks the connection off; an abort() inside one of its signals would be reported.
    reply->deleteLater();
}

void NetworkExchange::drop() {
    if (std::exchange(ended_, true))
        return;
    silence_.stop();
    total_.stop();
    letReplyGo();
    deleteLater();
}

void NetworkExchange::fail(HttpFailure failure) {
    if (ended_)
        return;
    drop();
    if (listener_.end)
        listener_.end(failure);
}

void NetworkExchange::alive() {
    silence_.start(request_.silenceLimit);
}

void NetworkExchange::headArrived() {
    if (ended_ || headTold_ || statusOf(*reply_) == 0)
        return;
    alive();
    const HttpHead head = headOf(*reply_);
    if (followed(head) || ended_)
        return;
    headTold_ = true;
    if (listener_.head && listener_.head(head) == HttpGoOn::no)
        drop();
}

bool NetworkExchange::followed(const HttpHead& head) {
    const auto location = head.header("Location");
    if (!isRedirect(head.status) || !location || request_.method != "GET" ||
        redirects_ == mostRedirects || !listener_.redirect)
        return false;
    QUrl target = reply_->url().resolved(urlOf(*location));
    target.setFragment(QString());
    const bool isLessSafe = reply_->url().scheme() == u"https" && target.scheme() != u"https";
    if (!isAskable(target) || isLessSafe)
        return false;
    const HttpRedirect redirect{head.status, head.address, target.toEncoded().toStdString()};
    if (listener_.redirect(redirect) == HttpGoOn::no || ended_)
        return false;
    ++redirects_;
    letReplyGo();
    ask(target);
    return true;
}

void NetworkExchange::bytesArrived() {
    std::array<char, HttpListener::pieceLimit> piece{};
    while (!ended_ && headTold_ && reply_ && reply_->bytesAvailable() > 0) {
        const qint64 size = reply_->read(piece.data(), static_cast<qint64>(piece.size()));
        if (size <= 0)
            return;
        alive();
        received_ += static_cast<std::uint64_t>(size);
        const std::string_view bytes(piece.data(), static_cast<std::size_t>(size));
        if (listener_.bytes && listener_.bytes(bytes) == HttpGoOn::no)
            drop();
    }
}

void NetworkExchange::finished() {
    if (ended_)
        return;
    if (!isAnswer(reply_->error(), statusOf(*reply_)) || statusOf(*reply_) == 0)
        return fail(reply_->error() == QNetworkReply::NoError ? HttpFailure::malformed
                                                              : failureOf(reply_->error()));
    QNetworkReply* const answered = reply_;
    headArrived();
    if (ended_ || reply_ != answered)
        return;
    bytesArrived();
    if (ended_)
        return;
    if (!isWhole())
        return fail(HttpFailure::unreachable);
    drop();
    if (listener_.end)
        listener_.end(std::nullopt);
}

/// The network stack now and then takes a connection that broke off for an answer's end.
bool NetworkExchange::isWhole() const {
    const QByteArray length = reply_->rawHeader("Content-Length");
    if (length.isEmpty() || reply_->hasRawHeader("Content-Encoding"))
        return true;
    return length.toULongLong() == received_;
}

} // namespace brinmoor
