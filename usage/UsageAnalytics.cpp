#include "usage/UsageAnalytics.h"

#include "platform/Clock.h"

#include <utility>

namespace brinmoor {
namespace {

std::string addressUnder(std::string baseURL) {
    if (!baseURL.ends_with('/'))
        baseURL += '/';
    return baseURL + "api/usage";
}

} // namespace

UsageAnalytics::UsageAnalytics(Clock& clock, SessionFactory makeSession, std::string baseURL)
    : clock_(clock), makeSession_(std::move(makeSession)),
      address_(addressUnder(std::move(baseURL))) {}

UsageAnalytics::~UsageAnalytics() = default;

void UsageAnalytics::configure(bool enabled) {
    enabled_ = enabled;
    accumulator_.configure(enabled);
    timer_.cancel();
    if (!enabled) {
        upload_.reset();
        session_.reset();
        return;
    }
    if (!session_)
        session_ = makeSession_();
    schedule();
}

void UsageAnalytics::record(UsageEvent event, std::int64_t count) {
    accumulator_.record(event, count);
}

void UsageAnalytics::schedule() {
    timer_ = clock_.after(interval, [this] {
        schedule();
        flush();
    });
}

void UsageAnalytics::flush() {
    if (!enabled_ || upload_ || !session_)
        return;
    const auto batch = accumulator_.drain(clock_.newUuid());
    if (!batch)
        return;
    const Uuid id = clock_.newUuid();
    HttpListener listener;
    // Whatever the answer is, its beginning is the end of it.
    listener.head = [this, id](const HttpHead&) {
        uploaded(id);
        return HttpGoOn::no;
    };
    listener.end = [this, id](std::optional<HttpFailure>) { uploaded(id); };
    upload_ = Upload{id, {}};
    upload_->call = session_->send(requestFor(*batch), std::move(listener));
}

void UsageAnalytics::uploaded(const Uuid& id) {
    // The end of an earlier upload leaves the present one alone.
    if (upload_ && upload_->id == id)
        upload_.reset();
}

HttpRequest UsageAnalytics::requestFor(const UsageBatch& batch) const {
    HttpRequest request;
    request.method = "POST";
    request.address = address_;
    request.headers = {{"Content-Type", "application/json"}, {"User-Agent", "Brinmoor"}};
    request.body = encoded(batch);
    request.silenceLimit = requestLimit;
    return request;
}

} // namespace brinmoor
