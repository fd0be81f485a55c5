#include "core/tabs/TabDomain.h"

#include "core/text/WebAddress.h"

namespace brinmoor {

std::optional<std::string> tabDomain(std::string_view url) {
    constexpr std::string_view world = "www.";
    const auto address = WebAddress::parse(url);
    if (!address || address->host().empty())
        return std::nullopt;
    const std::string_view host = address->host();
    std::string domain;
    std::size_t from = 0;
    for (std::size_t at = host.find(world); at != std::string_view::npos;
         at = host.find(world, from)) {
        domain += host.substr(from, at - from);
        from = at + world.size();
    }
    domain += host.substr(from);
    return domain;
}

std::string tabIdentity(std::string_view browserID, std::string_view windowID,
                        std::string_view tabID, int index) {
    std::string identity(browserID);
    identity.append(":").append(windowID).append(":").append(tabID).append(":");
    return identity + std::to_string(index);
}

} // namespace brinmoor
