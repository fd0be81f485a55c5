#pragma once

#include <QFuture>
#include <QPromise>

#include <cstddef>
#include <deque>
#include <memory>

namespace brinmoor {

/// Lets so many in at once; the others wait in the order in which they came. Main thread.
class Gate {
public:
    explicit Gate(std::size_t limit) : limit_(limit) {}

    /// Ends when the caller is in.
    [[nodiscard]] QFuture<void> enter();
    /// Hands the place to whoever has waited longest.
    void leave();

    [[nodiscard]] std::size_t inside() const noexcept { return inside_; }
    [[nodiscard]] std::size_t waiting() const noexcept { return waiters_.size(); }

private:
    std::size_t limit_;
    std::size_t inside_ = 0;
    std::deque<std::shared_ptr<QPromise<void>>> waiters_;
};

} // namespace brinmoor
