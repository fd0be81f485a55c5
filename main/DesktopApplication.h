#pragma once

#include "core/capture/CaptureAction.h"

#include <QObject>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

#include <functional>
#include <string>
#include <vector>

namespace brinmoor {

/// This program as the desktop sees it on the session bus (org.freedesktop.Application, of the
/// Desktop Entry Specification): a second start brings the first one's window forward. Main thread.
class DesktopApplication final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    enum class Start {
        first,  ///< this process holds the name, or there is no session bus to hold it on
        second, ///< another one runs and has been asked to come forward
    };

    /// Takes the program's name on the session bus.
    [[nodiscard]] Start start();

    /// Hands over what the desktop has asked since start(), without waiting for its next event:
    /// what a program is started for comes before its own beginnings.
    void takeWhatWaits();

    /// Brings the library window forward.
    std::function<void()> activate;
    /// Takes addresses that the desktop hands over, in their order.
    std::function<void(const std::vector<std::string>&)> open;
    /// Does one of the actions of the desktop entry, or what a user has bound a key to.
    std::function<void(CaptureAction)> perform;

public Q_SLOTS:
    Q_SCRIPTABLE void Activate(const QVariantMap& platformData);
    Q_SCRIPTABLE void Open(const QStringList& addresses, const QVariantMap& platformData);
    /// The actions have the names under which their shortcuts are stored; others are ignored.
    Q_SCRIPTABLE void ActivateAction(const QString& name, const QVariantList& parameters,
                                     const QVariantMap& platformData);
};

} // namespace brinmoor
