#include "bridge/automation/ScriptRun.h"

#include "bridge/automation/Modules.h"
#include "bridge/automation/ScriptBridge.h"

#include <QJSEngine>
#include <QJSValue>

namespace brinmoor::automation {
namespace {

/// The number that stands for any failure of a script's own.
constexpr int scriptFailure = -2700;

Outcome failed(const QString& message, int number) {
    return {1,
            {},
            "execution error: Error: " + message.toStdString() + " (" + std::to_string(number) +
                ")\n"};
}

Outcome outcomeOf(const QJSValue& described) {
    if (described.property(0).toString() == QLatin1String("value"))
        return {0, described.property(1).toString().toStdString(), {}};
    return failed(described.property(1).toString(), described.property(2).toInt());
}

} // namespace

Outcome runScript(std::string_view script, HostConnections& connections) {
    QJSEngine engine;
    ScriptBridge bridge(connections, engine);
    QJSEngine::setObjectOwnership(&bridge, QJSEngine::CppOwnership);
    const QJSValue install = objectModel(engine).property(QStringLiteral("install"));
    const QJSValue finish = install.call({engine.newQObject(&bridge)});
    if (!finish.isCallable())
        return failed(QStringLiteral("The object model could not be made."), scriptFailure);
    const QJSValue evaluated = engine.evaluate(QString::fromUtf8(script));
    if (evaluated.isError())
        return failed(evaluated.property(QStringLiteral("message")).toString(), scriptFailure);
    const QJSValue run =
        engine.evaluate(QStringLiteral("typeof run === 'function' ? run : undefined"));
    if (!run.isCallable())
        return failed(QStringLiteral("The script has no function run."), scriptFailure);
    return outcomeOf(finish.call({run}));
}

} // namespace brinmoor::automation
