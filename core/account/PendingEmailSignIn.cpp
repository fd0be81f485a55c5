#include "core/account/PendingEmailSignIn.h"

#include "core/account/NativeCallback.h"
#include "core/text/SmallJson.h"

#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace brinmoor {
namespace {

/// The start nearest before `now` from which the end is the exact lifetime away in doubles.
double exactStart(double now) {
    constexpr double stepsPerSecond = 1048576;
    const double end = now + PendingEmailSignIn::lifetime;
    return end - now == PendingEmailSignIn::lifetime
               ? now
               : std::floor(now * stepsPerSecond) / stepsPerSecond;
}

std::string number(double value) {
    std::array<char, 32> digits{};
    char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    return {digits.data(), end};
}

std::optional<Instant> instantField(const text::JsonObject& object, std::string_view key) {
    double seconds = 0;
    if (object.at_key(key).get(seconds) != simdjson::SUCCESS)
        return std::nullopt;
    return Instant{seconds};
}

std::optional<Uuid> uuidField(const text::JsonObject& object, std::string_view key) {
    const auto spelled = text::textField(object, key);
    return spelled ? Uuid::parse(*spelled) : std::nullopt;
}

} // namespace

PendingEmailSignIn::PendingEmailSignIn(Uuid newID, std::string newVerifier, std::string newState,
                                       std::string normalEmail, std::string typedName, Instant now)
    : id(newID), verifier(std::move(newVerifier)), state(std::move(newState)),
      email(std::move(normalEmail)),
      name(std::move(typedName)), createdAt{exactStart(now.seconds)}, expiresAt{createdAt.seconds +
                                                                                lifetime} {}

bool PendingEmailSignIn::isValid(Instant at) const {
    return at >= createdAt && at < expiresAt && expiresAt.seconds - createdAt.seconds == lifetime &&
           NativeCallback::isNonce(verifier) && NativeCallback::isNonce(state) &&
           NativeCallback::normalizedEmail(email) == email;
}

std::optional<std::string> PendingEmailSignIn::consume(std::string_view url, Instant now) {
    if (consumed || !isValid(now))
        return std::nullopt;
    auto code = AccountAccess::callbackCode(url, state);
    consumed = code.has_value();
    return code;
}

std::string encoded(const PendingEmailSignIn& request) {
    std::string json = "{\"id\":" + text::quoted(request.id.string());
    json += ",\"verifier\":" + text::quoted(request.verifier);
    json += ",\"state\":" + text::quoted(request.state);
    json += ",\"email\":" + text::quoted(request.email);
    json += ",\"name\":" + text::quoted(request.name);
    json += ",\"createdAt\":" + number(request.createdAt.seconds);
    json += ",\"expiresAt\":" + number(request.expiresAt.seconds);
    return json + (request.consumed ? ",\"consumed\":true}" : ",\"consumed\":false}");
}

std::optional<PendingEmailSignIn> decodePendingSignIn(std::string_view json) {
    const text::SmallJson parsed(json);
    text::JsonObject object;
    if (parsed.root().get(object) != simdjson::SUCCESS)
        return std::nullopt;
    const auto id = uuidField(object, "id");
    auto verifier = text::textField(object, "verifier");
    auto state = text::textField(object, "state");
    auto email = text::textField(object, "email");
    auto name = text::textField(object, "name");
    const auto createdAt = instantField(object, "createdAt");
    const auto expiresAt = instantField(object, "expiresAt");
    const auto consumed = text::booleanField(object, "consumed");
    if (!id || !verifier || !state || !email || !name || !createdAt || !expiresAt || !consumed)
        return std::nullopt;
    PendingEmailSignIn request;
    request.id = *id;
    request.verifier = std::move(*verifier);
    request.state = std::move(*state);
    request.email = std::move(*email);
    request.name = std::move(*name);
    request.createdAt = *createdAt;
    request.expiresAt = *expiresAt;
    request.consumed = *consumed;
    return request;
}

} // namespace brinmoor
