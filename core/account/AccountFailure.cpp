#include "core/account/AccountFailure.h"

#include "core/text/Wording.h"

namespace brinmoor {

using text::worded;

std::string AccountFailure::errorDescription() const {
    switch (cause) {
    case Cause::service:
    case Cause::system:
        return text;
    case Cause::signIn:
        return worded("Please sign in again. Your saved library is still available.");
    case Cause::invalidResponse:
        return worded("Brinmoor couldn’t verify your account. Please try again in a moment.");
    case Cause::callback:
        return worded("This sign-in link doesn’t match your request. Start sign-in again in "
                      "Brinmoor.");
    case Cause::keychain:
        return worded("Brinmoor couldn’t access your login in macOS Keychain. Unlock your keychain "
                      "and try again.");
    case Cause::accountBusy:
        return worded("Another copy of Brinmoor is updating your account. Please try again in a "
                      "moment.");
    case Cause::connection:
        return worded("Brinmoor couldn’t connect. Check your internet connection and try again. "
                      "Your saved library is still available.");
    }
    return {};
}

} // namespace brinmoor
