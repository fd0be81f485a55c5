#include "platform/linux/DesktopPasteboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace brinmoor {
namespace {

QClipboard& clipboard() {
    return *QGuiApplication::clipboard();
}

} // namespace

DesktopPasteboard::DesktopPasteboard() {
    QObject::connect(&clipboard(), &QClipboard::dataChanged, &context_, [this] { ++changes_; });
}

std::vector<std::string> DesktopPasteboard::types() const {
    std::vector<std::string> names;
    if (const QMimeData* content = clipboard().mimeData())
        for (const QString& each : content->formats())
            names.push_back(each.toStdString());
    return names;
}

std::optional<std::string> DesktopPasteboard::text() const {
    const QMimeData* content = clipboard().mimeData();
    if (content == nullptr || !content->hasText())
        return std::nullopt;
    return content->text().toStdString();
}

void DesktopPasteboard::setText(const std::string& text) {
    clipboard().setText(QString::fromStdString(text));
}

} // namespace brinmoor
