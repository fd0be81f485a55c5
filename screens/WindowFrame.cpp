#include "screens/WindowFrame.h"

#include <QStringList>

#include <array>

namespace brinmoor {

namespace {

/// So much of the upper edge must be on a screen that the window can be taken hold of.
constexpr QSize handle(80, 24);

QString numbers(const QRect& rectangle) {
    return QStringLiteral("%1 %2 %3 %4")
        .arg(rectangle.x())
        .arg(rectangle.y())
        .arg(rectangle.width())
        .arg(rectangle.height());
}

} // namespace

QString WindowFrame::text() const {
    return numbers(frame) + u' ' + numbers(screen);
}

std::optional<WindowFrame> WindowFrame::parse(const QString& text) {
    const QStringList words = text.split(u' ', Qt::SkipEmptyParts);
    std::array<int, 8> values{};
    if (words.size() != qsizetype(values.size()))
        return std::nullopt;
    for (std::size_t at = 0; at < values.size(); ++at) {
        bool isNumber = false;
        values[at] = words[qsizetype(at)].toInt(&isNumber);
        if (!isNumber)
            return std::nullopt;
    }
    const WindowFrame read{{values[0], values[1], values[2], values[3]},
                           {values[4], values[5], values[6], values[7]}};
    return read.frame.isValid() ? std::optional(read) : std::nullopt;
}

std::optional<QRect> WindowFrame::placed(const QList<QRect>& screens, QSize least) const {
    const QRect edge(frame.topLeft(), QSize(frame.width(), handle.height()));
    for (const QRect& each : screens) {
        const QRect seen = edge & each;
        if (seen.width() < handle.width() || seen.height() < handle.height())
            continue;
        return QRect(frame.topLeft(), frame.size().boundedTo(each.size()).expandedTo(least));
    }
    return std::nullopt;
}

} // namespace brinmoor
