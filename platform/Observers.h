#pragma once

#include "platform/Subscription.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace brinmoor {

/// Those who want to be told of something. A subscription may outlive the list, and may come and go
/// while the list is being told. Main thread.
template <class... Args>
class Observers {
public:
    using Told = std::function<void(Args...)>;

    [[nodiscard]] Subscription add(Told told) {
        const auto number = ++list_->last;
        list_->told.emplace(number, std::move(told));
        return Subscription([list = std::weak_ptr<List>(list_), number] {
            if (const auto held = list.lock())
                held->told.erase(number);
        });
    }

    /// Whoever is added by one of the calls is not told this time.
    void tell(Args... args) const {
        const auto list = list_;
        std::vector<std::uint64_t> numbers;
        for (const auto& [number, told] : list->told)
            numbers.push_back(number);
        for (const auto number : numbers) {
            const auto found = list->told.find(number);
            if (found == list->told.end())
                continue;
            const Told told = found->second;
            told(args...);
        }
    }

    [[nodiscard]] bool empty() const { return list_->told.empty(); }

private:
    struct List {
        std::uint64_t last = 0;
        std::map<std::uint64_t, Told> told;
    };
    std::shared_ptr<List> list_ = std::make_shared<List>();
};

} // namespace brinmoor
