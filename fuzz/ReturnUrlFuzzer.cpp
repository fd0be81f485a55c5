#include "core/account/NativeCallback.h"
#include "core/account/PendingEmailSignIn.h"
#include "fuzz/Promise.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

using namespace brinmoor;

namespace {

const std::string state(43, 's');
constexpr Instant now{800000000};

/// What the strict reading takes is one of two spellings of one URL, up to escapes.
void checkUrl(std::string_view url) {
    PendingEmailSignIn request({}, std::string(43, 'v'), state, "a@b.c", "", now);
    const auto code = request.consume(url, now);
    fuzz::promise(request.consumed == code.has_value(),
                  "a code consumes the request, nothing else");
    if (!code)
        return;
    fuzz::promise(NativeCallback::isNonce(*code), "a code has its form");
    fuzz::promise(NativeCallback::isSignIn(url), "an accepted URL is one of a sign-in");
    fuzz::promise(url.starts_with("brinmoor://auth/callback?"),
                  "an accepted URL begins as it must");
    const std::string plain = "brinmoor://auth/callback?state=" + state + "&code=" + *code;
    fuzz::promise(AccountAccess::callbackCode(plain, state) == code,
                  "the plain spelling is accepted");
    fuzz::promise(!request.consume(url, now), "a link is accepted once");
}

void checkEmail(std::string_view text) {
    const auto normal = NativeCallback::normalizedEmail(text);
    fuzz::promise(!normal || NativeCallback::normalizedEmail(*normal) == normal,
                  "a normal form is its own");
}

void checkRecord(std::string_view text) {
    const auto request = decodePendingSignIn(text);
    fuzz::promise(!request || decodePendingSignIn(encoded(*request)) == request,
                  "a request is read back as it was written");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    checkUrl(input);
    checkEmail(input);
    checkRecord(input);
    return 0;
}
