#include "bridge/automation/ScriptBridge.h"

#include "browser/scripts/Scripts.h"

namespace brinmoor::automation {
namespace {} // namespace

QString ScriptBridge::pageReader() const {
    return QString::fromUtf8(scripts::pageReader);
}

bool ScriptBridge::running(const QString& browserID) {
    return connections_.isRunning(browserID.toStdString());
}

QJSValue ScriptBridge::connect(const QString& browserID) {
    const auto& marks = connections_.connect(browserID.toStdString());
    QJSValue list = engine_.newArray(static_cast<uint>(marks.size()));
    for (quint32 i = 0; i < marks.size(); ++i)
        list.setProperty(i, QString::fromUtf8(marks[i]));
    return list;
}

QString ScriptBridge::exchange(const QString& mark, const QString& request) {
    const auto answer = connections_.exchange(mark.toStdString(), request.toStdString());
    if (answer)
        return QString::fromUtf8(*answer);
    failure_ = answer.error() == ExchangeFailure::silent ? QStringLiteral("silent")
                                                         : QStringLiteral("lost");
    return {};
}

} // namespace brinmoor::automation
