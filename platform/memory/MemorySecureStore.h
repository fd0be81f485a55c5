#pragma once

#include "platform/SecureStore.h"

#include <map>
#include <utility>

namespace brinmoor {

/// Secrets in a table. Several objects may share one, like copies of the program.
class MemorySecureStore final : public SecureStore {
public:
    /// By service and account.
    std::map<std::pair<std::string, std::string>, std::string> items;
    /// When set, what every call of that kind gives.
    std::optional<SecureStoreFailure> readFailure;
    std::optional<SecureStoreFailure> writeFailure;
    std::optional<SecureStoreFailure> removeFailure;

    [[nodiscard]] Result<std::optional<std::string>, SecureStoreFailure>
    read(std::string_view service, std::string_view account) override {
        if (readFailure)
            return failure(*readFailure);
        const auto found = items.find({std::string(service), std::string(account)});
        return found == items.end() ? std::nullopt : std::optional(found->second);
    }
    [[nodiscard]] Result<Done, SecureStoreFailure>
    write(std::string_view service, std::string_view account, std::string_view bytes) override {
        if (writeFailure)
            return failure(*writeFailure);
        items[{std::string(service), std::string(account)}] = std::string(bytes);
        return Done{};
    }
    [[nodiscard]] Result<Done, SecureStoreFailure> remove(std::string_view service,
                                                          std::string_view account) override {
        if (removeFailure)
            return failure(*removeFailure);
        items.erase({std::string(service), std::string(account)});
        return Done{};
    }
};

} // namespace brinmoor
