#pragma once

#include "core/Result.h"
#include "core/links/LinkTitle.h"
#include "core/tabs/CapturedTabTarget.h"
#include "core/tabs/TabEntriesError.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brinmoor {

/// One tab as the capture script gives it.
struct TabEntry {
    std::string url;              ///< "" when the tab had none
    std::string title;            ///< the browser's own title, "" when it had none
    LinkTitle::Metadata metadata; ///< what the page reader found; empty when it did not run
    std::optional<CapturedTabTarget> closeTarget;

    friend bool operator==(const TabEntry&, const TabEntry&) = default;
};

/// Reads the result of a capture script: all of its entries, or a failure. At most 64 MiB.
[[nodiscard]] Result<std::vector<TabEntry>, TabEntriesError>
decodeTabEntries(std::string_view json);

} // namespace brinmoor
