#pragma once

#include "platform/Pasteboard.h"

#include <QObject>

namespace brinmoor {

/// The desktop's clipboard. On X11 every copy of every program is told by the server; on Wayland
/// only those made while a window of this program has the keyboard. Needs a QGuiApplication.
class DesktopPasteboard final : public Pasteboard {
public:
    DesktopPasteboard();

    [[nodiscard]] std::uint64_t changeCount() const override { return changes_; }
    [[nodiscard]] std::vector<std::string> types() const override;
    [[nodiscard]] std::optional<std::string> text() const override;
    void setText(const std::string& text) override;

private:
    std::uint64_t changes_ = 0;
    QObject context_;
};

} // namespace brinmoor
