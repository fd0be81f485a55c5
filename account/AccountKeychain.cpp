#include "account/AccountKeychain.h"

#include "account/AccountLock.h"
#include "core/text/Characters.h"
#include "core/text/Utf8.h"
#include "platform/Clock.h"
#include "platform/SecureStore.h"

#include <utility>

namespace brinmoor {
namespace {

AccountFailure keychainFailure() {
    return {AccountFailure::Cause::keychain};
}

} // namespace

AccountKeychain::AccountKeychain(SecureStore& store, Clock& clock, std::string folder)
    : store_(store), clock_(clock), folder_(std::move(folder)) {}

template <class Body>
auto AccountKeychain::locked(Body body) -> decltype(body()) {
    const auto lock = AccountLock::take(folder_);
    if (!lock)
        return failure(lock.error());
    return body();
}

AccountKeychain::Answer<std::optional<std::string>> AccountKeychain::data(std::string_view item) {
    auto read = store_.read(service, item);
    if (!read)
        return failure(keychainFailure());
    return std::move(read).value();
}

AccountKeychain::Answer<Done> AccountKeychain::write(std::string_view item,
                                                     std::string_view bytes) {
    if (!store_.write(service, item, bytes))
        return failure(keychainFailure());
    return Done{};
}

AccountKeychain::Answer<Done> AccountKeychain::remove(std::string_view item) {
    if (!store_.remove(service, item))
        return failure(keychainFailure());
    return Done{};
}

AccountKeychain::Answer<std::optional<std::string>> AccountKeychain::storedToken() {
    auto bytes = data(tokenItem);
    if (!bytes || !*bytes)
        return bytes;
    if ((*bytes)->empty() || !text::isUtf8(**bytes))
        return std::optional<std::string>();
    return bytes;
}

AccountKeychain::Answer<std::optional<PendingEmailSignIn>> AccountKeychain::pendingSignIn() {
    const auto bytes = data(requestItem);
    if (!bytes)
        return failure(bytes.error());
    if (!*bytes)
        return std::optional<PendingEmailSignIn>();
    auto request = decodePendingSignIn(**bytes);
    if (request && request->isValid(clock_.now()))
        return request;
    // What can't be used must not stand in the user's way for ever.
    if (const auto removed = remove(requestItem); !removed)
        return failure(removed.error());
    return std::optional<PendingEmailSignIn>();
}

AccountKeychain::Answer<std::optional<std::string>> AccountKeychain::token() {
    return locked([this] { return storedToken(); });
}

AccountKeychain::Answer<std::optional<PendingEmailSignIn>> AccountKeychain::pending() {
    return locked([this] { return pendingSignIn(); });
}

AccountKeychain::Answer<Done> AccountKeychain::save(const PendingEmailSignIn& request) {
    return locked([&]() -> Answer<Done> {
        if (!request.isValid(clock_.now()) || request.consumed)
            return failure(AccountFailure{AccountFailure::Cause::callback});
        return write(requestItem, encoded(request));
    });
}

AccountKeychain::Answer<std::optional<AccountKeychain::Claim>>
AccountKeychain::claimSignIn(std::string_view url, const std::optional<std::string>& currentEmail) {
    return locked([&]() -> Answer<std::optional<Claim>> {
        auto stored = pendingSignIn();
        if (!stored)
            return failure(stored.error());
        if (!*stored || (currentEmail && text::lowercased(*currentEmail) != (*stored)->email))
            return std::optional<Claim>();
        PendingEmailSignIn request = std::move(**stored);
        auto code = request.consume(url, clock_.now());
        if (!code)
            return std::optional<Claim>();
        if (const auto written = write(requestItem, encoded(request)); !written)
            return failure(written.error());
        return std::optional(Claim{std::move(request), std::move(*code)});
    });
}

AccountKeychain::Answer<AccountKeychain::Completion>
AccountKeychain::completeSignIn(const PendingEmailSignIn& request, std::string_view token) {
    return locked([&]() -> Answer<Completion> {
        const auto stored = pendingSignIn();
        if (!stored)
            return failure(stored.error());
        if (!*stored || (*stored)->id != request.id || !(*stored)->consumed)
            return Completion::overtaken;
        const auto older = data(tokenItem);
        if (!older)
            return failure(older.error());
        if (const auto written = write(tokenItem, token); !written)
            return failure(written.error());
        if (const auto removed = remove(requestItem); !removed) {
            // Both or none: the caller will end the session of a token that could not be kept.
            (void)(*older ? write(tokenItem, **older) : remove(tokenItem));
            return failure(removed.error());
        }
        return Completion::stored;
    });
}

AccountKeychain::Answer<Done> AccountKeychain::cancelSignIn(const std::optional<Uuid>& id) {
    return locked([&]() -> Answer<Done> {
        const auto stored = pendingSignIn();
        if (!stored)
            return failure(stored.error());
        if (!*stored || !id || (*stored)->id != *id)
            return Done{};
        return remove(requestItem);
    });
}

AccountKeychain::Answer<Done> AccountKeychain::clearToken(std::string_view ifMatches) {
    return locked([&]() -> Answer<Done> {
        const auto stored = storedToken();
        if (!stored)
            return failure(stored.error());
        if (*stored != ifMatches)
            return Done{};
        return remove(tokenItem);
    });
}

AccountKeychain::Answer<Done>
AccountKeychain::removeTokenOfSignOut(const std::optional<std::string>& token) {
    const auto bytes = data(tokenItem);
    if (!bytes)
        return failure(bytes.error());
    if (!*bytes)
        return Done{};
    const bool removes = text::isUtf8(**bytes) ? token == **bytes : !token;
    return removes ? remove(tokenItem) : Answer<Done>(Done{});
}

AccountKeychain::Answer<Done> AccountKeychain::signOut(const std::optional<std::string>& token) {
    return locked([&]() -> Answer<Done> {
        if (const auto removed = removeTokenOfSignOut(token); !removed)
            return failure(removed.error());
        return remove(requestItem);
    });
}

} // namespace brinmoor
