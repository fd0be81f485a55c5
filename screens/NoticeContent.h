#pragma once

#include "app/Panels.h"
#include "core/capture/CaptureNotice.h"

#include <QObject>
#include <QQmlEngine>
#include <QString>

namespace brinmoor {

/// What one notice shows and what its buttons do.
class NoticeContent final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the notice panel")
    Q_PROPERTY(QString title READ title CONSTANT FINAL)
    Q_PROPERTY(QString message READ message CONSTANT FINAL)
    Q_PROPERTY(bool isError READ isError CONSTANT FINAL)
    Q_PROPERTY(bool opensAutomationSettings READ opensAutomationSettings CONSTANT FINAL)
    Q_PROPERTY(bool offersClipboard READ offersClipboard CONSTANT FINAL)

public:
    NoticeContent(CaptureNotice notice, NoticeActions actions, QObject* parent = nullptr)
        : QObject(parent), notice_(std::move(notice)), actions_(std::move(actions)) {}

    [[nodiscard]] QString title() const { return QString::fromStdString(notice_.title); }
    [[nodiscard]] QString message() const { return QString::fromStdString(notice_.message); }
    [[nodiscard]] bool isError() const noexcept { return notice_.isError; }
    [[nodiscard]] bool opensAutomationSettings() const noexcept {
        return notice_.opensAutomationSettings;
    }
    [[nodiscard]] bool offersClipboard() const noexcept { return notice_.clipboardURL.has_value(); }

    Q_INVOKABLE void dismiss();
    Q_INVOKABLE void openSettings();
    Q_INVOKABLE void saveClipboard(bool withNote);

private:
    CaptureNotice notice_;
    NoticeActions actions_;
};

} // namespace brinmoor
