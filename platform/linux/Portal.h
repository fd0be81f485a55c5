#pragma once

#include <QString>

namespace brinmoor {

// Where the desktop's portals are found on the session bus.
inline QString portalService() {
    return QStringLiteral("org.freedesktop.portal.Desktop");
}
inline QString portalPath() {
    return QStringLiteral("/org/freedesktop/portal/desktop");
}

} // namespace brinmoor
