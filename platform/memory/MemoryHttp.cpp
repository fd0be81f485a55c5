#include "platform/memory/MemoryHttp.h"

#include <algorithm>
#include <utility>

namespace brinmoor {

MemoryHttp::Call::Call(HttpRequest sent, HttpListener listener)
    : request(std::move(sent)), listener_(std::make_shared<HttpListener>(std::move(listener))) {}

void MemoryHttp::Call::answer(int status, std::string body) {
    const auto listener = listener_;
    if (!listener)
        return;
    const HttpHead head{status, request.address, {}};
    if (listener->head && listener->head(head) == HttpGoOn::no)
        listener_.reset();
    for (std::string_view left = body; listener_ && !left.empty();) {
        const auto piece = left.substr(0, HttpListener::pieceLimit);
        left.remove_prefix(piece.size());
        if (listener->bytes && listener->bytes(piece) == HttpGoOn::no)
            listener_.reset();
    }
    if (std::exchange(listener_, nullptr) && listener->end)
        listener->end(std::nullopt);
}

void MemoryHttp::Call::fail(HttpFailure failure) {
    const auto listener = std::exchange(listener_, nullptr);
    if (listener && listener->end)
        listener->end(failure);
}

bool MemoryHttp::Call::redirect(int status, const std::string& target) {
    const auto listener = listener_;
    if (!listener)
        return false;
    const HttpRedirect offered{status, request.address, target};
    const bool follows = request.method == "GET" && listener->redirect &&
                         listener->redirect(offered) == HttpGoOn::yes;
    if (!follows)
        answer(status, "");
    return follows;
}

Subscription MemoryHttp::send(HttpRequest request, HttpListener listener) {
    const std::shared_ptr<Call> call(new Call(std::move(request), std::move(listener)));
    calls.push_back(call);
    return Subscription([dropped = std::weak_ptr<Call>(call)] {
        if (const auto held = dropped.lock())
            held->listener_.reset();
    });
}

std::size_t MemoryHttp::open() const {
    return static_cast<std::size_t>(
        std::ranges::count_if(calls, [](const auto& call) { return call->isOpen(); }));
}

} // namespace brinmoor
