#include "screens/QuickPanel.h"

#include "platform/linux/PanelHints.h"
#include "screens/Desktop.h"

#include <QCursor>
#include <QGuiApplication>
#include <QPainterPath>
#include <QPointer>
#include <QScreen>

namespace brinmoor {

namespace {

Qt::WindowFlags flagsOf(PanelKind kind) {
    switch (kind) {
    case PanelKind::window:
        return Qt::Window;
    case PanelKind::selection:
    case PanelKind::floating:
        return Qt::Tool | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
               Qt::WindowCloseButtonHint | Qt::CustomizeWindowHint | Qt::WindowStaysOnTopHint;
    case PanelKind::card:
        return Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
               Qt::NoDropShadowWindowHint;
    case PanelKind::notice:
        // A window that the window manager leaves alone stands exactly where it is put and is
        // never given the keyboard. Only X11 knows such windows without a parent.
        return (QGuiApplication::platformName() == QLatin1String("xcb") ? Qt::ToolTip : Qt::Tool) |
               Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus |
               Qt::NoDropShadowWindowHint;
    }
    return Qt::Window;
}

std::uint32_t number(const QWindow& window) {
    return std::uint32_t(window.winId());
}

} // namespace

QuickPanel::QuickPanel(QQmlEngine& engine, PanelKind kind, const QString& title)
    : kind_(kind), view_(new QQuickView(&engine, nullptr)) {
    view_->setFlags(flagsOf(kind));
    view_->setTitle(title);
    view_->setResizeMode(kind == PanelKind::window ? QQuickView::SizeRootObjectToView
                                                   : QQuickView::SizeViewToRootObject);
    view_->installEventFilter(this);
}

QuickPanel::~QuickPanel() {
    view_->removeEventFilter(this);
    view_->hide();
}

bool QuickPanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Close && view_->isVisible()) {
        // The window's own way to go would destroy it; it may be asked for again.
        event->ignore();
        close();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

void QuickPanel::load(const QString& screen, const QVariantMap& needs) {
    view_->setInitialProperties(needs);
    view_->setSource(
        QUrl(QStringLiteral("qrc:/qt-project.org/imports/Brinmoor/%1.qml").arg(screen)));
    // The screens are part of the program: one that can't be loaded is a fault of the build.
    if (view_->status() != QQuickView::Ready)
        qFatal("The screen %s can't be loaded.", qPrintable(screen));
}

void QuickPanel::prepare() {
    if (view_->handle())
        return;
    view_->create();
    if (kind_ == PanelKind::window || kind_ == PanelKind::notice)
        return;
    applyPanelHints(number(*view_), PanelRole::utility, PanelFocus::takes);
}

void QuickPanel::makeKeyAndOrderFront() {
    prepare();
    view_->show();
    view_->raise();
    activateWindow(number(*view_), 0);
    view_->requestActivate();
}

void QuickPanel::orderFrontRegardless() {
    prepare();
    view_->show();
    view_->raise();
}

void QuickPanel::orderOut() {
    view_->hide();
}

void QuickPanel::close() {
    // Told first: whether the application is active is asked while the window still stands.
    const QPointer self(this);
    tellClosed();
    if (self)
        view_->hide();
}

void QuickPanel::tellClosed() {
    // A copy, since this panel may go with the call.
    const auto told = willClose;
    if (told)
        told();
}

void QuickPanel::cutOut(int cornerRadius) {
    const QRect card(QPoint(margin(), margin()), QSize(size().width, size().height));
    if (margin() > 0) {
        Desktop::limitInput(*view_, card);
        return;
    }
    QPainterPath outline;
    outline.addRoundedRect(card, cornerRadius, cornerRadius);
    view_->setMask(QRegion(outline.toFillPolygon().toPolygon()));
}

PanelSize QuickPanel::size() const {
    return {view_->width() - 2 * margin(), view_->height() - 2 * margin()};
}

void QuickPanel::setOrigin(PanelPoint origin) {
    view_->setPosition(origin.x - margin(), origin.y - margin());
}

void QuickPanel::center() {
    const QScreen* screen = QGuiApplication::screenAt(QCursor::pos());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    if (!screen)
        return;
    const QPoint middle = screen->availableGeometry().center();
    setOrigin({middle.x() - size().width / 2, middle.y() - size().height / 2});
}

} // namespace brinmoor
