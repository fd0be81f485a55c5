#include "core/tabs/TabTarget.h"

#include "core/text/SmallJson.h"

namespace brinmoor {

std::string encoded(const TabTarget& target) {
    return "{\"windowID\":" + text::quoted(target.windowID) +
           ",\"tabID\":" + text::quoted(target.tabID) +
           ",\"index\":" + std::to_string(target.index) + ",\"url\":" + text::quoted(target.url) +
           (target.safari ? ",\"safari\":true}" : ",\"safari\":false}");
}

} // namespace brinmoor
