#include "core/tabs/TabEntry.h"
#include "fuzz/Promise.h"

#include <cstddef>
#include <cstdint>

using namespace brinmoor;

/// Whatever is read as a tab's identity is written in a form that reads back as the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto entries = decodeTabEntries({reinterpret_cast<const char*>(data), size});
    if (!entries)
        return 0;
    for (const TabEntry& entry : *entries) {
        if (!entry.closeTarget)
            continue;
        const std::string json =
            R"([{"url":"","title":"","closeTarget":)" + encoded(*entry.closeTarget) + "}]";
        const auto again = decodeTabEntries(json);
        fuzz::promise(again && again->front().closeTarget == entry.closeTarget,
                      "a target is read back as it was written");
    }
    return 0;
}
