#pragma once

#include <functional>
#include <utility>

namespace brinmoor {

/// Keeps a callback alive; letting it go ends the calls. Move-only. Main thread.
class [[nodiscard]] Subscription {
public:
    Subscription() = default;
    explicit Subscription(std::function<void()> end) : end_(std::move(end)) {}
    Subscription(Subscription&& other) noexcept : end_(std::exchange(other.end_, nullptr)) {}
    Subscription& operator=(Subscription&& other) noexcept {
        if (this != &other) {
            cancel();
            end_ = std::exchange(other.end_, nullptr);
        }
        return *this;
    }
    ~Subscription() { cancel(); }

    void cancel() {
        if (auto end = std::exchange(end_, nullptr))
            end();
    }

private:
    std::function<void()> end_;
};

} // namespace brinmoor
