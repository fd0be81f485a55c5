#pragma once

#include "core/capture/CaptureShortcut.h"

#include <QObject>
#include <QPointer>
#include <QQmlEngine>
#include <QString>
#include <QWindow>

#include <functional>
#include <optional>

class QKeyEvent;

namespace brinmoor {

/// What a recording asks of the application.
struct ShortcutRecorderActions {
    /// Called when a recording begins: what is typed from here on must start nothing.
    std::function<void()> onStart;
    /// Called once for each begun recording; absent when it was cancelled.
    std::function<void(std::optional<CaptureShortcut>)> onRecord;
    std::function<void()> onReset;
};

/// The button that shows an action's shortcut and records a new one. While it records, every key of
/// the program is its own.
class ShortcutRecorder final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the settings screen")
    Q_PROPERTY(QString action READ action CONSTANT FINAL)
    Q_PROPERTY(QString resetName READ resetName CONSTANT FINAL)
    Q_PROPERTY(QString title READ title NOTIFY changed FINAL)
    Q_PROPERTY(QString error READ error NOTIFY changed FINAL)
    Q_PROPERTY(bool recording READ isRecording NOTIFY changed FINAL)

public:
    ShortcutRecorder(CaptureAction action, ShortcutRecorderActions actions,
                     QObject* parent = nullptr);
    ~ShortcutRecorder() override;

    void show(const QString& label, const QString& error);

    [[nodiscard]] CaptureAction captureAction() const noexcept { return action_; }
    [[nodiscard]] QString action() const;
    [[nodiscard]] QString resetName() const;
    [[nodiscard]] const QString& title() const noexcept { return title_; }
    /// Empty when there is none.
    [[nodiscard]] const QString& error() const noexcept { return error_; }
    [[nodiscard]] bool isRecording() const noexcept { return recording_; }

    /// The button was clicked: a recording begins, or ends with nothing.
    Q_INVOKABLE void press();
    /// The button has left the screen.
    Q_INVOKABLE void cancel();
    Q_INVOKABLE void reset();

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void changed();

private:
    void begin();
    void end(std::optional<CaptureShortcut> shortcut);
    void take(const QKeyEvent& event);
    void setTitle(const QString& title);
    void letGoOfPress();

    CaptureAction action_;
    ShortcutRecorderActions actions_;
    QString label_;
    QString title_;
    QString error_;
    QPointer<QWindow> window_;
    QMetaObject::Connection focusChange_;
    bool recording_ = false;
    /// The mouse press that ended a recording is still held: its click must not begin another.
    bool endedByPress_ = false;
};

} // namespace brinmoor
