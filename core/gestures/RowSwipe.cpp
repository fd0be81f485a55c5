#include "core/gestures/RowSwipe.h"

#include <algorithm>
#include <cmath>

namespace brinmoor {

namespace {

constexpr double decisionDistance = 8;
/// Of a diagonal movement neither part has to be so long.
constexpr double diagonalDistance = 6;
constexpr double horizontalPreference = 1.5;
constexpr double openOffset = 40;
constexpr double intentBegin = 140;
constexpr double intentLength = 70;

bool isDecisive(double across, double along) noexcept {
    return std::max(across, along) >= decisionDistance ||
           std::min(across, along) >= diagonalDistance;
}

double intentProgress(double distance) noexcept {
    // In this order a distance that is no number is no progress.
    return std::min(std::max(0.0, (distance - intentBegin) / intentLength), 1.0);
}

} // namespace

void RowSwipe::move(double deltaX, double deltaY) noexcept {
    x += deltaX;
    y += deltaY;
    const double across = std::abs(x);
    const double along = std::abs(y);
    if (axis != Axis::undecided || !isDecisive(across, along))
        return;
    axis = horizontalPreference * along < across ? Axis::horizontal : Axis::vertical;
}

double RowSwipe::archiveIntentProgress(double offset) noexcept {
    return intentProgress(-offset);
}

double RowSwipe::copyIntentProgress(double offset) noexcept {
    return intentProgress(offset);
}

RowSwipe::Outcome RowSwipe::finish(double offset, bool cancelled) noexcept {
    if (cancelled)
        return Outcome::closed;
    if (offset <= archiveThreshold)
        return Outcome::archive;
    if (offset >= copyThreshold)
        return Outcome::copy;
    if (offset <= -openOffset)
        return Outcome::archiveButton;
    return offset >= openOffset ? Outcome::shareButtons : Outcome::closed;
}

} // namespace brinmoor
