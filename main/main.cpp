#include "app/AppDelegate.h"
#include "app/wording/LinuxWording.h"
#include "core/text/Fold.h"
#include "main/DesktopApplication.h"
#include "main/Installation.h"
#include "main/RealParts.h"
#include "platform/linux/PortalMotion.h"
#include "platform/linux/StatusItemHost.h"
#include "screens/QuickPanels.h"

#include <QDBusConnection>
#include <QGuiApplication>
#include <QIcon>
#include <QLocale>
#include <QTimer>

namespace {

/// A Wayland desktop's own X server is preferred to it: only there do notices and panels stand
/// where the user looks, above the others and without taking the keyboard, and is a copied address
/// heard of while another program is in front.
void preferX11() {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "xcb;wayland");
}

} // namespace

int main(int count, char** arguments) {
    using namespace brinmoor;
    preferX11();
    QGuiApplication::setDesktopFileName(QStringLiteral("app.brinmoor.mac"));
    QGuiApplication::setQuitOnLastWindowClosed(false);
    const QGuiApplication application(count, arguments);
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Brinmoor"));
    QGuiApplication::setWindowIcon(
        QIcon::fromTheme(QStringLiteral("brinmoor"), QIcon(QStringLiteral(":/brinmoor.svg"))));

    DesktopApplication desktop;
    if (desktop.start() == DesktopApplication::Start::second)
        return 0;

    text::setUserLocale(QLocale::system().name().toStdString());
    installLinuxWording();

    const Installation installation = Installation::ofThisProgram();
    QuickPanels panels;
    PortalMotion motion(QDBusConnection::sessionBus());
    const Subscription calm = motion.onChange([&] { panels.setReducedMotion(motion.isReduced()); });
    StatusItemHost statusItems(QDBusConnection::sessionBus());
    const Subscription place =
        statusItems.onChange([&] { panels.setStatusItemShown(statusItems.isThere()); });
    RealParts real(installation, panels.engine());
    AppDelegate shell(real.parts(), panels);
    desktop.activate = [&] {
        if (shell.libraryWindow())
            shell.openLibrary();
    };
    desktop.open = [&](const std::vector<std::string>& addresses) { shell.openURLs(addresses); };
    desktop.perform = [&](CaptureAction action) {
        // The desktop may have started the program for it, before there is anything to do it with.
        QTimer::singleShot(0, &application, [&shell, action] { shell.capture(action); });
    };
    desktop.takeWhatWaits();
    shell.launch();
    // After the first frame: no window waits for it.
    QTimer::singleShot(0, &application, [&] {
        panels.setSiteIcons(real.siteIcons());
        real.browsers().tellBrowsers();
    });
    return QGuiApplication::exec();
}
