#pragma once

namespace brinmoor {

/// One sideways push of a row with two fingers. Offsets and deltas are in points; negative is to
/// the left.
struct RowSwipe {
    enum class Axis { undecided, horizontal, vertical };
    /// What a finished gesture does: `archiveButton` and `shareButtons` leave the row open.
    enum class Outcome { closed, archive, copy, archiveButton, shareButtons };

    static constexpr double archiveThreshold = -170;
    static constexpr double copyThreshold = 170;

    Axis axis = Axis::undecided;
    double x = 0; ///< sum of the horizontal deltas
    double y = 0; ///< sum of the vertical deltas

    /// Adds one event's deltas. Once it is decided, the axis stays for the gesture.
    void move(double deltaX, double deltaY) noexcept;

    /// How near the row is to its main action, from 0 to 1.
    [[nodiscard]] static double archiveIntentProgress(double offset) noexcept;
    [[nodiscard]] static double copyIntentProgress(double offset) noexcept;

    [[nodiscard]] static Outcome finish(double offset, bool cancelled) noexcept;

    friend bool operator==(const RowSwipe&, const RowSwipe&) = default;
};

} // namespace brinmoor
