#include "icons/Gate.h"

#include <utility>

namespace brinmoor {

QFuture<void> Gate::enter() {
    const auto place = std::make_shared<QPromise<void>>();
    place->start();
    QFuture<void> future = place->future();
    if (inside_ < limit_) {
        ++inside_;
        place->finish();
    } else {
        waiters_.push_back(place);
    }
    return future;
}

void Gate::leave() {
    if (waiters_.empty()) {
        --inside_;
        return;
    }
    const auto next = std::move(waiters_.front());
    waiters_.pop_front();
    next->finish();
}

} // namespace brinmoor
