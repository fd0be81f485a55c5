#include "tests/service/LocalService.h"

#include "core/account/NativeCallback.h"
#include "core/usage/UsageAccumulator.h"
#include "tests/support/TlsIdentity.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRandomGenerator>

#include <algorithm>
#include <array>

namespace brinmoor::testing {
namespace {

constexpr auto base64Form = QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals;

QString words(const std::string& text) {
    return QString::fromStdString(text);
}

HttpAnswer json(int status, const QJsonObject& body) {
    return {.status = status,
            .type = "application/json",
            .body = QJsonDocument(body).toJson(QJsonDocument::Compact).toStdString()};
}

HttpAnswer refusal(int status, const char* reason) {
    return json(status, {{u"error"_qs, QString::fromUtf8(reason)}});
}

QJsonObject bodyOf(const HttpRequest& request) {
    return QJsonDocument::fromJson(QByteArray::fromStdString(request.body)).object();
}

std::string textOf(const QJsonObject& body, const QString& key) {
    return body.value(key).toString().toStdString();
}

std::string nonce() {
    std::array<quint32, 8> bytes{};
    QRandomGenerator::system()->fillRange(bytes.data(), static_cast<qsizetype>(bytes.size()));
    return QByteArray(reinterpret_cast<const char*>(bytes.data()), 32)
        .toBase64(base64Form)
        .toStdString();
}

std::string challengeOf(const std::string& verifier) {
    return QCryptographicHash::hash(QByteArray::fromStdString(verifier), QCryptographicHash::Sha256)
        .toBase64(base64Form)
        .toStdString();
}

std::string today() {
    return QDateTime::currentDateTimeUtc().date().toString(Qt::ISODate).toStdString();
}

} // namespace

LocalService::LocalService(Options options) : options_(std::move(options)) {
    QDir().mkpath(words(options_.mailFolder));
    auto identity = options_.identityFile.empty()
                        ? std::make_unique<TlsIdentity>()
                        : std::make_unique<TlsIdentity>(options_.identityFile);
    server_ =
        std::make_unique<HttpServer>([this](const HttpRequest& request) { return handle(request); },
                                     std::move(identity), options_.port);
}

LocalService::~LocalService() = default;

void LocalService::interfere(Interference interference) {
    const std::scoped_lock lock(guard_);
    interference_ = std::move(interference);
}

std::vector<Mail> LocalService::mails() const {
    const std::scoped_lock lock(guard_);
    return mails_;
}

std::vector<std::string> LocalService::requests() const {
    const std::scoped_lock lock(guard_);
    return requests_;
}

bool LocalService::isValid(const std::string& token) const {
    const std::scoped_lock lock(guard_);
    return sessions_.contains(token);
}

std::string LocalService::newSession(const std::string& email) {
    const std::scoped_lock lock(guard_);
    std::string token = nonce();
    sessions_[token] = {email, "Another Device"};
    return token;
}

void LocalService::endAllSessions() {
    const std::scoped_lock lock(guard_);
    sessions_.clear();
}

HttpAnswer LocalService::handle(const HttpRequest& request) {
    Interference interference;
    {
        const std::scoped_lock lock(guard_);
        requests_.push_back(request.method + " " + request.path);
        interference = interference_;
    }
    if (interference)
        if (auto answer = interference(request))
            return *answer;
    const std::scoped_lock lock(guard_);
    const std::string call = request.method + " " + request.path;
    if (call == "POST /api/auth/native/request")
        return requestMail(request);
    if (call == "POST /api/auth/exchange")
        return exchange(request);
    if (call == "GET /api/account")
        return account(request);
    if (call == "POST /api/auth/logout")
        return logout(request);
    if (call == "POST /api/usage")
        return takeUsage(request);
    if (call == "GET /api/usage/report")
        return report(request);
    return refusal(404, "There is no such call.");
}

HttpAnswer LocalService::requestMail(const HttpRequest& request) {
    const QJsonObject body = bodyOf(request);
    const Invitation invitation{textOf(body, u"email"_qs), textOf(body, u"name"_qs),
                                textOf(body, u"challenge"_qs), textOf(body, u"state"_qs)};
    if (NativeCallback::normalizedEmail(invitation.email) != invitation.email ||
        !NativeCallback::isNonce(invitation.challenge) ||
        !NativeCallback::isNonce(invitation.state) || textOf(body, u"client"_qs) != "mac")
        return refusal(400, "The request is not complete.");
    const std::string code = nonce();
    invitations_[code] = invitation;
    send(
        {invitation.email, "brinmoor://auth/callback?code=" + code + "&state=" + invitation.state});
    return json(200, {{u"ok"_qs, true}});
}

void LocalService::send(const Mail& mail) {
    mails_.push_back(mail);
    const QString name = u"%1-%2.txt"_qs.arg(mails_.size(), 3, 10, QLatin1Char('0'))
                             .arg(words(mail.email).replace(u'/', u'_'));
    QFile file(QDir(words(options_.mailFolder)).filePath(name));
    if (file.open(QIODevice::WriteOnly))
        file.write(QByteArray::fromStdString("To: " + mail.email +
                                             "\nSubject: Sign in to Brinmoor\n\nOpen this link on "
                                             "the computer where you use Brinmoor:\n\n" +
                                             mail.link + "\n"));
}

HttpAnswer LocalService::exchange(const HttpRequest& request) {
    const QJsonObject body = bodyOf(request);
    const auto found = invitations_.find(textOf(body, u"code"_qs));
    if (found == invitations_.end())
        return refusal(410, "This link was used already.");
    const Invitation invitation = found->second;
    invitations_.erase(found);
    if (invitation.state != textOf(body, u"state"_qs) ||
        invitation.challenge != challengeOf(textOf(body, u"verifier"_qs)))
        return refusal(403, "This link belongs to another request.");
    const std::string token = nonce();
    sessions_[token] = {invitation.email, invitation.name};
    const QJsonObject user{{u"id"_qs, words("user-" + invitation.email)},
                           {u"name"_qs, words(invitation.name)},
                           {u"email"_qs, words(invitation.email)}};
    return json(
        200, {{u"accessToken"_qs, words(token)}, {u"account"_qs, QJsonObject{{u"user"_qs, user}}}});
}

const LocalService::User* LocalService::userOf(const HttpRequest& request) const {
    const std::string header = request.header("Authorization");
    if (!header.starts_with("Bearer "))
        return nullptr;
    const auto found = sessions_.find(header.substr(7));
    return found == sessions_.end() ? nullptr : &found->second;
}

HttpAnswer LocalService::account(const HttpRequest& request) {
    const User* const user = userOf(request);
    if (user == nullptr)
        return refusal(401, "Sign in first.");
    const QJsonObject record{{u"id"_qs, words("user-" + user->email)},
                             {u"name"_qs, words(user->name)},
                             {u"email"_qs, words(user->email)}};
    return json(200, {{u"account"_qs, QJsonObject{{u"user"_qs, record}}}});
}

HttpAnswer LocalService::logout(const HttpRequest& request) {
    if (userOf(request) == nullptr)
        return refusal(401, "Sign in first.");
    sessions_.erase(request.header("Authorization").substr(7));
    return json(200, {{u"ok"_qs, true}});
}

HttpAnswer LocalService::takeUsage(const HttpRequest& request) {
    const auto batch = decodeUsageBatch(request.body);
    if (!batch)
        return refusal(400, "This is no batch.");
    if (batches_.insert(batch->batchID.string()).second)
        for (const auto& [event, count] : batch->counts)
            if (usageEvent(event) && count >= 1 && count <= mostOfOneEvent)
                counts_[today()][event] += count;
    return json(200, {{u"ok"_qs, true}});
}

HttpAnswer LocalService::report(const HttpRequest& request) {
    const User* const user = userOf(request);
    if (user == nullptr)
        return refusal(401, "Sign in first.");
    if (user->email != options_.ownerAddress)
        return refusal(403, "Only the owner may read the report.");
    QJsonArray rows;
    for (const auto& [day, events] : counts_)
        for (const auto& [event, count] : events)
            rows.append(QJsonObject{{u"day"_qs, words(day)},
                                    {u"event"_qs, words(event)},
                                    {u"count"_qs, static_cast<qint64>(count)}});
    return json(200, {{u"days"_qs, 30}, {u"rows"_qs, rows}});
}

} // namespace brinmoor::testing
