#include "account/AccountService.h"

#include <QCryptographicHash>

#include <utility>

namespace brinmoor {
namespace {

/// The S256 form of a proof key.
std::string challengeOf(const std::string& verifier) {
    const QByteArray hash =
        QCryptographicHash::hash(QByteArray::fromStdString(verifier), QCryptographicHash::Sha256);
    return hash.toBase64(QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals)
        .toStdString();
}

HttpHeader bearer(std::string_view token) {
    return {"Authorization", "Bearer " + std::string(token)};
}

const HttpHeader acceptsJson{"Accept", "application/json"};

} // namespace

AccountService::AccountService(Http& http, std::string baseURL)
    : http_(http), baseURL_(std::move(baseURL)) {
    if (!baseURL_.ends_with('/'))
        baseURL_ += '/';
}

AccountService::~AccountService() {
    for (const auto& call : std::exchange(calls_, {}))
        if (const auto open = call.lock())
            open->cancel();
}

AccountService::Call AccountService::requestMail(const PendingEmailSignIn& request) {
    return start(
        post("api/auth/native/request", encodedTexts({{"email", request.email},
                                                      {"name", request.name},
                                                      {"client", "mac"},
                                                      {"challenge", challengeOf(request.verifier)},
                                                      {"state", request.state}})));
}

AccountService::Call AccountService::exchange(const PendingEmailSignIn& request,
                                              std::string_view code) {
    return start(post(
        "api/auth/exchange",
        encodedTexts({{"code", code}, {"verifier", request.verifier}, {"state", request.state}})));
}

AccountService::Call AccountService::account(std::string_view token,
                                             std::chrono::milliseconds timeout) {
    HttpRequest request = get("api/account", token);
    request.silenceLimit = timeout;
    return start(std::move(request));
}

AccountService::Call AccountService::usageReport(std::string_view token) {
    return start(get("api/usage/report", token));
}

void AccountService::revoke(std::string_view token) {
    HttpRequest request = post("api/auth/logout", {});
    request.headers = {bearer(token)};
    request.silenceLimit = std::chrono::seconds(60);
    keepUntilItEnds(start(std::move(request)));
}

QCoro::Task<> AccountService::keepUntilItEnds(Call call) {
    const QFuture<ServiceCall::Answer> ending = call->answer();
    co_await ending;
}

HttpRequest AccountService::post(std::string_view path, std::string body) const {
    HttpRequest request;
    request.method = "POST";
    request.address = baseURL_ + std::string(path);
    request.headers = {acceptsJson, {"Content-Type", "application/json"}};
    request.body = std::move(body);
    request.silenceLimit = requestLimit;
    return request;
}

HttpRequest AccountService::get(std::string_view path, std::string_view token) const {
    HttpRequest request;
    request.address = baseURL_ + std::string(path);
    request.headers = {acceptsJson, bearer(token)};
    request.silenceLimit = requestLimit;
    return request;
}

AccountService::Call AccountService::start(HttpRequest request) {
    request.totalLimit = resourceLimit;
    std::erase_if(calls_, [](const auto& call) { return call.expired(); });
    auto call = std::make_shared<ServiceCall>(http_, std::move(request));
    calls_.push_back(call);
    return call;
}

} // namespace brinmoor
