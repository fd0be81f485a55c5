#pragma once

#include "bridge/automation/HostConnections.h"

#include <QJSEngine>
#include <QObject>
#include <QString>
#include <QStringList>

namespace brinmoor::automation {

/// What the object model asks of this process. Main thread.
class ScriptBridge : public QObject {
    Q_OBJECT

public:
    ScriptBridge(HostConnections& connections, QJSEngine& engine)
        : connections_(connections), engine_(engine) {}

    [[nodiscard]] Q_INVOKABLE QJSValue global() const { return engine_.globalObject(); }
    [[nodiscard]] Q_INVOKABLE QString pageReader() const;
    [[nodiscard]] Q_INVOKABLE bool running(const QString& browserID);
    /// The marks of the browser's hosts, an array.
    [[nodiscard]] Q_INVOKABLE QJSValue connect(const QString& browserID);
    /// The answer of a host; empty after a failure, which failure() then names.
    [[nodiscard]] Q_INVOKABLE QString exchange(const QString& mark, const QString& request);
    [[nodiscard]] Q_INVOKABLE QString failure() const { return failure_; }

private:
    HostConnections& connections_;
    QJSEngine& engine_;
    QString failure_;
};

} // namespace brinmoor::automation
