#include "screens/ShortcutRecorder.h"

#include "screens/RecordedKey.h"
#include "screens/Wording.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include <utility>

namespace brinmoor {
ShortcutRecorder::ShortcutRecorder(CaptureAction action, ShortcutRecorderActions actions,
                                   QObject* parent)
    : QObject(parent), action_(action), actions_(std::move(actions)) {}

ShortcutRecorder::~ShortcutRecorder() {
    cancel();
    QCoreApplication::instance()->removeEventFilter(this);
}

QString ShortcutRecorder::action() const {
    return words(messageName(action_));
}

QString ShortcutRecorder::resetName() const {
    return words("Reset ") + action() + words(" shortcut");
}

void ShortcutRecorder::show(const QString& label, const QString& error) {
    if (label == label_ && error == error_)
        return;
    label_ = label;
    error_ = error;
    if (!recording_)
        title_ = label;
    Q_EMIT changed();
}

void ShortcutRecorder::setTitle(const QString& title) {
    title_ = title;
    Q_EMIT changed();
}

void ShortcutRecorder::press() {
    if (recording_)
        end(std::nullopt);
    else if (!endedByPress_)
        begin();
}

void ShortcutRecorder::begin() {
    recording_ = true;
    setTitle(words("Press shortcut…"));
    actions_.onStart();
    window_ = QGuiApplication::focusWindow();
    focusChange_ = connect(qobject_cast<QGuiApplication*>(QCoreApplication::instance()),
                           &QGuiApplication::focusWindowChanged, this, [this](const QWindow* now) {
                               if (now != window_)
                                   end(std::nullopt);
                           });
    QCoreApplication::instance()->installEventFilter(this);
}

void ShortcutRecorder::end(std::optional<CaptureShortcut> shortcut) {
    if (!recording_)
        return;
    disconnect(focusChange_);
    if (!endedByPress_)
        QCoreApplication::instance()->removeEventFilter(this);
    recording_ = false;
    setTitle(label_);
    actions_.onRecord(std::move(shortcut));
}

void ShortcutRecorder::cancel() {
    end(std::nullopt);
}

void ShortcutRecorder::reset() {
    cancel();
    actions_.onReset();
}

bool ShortcutRecorder::eventFilter(QObject*, QEvent* event) {
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        // Accepted, the key comes as a press, whatever shortcut of the window it would be.
        event->setAccepted(recording_);
        return recording_;
    case QEvent::KeyPress:
        if (!recording_)
            return false;
        take(static_cast<const QKeyEvent&>(*event));
        return true;
    case QEvent::MouseButtonPress:
        if (recording_ && static_cast<const QMouseEvent&>(*event).button() == Qt::LeftButton) {
            endedByPress_ = true;
            end(std::nullopt);
        }
        return false;
    case QEvent::MouseButtonRelease:
        letGoOfPress();
        return false;
    default:
        return false;
    }
}

void ShortcutRecorder::letGoOfPress() {
    // After the click that this release makes.
    QMetaObject::invokeMethod(
        this,
        [this] {
            endedByPress_ = false;
            if (!recording_)
                QCoreApplication::instance()->removeEventFilter(this);
        },
        Qt::QueuedConnection);
}

void ShortcutRecorder::take(const QKeyEvent& event) {
    if (isEscape(event)) {
        end(std::nullopt);
        return;
    }
    const auto press = recordedKey(event);
    if (!press || event.isAutoRepeat())
        return;
    if (auto shortcut = shortcutFrom(*press))
        end(std::move(shortcut));
    else
        setTitle(words("Use ⌘, ⌥, or ⌃ + a key"));
}

} // namespace brinmoor
