#include "core/account/AccountRecords.h"

#include "core/text/Characters.h"
#include "core/text/SmallJson.h"
#include "core/text/Wording.h"

namespace brinmoor {
namespace {

constexpr std::size_t longestServiceWords = 400;

AccountFailure invalid() {
    return {AccountFailure::Cause::invalidResponse};
}

std::optional<text::JsonObject> objectField(const text::JsonObject& object, std::string_view key) {
    text::JsonObject inner;
    if (object.at_key(key).get(inner) != simdjson::SUCCESS)
        return std::nullopt;
    return inner;
}

std::optional<text::JsonObject> rootObject(const text::SmallJson& json) {
    text::JsonObject object;
    if (json.root().get(object) != simdjson::SUCCESS)
        return std::nullopt;
    return object;
}

std::optional<BrinmoorAccount> accountField(const text::JsonObject& object) {
    const auto account = objectField(object, "account");
    const auto user = account ? objectField(*account, "user") : std::nullopt;
    if (!user)
        return std::nullopt;
    auto id = text::textField(*user, "id");
    auto name = text::textField(*user, "name");
    auto email = text::textField(*user, "email");
    if (!id || !name || !email)
        return std::nullopt;
    return BrinmoorAccount{{std::move(*id), std::move(*name), std::move(*email)}};
}

std::optional<std::string> serviceWords(std::string_view body) {
    const text::SmallJson json(body);
    const auto object = rootObject(json);
    auto words = object ? text::textField(*object, "error") : std::nullopt;
    if (words && text::graphemeCount(*words) > longestServiceWords)
        return std::nullopt;
    return words;
}

} // namespace

std::string
encodedTexts(const std::vector<std::pair<std::string_view, std::string_view>>& members) {
    std::string json = "{";
    for (const auto& [key, value] : members) {
        json += json.size() == 1 ? "" : ",";
        json += text::quoted(key) + ":" + text::quoted(value);
    }
    return json + "}";
}

std::optional<AccountFailure> failureOfStatus(int status, std::string_view body) {
    if (status >= 200 && status <= 299)
        return std::nullopt;
    if (status == 401)
        return AccountFailure{AccountFailure::Cause::signIn};
    auto words = serviceWords(body);
    if (!words)
        words = text::worded("Brinmoor is temporarily unavailable. Try again shortly.");
    return AccountFailure{AccountFailure::Cause::service, std::move(*words)};
}

Result<Done, AccountFailure> decodeMailAnswer(std::string_view body) {
    const text::SmallJson json(body);
    const auto object = rootObject(json);
    if (!object || text::booleanField(*object, "ok") != true)
        return failure(invalid());
    return Done{};
}

Result<SignInExchange, AccountFailure> decodeExchange(std::string_view body) {
    const text::SmallJson json(body);
    const auto object = rootObject(json);
    auto token = object ? text::textField(*object, "accessToken") : std::nullopt;
    auto account = object ? accountField(*object) : std::nullopt;
    if (!token || !account)
        return failure(invalid());
    return SignInExchange{std::move(*token), std::move(*account)};
}

Result<BrinmoorAccount, AccountFailure> decodeAccount(std::string_view body) {
    const text::SmallJson json(body);
    const auto object = rootObject(json);
    auto account = object ? accountField(*object) : std::nullopt;
    if (!account)
        return failure(invalid());
    return std::move(*account);
}

} // namespace brinmoor
