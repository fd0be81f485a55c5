#pragma once

#include "platform/Http.h"

#include <deque>
#include <memory>

namespace brinmoor {

/// Takes down what is sent and answers when a test says so.
class MemoryHttp final : public Http {
public:
    /// One call, answered by hand. What was dropped is told nothing.
    class Call {
    public:
        HttpRequest request;

        /// Answers whole: head, body, end.
        void answer(int status, std::string body);
        void fail(HttpFailure failure);
        /// Offers a redirect; true when it is followed, and then the call is still open. Otherwise
        /// the redirect was the answer.
        bool redirect(int status, const std::string& target);
        /// Neither answered nor dropped.
        [[nodiscard]] bool isOpen() const { return listener_ != nullptr; }

    private:
        friend class MemoryHttp;
        Call(HttpRequest sent, HttpListener listener);
        std::shared_ptr<HttpListener> listener_;
    };

    /// Every call, in order; they stay where they are.
    std::deque<std::shared_ptr<Call>> calls;

    [[nodiscard]] Subscription send(HttpRequest request, HttpListener listener) override;
    /// How many calls are open.
    [[nodiscard]] std::size_t open() const;
};

} // namespace brinmoor
