#include "tests/screenshots/Studio.h"

#include "screens/QuickPanel.h"

#include <QDeadlineTimer>
#include <QImage>
#include <QPainter>

namespace brinmoor {

Desk::Desk(const Library& library) {
    clock.present = sampleNow;
    preferences.set("hasSeenUsageNotice", true);
    preferences.set("hasCompletedOnboarding", true);
    if (!LibraryFile(libraryPath()).save(library).ok())
        qFatal("The sample library can't be written.");
}

Studio::Studio(QString folder, AppAppearance appearance)
    : folder_(std::move(folder)),
      theme_(appearance == AppAppearance::cream ? QStringLiteral("cream")
                                                : QStringLiteral("black")) {
    panels_.setAppearance(appearance);
    settle(400);
}

void Studio::settle(int milliseconds) {
    const QDeadlineTimer end(milliseconds);
    await([&] { return end.hasExpired(); });
}

void Studio::take(Panel& panel, const QString& name) {
    auto& view = dynamic_cast<QuickPanel&>(panel).view();
    settle(500);
    const QImage picture = view.grabWindow();
    QImage ground(picture.size(), QImage::Format_RGB32);
    ground.fill(theme_ == u"cream" ? QColor(207, 211, 197) : QColor(5, 6, 6));
    QPainter(&ground).drawImage(0, 0, picture);
    const QString file = QStringLiteral("%1/%2-%3.png").arg(folder_, name, theme_);
    if (!ground.save(file))
        qFatal("%s can't be written.", qPrintable(file));
}

} // namespace brinmoor
