#pragma once

#include <QRect>
#include <QString>

#include <optional>

namespace brinmoor {

/// Where a window stood and on which part of the desktop, as it is remembered between runs.
struct WindowFrame {
    QRect frame;  ///< of the window without its decorations
    QRect screen; ///< the area of its screen at that time

    /// Eight numbers: x, y, width, height of either rectangle.
    [[nodiscard]] QString text() const;
    /// Absent for anything but such a text.
    [[nodiscard]] static std::optional<WindowFrame> parse(const QString& text);

    /// Where it goes on a desktop with these screens: its old place as far as a screen still shows
    /// its upper edge, otherwise absent. Never larger than that screen, never smaller than `least`.
    [[nodiscard]] std::optional<QRect> placed(const QList<QRect>& screens, QSize least) const;

    friend bool operator==(const WindowFrame&, const WindowFrame&) = default;
};

} // namespace brinmoor
