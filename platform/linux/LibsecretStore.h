#pragma once

#include "platform/SecureStore.h"

namespace brinmoor {

/// SecureStore in the desktop's Secret Service (GNOME Keyring, KWallet): items of the default
/// collection with the attributes `service` and `account`. A store that was restarted is connected
/// to anew.
class LibsecretStore final : public SecureStore {
public:
    [[nodiscard]] Result<std::optional<std::string>, SecureStoreFailure>
    read(std::string_view service, std::string_view account) override;
    [[nodiscard]] Result<Done, SecureStoreFailure>
    write(std::string_view service, std::string_view account, std::string_view bytes) override;
    [[nodiscard]] Result<Done, SecureStoreFailure> remove(std::string_view service,
                                                          std::string_view account) override;
};

} // namespace brinmoor
