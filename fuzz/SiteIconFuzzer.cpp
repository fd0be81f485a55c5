#include "core/icons/SiteIcon.h"
#include "core/library/Library.h"
#include "fuzz/Promise.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

using namespace brinmoor;

/// A page of any bytes gives at most four different addresses that the library would accept.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const WebAddress base = *WebAddress::parse("https://example.com/a/b?c");
    const std::string_view html(reinterpret_cast<const char*>(data), size);
    const auto icons = SiteIcon::declared(html, base);
    fuzz::promise(icons.size() <= 4, "four icons are enough");
    for (auto icon = icons.begin(); icon != icons.end(); ++icon) {
        fuzz::promise(Library::validatedURL(icon->string()) == *icon, "an icon can be saved");
        fuzz::promise(std::find(icons.begin(), icon, *icon) == icon, "no icon stands twice");
        fuzz::promise(SiteIcon::origin(icon->string()) == icon->origin(), "an icon has an origin");
    }
    return 0;
}
