#pragma once

#include "platform/MotionPreference.h"
#include "platform/Observers.h"

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>
#include <QString>

namespace brinmoor {

/// What the desktop's settings portal says of movement: animations switched off in GNOME and what
/// follows it, or made to last no time in KDE. Asked at the start without waiting, and followed.
class PortalMotion final : public QObject, public MotionPreference {
    Q_OBJECT

public:
    explicit PortalMotion(QDBusConnection bus);

    [[nodiscard]] bool isReduced() const override { return withoutAnimations_ || atOnce_; }
    [[nodiscard]] Subscription onChange(std::function<void()> changed) override;

private Q_SLOTS:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void ask(const QString& group, const QString& key);
    void take(const QString& group, QVariant value);

    QDBusConnection bus_;
    bool withoutAnimations_ = false;
    bool atOnce_ = false;
    Observers<> observers_;
};

} // namespace brinmoor
