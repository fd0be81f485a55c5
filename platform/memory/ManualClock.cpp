#include "platform/memory/ManualClock.h"

#include <algorithm>

namespace brinmoor {

Uuid ManualClock::newUuid() {
    if (!nextUuids.empty()) {
        const Uuid next = nextUuids.front();
        nextUuids.pop_front();
        return next;
    }
    Uuid made;
    made.bytes[6] = 0x40;
    made.bytes[8] = 0x80;
    std::uint64_t count = ++uuids_;
    for (std::size_t place = 16; place > 9; --place, count >>= 8)
        made.bytes[place - 1] = static_cast<std::uint8_t>(count & 0xff);
    return made;
}

Subscription ManualClock::after(std::chrono::milliseconds delay, std::function<void()> work) {
    const Moment moment{elapsed_ + std::max(delay, std::chrono::milliseconds{0}), ++order_};
    due_->emplace(moment, std::move(work));
    return Subscription([due = std::weak_ptr<Due>(due_), moment] {
        if (const auto held = due.lock())
            held->erase(moment);
    });
}

void ManualClock::advance(std::chrono::milliseconds span) {
    const auto end = elapsed_ + span;
    while (!due_->empty() && due_->begin()->first.at <= end) {
        auto next = due_->extract(due_->begin());
        moveTo(next.key().at);
        next.mapped()();
    }
    moveTo(end);
}

void ManualClock::moveTo(std::chrono::milliseconds at) {
    if (at <= elapsed_)
        return;
    present.seconds += std::chrono::duration<double>(at - elapsed_).count();
    elapsed_ = at;
}

} // namespace brinmoor
