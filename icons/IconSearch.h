#pragma once

#include "core/text/WebAddress.h"
#include "icons/IconFetches.h"
#include "icons/IconFiles.h"
#include "icons/IconPictures.h"

#include <QByteArray>
#include <QCoroTask>

#include <optional>
#include <set>
#include <string>

namespace brinmoor {

/// One search for a site's icon on the network: the addresses that are tried, each once.
class IconSearch {
public:
    IconSearch(IconFetches& fetches, IconPictures& pictures)
        : fetches_(fetches), pictures_(pictures) {}

    static constexpr std::size_t largestPicture = std::size_t{1} << 20;
    static constexpr std::size_t largestPage = std::size_t{256} << 10;

    /// The icon given by the page, the site's usual one, then those that its front page declares.
    [[nodiscard]] QCoro::Task<std::optional<QByteArray>>
    icon(WebAddress origin, std::optional<WebAddress> explicitIcon);

private:
    [[nodiscard]] QCoro::Task<std::optional<QByteArray>> candidate(WebAddress address);
    [[nodiscard]] QCoro::Task<std::optional<QByteArray>> declaredIcon(WebAddress origin);

    IconFetches& fetches_;
    IconPictures& pictures_;
    std::set<std::string> tried_;
};

} // namespace brinmoor
