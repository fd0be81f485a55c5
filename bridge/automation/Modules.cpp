#include "bridge/automation/Modules.h"

// A static library's resources are left out of a program that doesn't name them. They are declared
// where they are named, so this can't stand in a namespace.
static void initialiseResources() {
    Q_INIT_RESOURCE(automation);
    Q_INIT_RESOURCE(qmlcache_automation);
}

namespace brinmoor::automation {

QJSValue objectModel(QJSEngine& engine) {
    initialiseResources();
    return engine.importModule(QStringLiteral(":/brinmoor/automation/objectModel.mjs"));
}

QJSValue stableSort(QJSEngine& engine) {
    initialiseResources();
    return engine.importModule(QStringLiteral(":/brinmoor/automation/stableSort.mjs"));
}

} // namespace brinmoor::automation
