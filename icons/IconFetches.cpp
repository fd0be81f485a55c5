#include "icons/IconFetches.h"

#include "core/library/Library.h"

#include <QCoroFuture>
#include <QPromise>
#include <QTimer>

#include <algorithm>
#include <charconv>
#include <utility>

namespace brinmoor {
namespace {

using Result = std::optional<Fetched>;

bool isSuccess(int status) {
    return status >= 200 && status <= 299;
}

/// The number of bytes that the server announces; absent when it doesn't tell.
std::optional<std::uint64_t> announcedLength(const HttpHead& head) {
    const auto text = head.header("Content-Length");
    if (!text)
        return std::nullopt;
    std::uint64_t length = 0;
    const char* const end = text->data() + text->size();
    const auto [last, error] = std::from_chars(text->data(), end, length);
    return error == std::errc() && last == end ? std::optional(length) : std::nullopt;
}

/// One call. Owns itself until it has ended.
class Call final : public std::enable_shared_from_this<Call> {
public:
    Call(std::size_t limit, Excess excess) : limit_(limit), excess_(excess) { promise_.start(); }

    [[nodiscard]] QFuture<Result> result() { return promise_.future(); }

    void start(Http& http, HttpRequest request) {
        const auto self = shared_from_this();
        // Where a redirect leads is judged at its end.
        subscription_ =
            http.send(std::move(request),
                      {.redirect = [](const HttpRedirect&) { return HttpGoOn::yes; },
                       .head = [self](const HttpHead& head) { return self->begin(head); },
                       .bytes = [self](std::string_view piece) { return self->append(piece); },
                       .end = [self](std::optional<HttpFailure> failure) { self->end(!failure); }});
    }

private:
    HttpGoOn begin(const HttpHead& head) {
        address_ = Library::validatedURL(head.address);
        const auto length = announcedLength(head);
        const bool isTooLong = excess_ == Excess::refused && length && *length > limit_;
        return isSuccess(head.status) && address_ && !isTooLong ? HttpGoOn::yes : giveUp();
    }

    HttpGoOn append(std::string_view piece) {
        const std::size_t room = limit_ - static_cast<std::size_t>(bytes_.size());
        if (piece.size() > room && excess_ == Excess::refused)
            return giveUp();
        bytes_.append(piece.data(), static_cast<qsizetype>(std::min(room, piece.size())));
        if (piece.size() <= room)
            return HttpGoOn::yes;
        end(true);
        return HttpGoOn::no;
    }

    HttpGoOn giveUp() {
        end(false);
        return HttpGoOn::no;
    }

    void end(bool isGood) {
        if (isGood && address_)
            promise_.addResult(Fetched{std::move(bytes_), *address_});
        else
            promise_.addResult(std::nullopt);
        promise_.finish();
        // The listener holds this call: it is let go once the listener has returned.
        QTimer::singleShot(0, [self = shared_from_this()] { self->subscription_.cancel(); });
    }

    QPromise<Result> promise_;
    Subscription subscription_;
    std::optional<WebAddress> address_;
    QByteArray bytes_;
    std::size_t limit_;
    Excess excess_;
};

} // namespace

QFuture<Result> IconFetches::send(const WebAddress& address, std::size_t limit, Excess excess) {
    HttpRequest request;
    request.address = address.string();
    request.headers = {{"Accept", "image/*,text/html;q=0.5"}};
    request.silenceLimit = limits_.silence;
    request.totalLimit = limits_.total;
    const auto call = std::make_shared<Call>(limit, excess);
    QFuture<Result> result = call->result();
    call->start(http_, std::move(request));
    return result;
}

QCoro::Task<Result> IconFetches::fetch(WebAddress address, std::size_t limit, Excess excess) {
    const std::string host = address.origin().string();
    std::shared_ptr<Gate>& known = hosts_[host];
    if (!known)
        known = std::make_shared<Gate>(mostPerHost);
    const std::shared_ptr<Gate> gate = known;
    const QFuture<void> entered = gate->enter();
    co_await entered;
    const QFuture<Result> answer = send(address, limit, excess);
    Result result = co_await answer;
    gate->leave();
    if (gate->inside() == 0)
        hosts_.erase(host);
    co_return result;
}

} // namespace brinmoor
