#pragma once

#include "core/text/WebAddress.h"
#include "icons/IconFetches.h"
#include "icons/IconFiles.h"
#include "icons/IconPictures.h"
#include "platform/Clock.h"

#include <QByteArray>
#include <QCoroTask>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

namespace brinmoor {

/// Finds, fetches, scales and keeps the icons of sites. At most six loads run at once and one for
/// each icon; later callers for the same icon get its result. Results count for seven days in
/// memory and on disk, failures for an hour in memory alone. Main thread.
///
/// A load goes on when nobody waits for it any more, and even when the loader has gone: what the
/// loader is made from must outlive the loads.
class SiteIconLoader {
public:
    SiteIconLoader(Http& http, Clock& clock, IconPictures& pictures, const std::string& folder,
                   IconFetches::Limits limits = {});
    SiteIconLoader(const SiteIconLoader&) = delete;
    SiteIconLoader& operator=(const SiteIconLoader&) = delete;
    ~SiteIconLoader();

    /// The icon of the site of `page` as PNG of at most 84 pixels a side; `hint` is where the page
    /// said that it is. Absent when there is none or `page` is no address that the library accepts.
    [[nodiscard]] QCoro::Task<std::optional<QByteArray>> image(std::string page,
                                                               std::optional<std::string> hint);

    /// How many loads hold a slot.
    [[nodiscard]] std::size_t activeLoads() const noexcept;
    /// How many results are remembered.
    [[nodiscard]] std::size_t remembered() const noexcept;

    static constexpr std::size_t mostLoads = 6;
    static constexpr std::size_t mostRemembered = 256;
    static constexpr double lifeOfFailureInSeconds = 3600;

private:
    struct State;
    std::shared_ptr<State> state_;
};

} // namespace brinmoor
