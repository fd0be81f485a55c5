#pragma once

#include "core/Result.h"
#include "platform/Http.h"

#include <QCoroFuture>
#include <QFuture>
#include <QPromise>

#include <cstddef>
#include <string>

namespace brinmoor {

/// What the service answered, whole.
struct ServiceAnswer {
    int status = 0;
    std::string body; ///< empty when it was longer than any that the service gives
};

/// One request to the service that coroutines can wait for. Redirects are answers. Whoever waits
/// gets exactly one answer: `cancelled` when the call was given up. Main thread.
class ServiceCall {
public:
    using Answer = Result<ServiceAnswer, HttpFailure>;

    static constexpr std::size_t longestBody = std::size_t{1} << 20;

    ServiceCall(Http& http, HttpRequest request);
    ServiceCall(const ServiceCall&) = delete;
    ServiceCall& operator=(const ServiceCall&) = delete;
    ~ServiceCall() { cancel(); }

    /// Gives the call up; nothing happens when it has ended.
    void cancel();
    /// Any number may wait; they resume in the event loop.
    [[nodiscard]] QFuture<Answer> answer() const { return promise_.future(); }

private:
    [[nodiscard]] HttpGoOn take(std::string_view bytes);
    void end(Answer answer);

    QPromise<Answer> promise_;
    ServiceAnswer received_;
    bool ended_ = false;
    Subscription call_;
};

} // namespace brinmoor
