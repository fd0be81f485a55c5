#include "core/capture/CaptureShortcut.h"
#include "fuzz/Promise.h"

#include <cstddef>
#include <cstdint>

using namespace brinmoor;

/// Any preference gives a shortcut for every action, and the map that is stored next reads back.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const ShortcutMap shortcuts =
        decodeShortcuts(std::string_view(reinterpret_cast<const char*>(data), size));
    fuzz::promise(shortcuts.size() == allCaptureActions.size(), "every action has a shortcut");
    fuzz::promise(decodeShortcuts(encodeShortcuts(shortcuts)) == shortcuts,
                  "shortcuts are read back as they were written");
    return 0;
}
