#include "icons/IconSearch.h"

#include "core/icons/SiteIcon.h"
#include "core/text/Utf8.h"

#include <QCoroFuture>

#include <string_view>
#include <vector>

namespace brinmoor {

QCoro::Task<std::optional<QByteArray>> IconSearch::icon(WebAddress origin,
                                                        std::optional<WebAddress> explicitIcon) {
    if (explicitIcon) {
        const auto trying = candidate(*explicitIcon);
        std::optional<QByteArray> found = co_await trying;
        if (found)
            co_return found;
    }
    const std::optional<WebAddress> usual = WebAddress::parse(origin.string() + "favicon.ico");
    if (usual) {
        const auto trying = candidate(*usual);
        std::optional<QByteArray> found = co_await trying;
        if (found)
            co_return found;
    }
    const auto reading = declaredIcon(origin);
    std::optional<QByteArray> declared = co_await reading;
    co_return declared;
}

QCoro::Task<std::optional<QByteArray>> IconSearch::candidate(WebAddress address) {
    if (!tried_.insert(address.string()).second)
        co_return std::nullopt;
    const auto fetching = fetches_.fetch(address, largestPicture, Excess::refused);
    const std::optional<Fetched> fetched = co_await fetching;
    if (!fetched)
        co_return std::nullopt;
    const QFuture<std::optional<QByteArray>> read = pictures_.icon(fetched->bytes);
    std::optional<QByteArray> icon = co_await read;
    co_return icon;
}

QCoro::Task<std::optional<QByteArray>> IconSearch::declaredIcon(WebAddress origin) {
    const auto fetching = fetches_.fetch(origin, largestPage, Excess::cutOff);
    const std::optional<Fetched> page = co_await fetching;
    if (!page)
        co_return std::nullopt;
    const std::string_view html(page->bytes.constData(),
                                static_cast<std::size_t>(page->bytes.size()));
    if (!text::isUtf8(html))
        co_return std::nullopt;
    const std::vector<WebAddress> declared = SiteIcon::declared(html, page->address);
    for (const WebAddress& address : declared) {
        const auto trying = candidate(address);
        std::optional<QByteArray> found = co_await trying;
        if (found)
            co_return found;
    }
    co_return std::nullopt;
}

} // namespace brinmoor
