#include "screens/ScreenModule.h"

#include "screens/Appearance.h"

#include <QQuickWindow>

void qml_register_types_Brinmoor();
#ifdef BRINMOOR_SCREENS_COMPILED
int qInitResources_qmlcache_BrinmoorScreens();
#endif

namespace brinmoor {

void registerScreens() {
    // The linker leaves out what a static library's sources are never asked for by name.
    static const bool registered = [] {
        qml_register_types_Brinmoor();
#ifdef BRINMOOR_SCREENS_COMPILED
        qInitResources_qmlcache_BrinmoorScreens();
#endif
        // Whole-pixel type sizes look sharpest drawn by the platform.
        QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
        return true;
    }();
    static_cast<void>(registered);
}

Appearance& appearanceOf(QQmlEngine& engine) {
    const int type = qmlTypeId("Brinmoor", 1, 0, "Appearance");
    return *engine.singletonInstance<Appearance*>(type);
}

} // namespace brinmoor
