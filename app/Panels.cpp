#include "app/Panels.h"

namespace brinmoor {

bool PanelRect::contains(PanelPoint point) const noexcept {
    return point.x >= origin.x && point.x < origin.x + size.width && point.y >= origin.y &&
           point.y < origin.y + size.height;
}

} // namespace brinmoor
