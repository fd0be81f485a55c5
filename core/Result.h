#pragma once

#include <utility>
#include <variant>

namespace brinmoor {

/// What an operation gives that has nothing to give but its success.
struct Done {
    friend bool operator==(const Done&, const Done&) = default;
};

/// Wraps a failure, so that `return failure(x);` builds the failing side of any Result.
template <class E>
struct Failure {
    E error;
};

template <class E>
[[nodiscard]] Failure<std::decay_t<E>> failure(E&& error) {
    return {std::forward<E>(error)};
}

/// Either a value or a typed failure, never both and never neither.
/// Reading the side that is not there is a programming fault and ends the process.
template <class T, class E>
class [[nodiscard]] Result {
public:
    Result(T value) : state_(std::in_place_index<0>, std::move(value)) {}
    Result(Failure<E> failed) : state_(std::in_place_index<1>, std::move(failed.error)) {}

    [[nodiscard]] bool ok() const noexcept { return state_.index() == 0; }
    explicit operator bool() const noexcept { return ok(); }

    [[nodiscard]] const T& value() const& { return held<0>(state_); }
    [[nodiscard]] T& value() & { return held<0>(state_); }
    [[nodiscard]] T&& value() && { return std::move(held<0>(state_)); }
    [[nodiscard]] const E& error() const& { return held<1>(state_); }
    [[nodiscard]] E&& error() && { return std::move(held<1>(state_)); }

    const T& operator*() const& { return value(); }
    const T* operator->() const { return &value(); }

private:
    template <std::size_t I, class V>
    static auto& held(V& state) noexcept {
        auto* side = std::get_if<I>(&state);
        if (side == nullptr)
            __builtin_trap();
        return *side;
    }

    std::variant<T, E> state_;
};

} // namespace brinmoor
