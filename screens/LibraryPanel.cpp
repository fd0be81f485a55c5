#include "screens/LibraryPanel.h"

#include "app/AppModel.h"
#include "platform/Preferences.h"
#include "screens/AppRoot.h"
#include "screens/ShellMenu.h"
#include "screens/WindowFrame.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QQuickItem>
#include <QScreen>

namespace brinmoor {

namespace {

constexpr QSize usualSize(750, 680);
constexpr QSize leastSize(640, 520);
constexpr std::string_view frameKey = "NSWindow Frame Brinmoor.MinimalLibrary";
/// Moving a window tells of hundreds of places; only the last one is written.
constexpr std::chrono::milliseconds settling(400);

QList<QRect> availableAreas() {
    QList<QRect> areas;
    for (const QScreen* screen : QGuiApplication::screens())
        areas.append(screen->availableGeometry());
    return areas;
}

} // namespace

LibraryPanel::LibraryPanel(QQmlEngine& engine, AppModel& model, ShellMenus& menus)
    : QuickPanel(engine, PanelKind::window, QStringLiteral("Brinmoor")), model_(model) {
    view().setMinimumSize(leastSize);
    view().resize(usualSize);
    load(QStringLiteral("AppRootView"),
         {{QStringLiteral("screen"), QVariant::fromValue(new AppRoot(model, &view()))},
          {QStringLiteral("menus"), QVariant::fromValue(&menus)}});
    restoreFrame();
}

LibraryPanel::~LibraryPanel() {
    saveFrame();
}

void LibraryPanel::restoreFrame() {
    frameSettled_.setSingleShot(true);
    frameSettled_.setInterval(settling);
    connect(&frameSettled_, &QTimer::timeout, this, [this] { saveFrame(); });
    const auto stored = model_.preferences().text(frameKey);
    const auto remembered = WindowFrame::parse(QString::fromStdString(stored.value_or("")));
    const auto place =
        remembered ? remembered->placed(availableAreas(), leastSize) : std::optional<QRect>();
    if (place)
        view().setGeometry(*place);
    else
        center();
    const auto moved = [this] {
        if (view().isVisible() && view().windowState() == Qt::WindowNoState)
            frameSettled_.start();
    };
    connect(&view(), &QWindow::xChanged, this, moved);
    connect(&view(), &QWindow::yChanged, this, moved);
    connect(&view(), &QWindow::widthChanged, this, moved);
    connect(&view(), &QWindow::heightChanged, this, moved);
}

void LibraryPanel::saveFrame() {
    if (!frameSettled_.isActive() && sender() != &frameSettled_)
        return;
    frameSettled_.stop();
    const QScreen* screen = view().screen();
    const WindowFrame frame{view().geometry(), screen ? screen->geometry() : QRect()};
    model_.preferences().set(frameKey, frame.text().toStdString());
}

void LibraryPanel::makeKeyAndOrderFront() {
    if (view().windowState() == Qt::WindowMinimized)
        view().setWindowState(Qt::WindowNoState);
    QuickPanel::makeKeyAndOrderFront();
}

bool LibraryPanel::eventFilter(QObject* watched, QEvent* event) {
    // A text claims the key of undo even when it has nothing to undo: then it is the library's.
    if (watched == &view() && event->type() == QEvent::ShortcutOverride &&
        static_cast<QKeyEvent*>(event)->matches(QKeySequence::Undo)) {
        const QObject* focused = view().activeFocusItem();
        if (!focused || !focused->property("canUndo").toBool())
            return true;
    }
    return QuickPanel::eventFilter(watched, event);
}

void LibraryPanel::orderOut() {
    saveFrame();
    QuickPanel::orderOut();
}

} // namespace brinmoor
