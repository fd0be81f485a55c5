#pragma once

#include "platform/Subscription.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brinmoor {

struct HttpHeader {
    std::string name;
    std::string value;
    friend bool operator==(const HttpHeader&, const HttpHeader&) = default;
};

struct HttpRequest {
    std::string method = "GET";
    std::string address; ///< http or https, percent-encoded, without user and password
    std::vector<HttpHeader> headers = {};
    std::string body = {}; ///< sent with POST and PUT only
    /// How long nothing may happen: no connection, no further byte of the answer.
    std::chrono::milliseconds silenceLimit{60'000};
    /// How long all of it may take, redirects included.
    std::chrono::milliseconds totalLimit{60'000};
};

/// The beginning of an answer: everything before its body.
struct HttpHead {
    int status = 0;
    std::string address; ///< who answered: the last target when redirects were followed
    std::vector<HttpHeader> headers = {};

    /// The value of the first header of that name, letter case ignored; absent when there is none.
    [[nodiscard]] std::optional<std::string> header(std::string_view name) const;
};

enum class HttpFailure {
    refusedAddress, ///< no address that can be asked: another scheme, a user, not well-formed
    unreachable,    ///< no connection, or it broke before the answer was whole; an answer that is
                    ///< no HTTP at all looks like that too
    timedOut,       ///< one of the two limits passed
    insecure,       ///< the server could not prove who it is, or no safe connection was agreed on
    malformed,      ///< what came breaks the rules of HTTP or of its own compression
    cancelled,      ///< given up: for owners of a call to tell those who wait for them, never told
                    ///< to a listener
};

enum class HttpGoOn { yes, no };

/// Where a server wants a GET to go on.
struct HttpRedirect {
    int status = 0;
    std::string from;
    std::string target; ///< absolute, http or https
};

/// What one call tells, in the order of the members; any of them may be left empty. None is called
/// before send() has returned or after the call was dropped; each may drop the call.
struct HttpListener {
    /// Asked before a redirect is followed. Left empty, or answering no, makes the redirect itself
    /// the answer, with its status and its body. Only a GET can be sent on, at most 20 times, and
    /// never from https to http; an Authorization header goes to the first server alone.
    std::function<HttpGoOn(const HttpRedirect&)> redirect = {};
    /// Called once for the answer. `no` ends the call in silence: nothing more is told or read.
    std::function<HttpGoOn(const HttpHead&)> head = {};
    /// The next bytes of the body, at most `pieceLimit` at once, after undoing any compression.
    /// `no` ends the call in silence.
    std::function<HttpGoOn(std::string_view)> bytes = {};
    /// Called once: with nothing after the last byte, whatever the status, or with what failed.
    /// An answer that did not tell its length may have broken off and still end with nothing.
    std::function<void(std::optional<HttpFailure>)> end = {};

    static constexpr std::size_t pieceLimit = std::size_t{64} << 10;
};

/// Calls to web servers that leave no trace: no cookies are kept or sent, nothing is cached, no
/// user name, password or proxy password is ever offered, and no header tells the user's language.
/// A status of failure is an answer like any other. Main thread.
///
/// An answer is read as fast as it is taken: what a listener has not seen yet is bounded. How many
/// calls run at once is the caller's matter. A host under ".invalid" is never looked up: asking it
/// gives `unreachable`.
class Http {
public:
    virtual ~Http() = default;

    /// Starts a call. It is given up, without another word, when the subscription or this object
    /// goes. A User-Agent of "Brinmoor" is sent unless `request` has one.
    [[nodiscard]] virtual Subscription send(HttpRequest request, HttpListener listener) = 0;
};

} // namespace brinmoor
