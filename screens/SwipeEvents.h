#pragma once

#include <QBasicTimer>
#include <QQuickItem>

#include <optional>

#include "core/gestures/RowSwipe.h"

namespace brinmoor {

/// One step of a scroll gesture, whatever it comes from.
struct ScrollStep {
    enum class Phase { none, began, changed, ended, momentum };

    Phase phase = Phase::none;
    bool isPrecise = false; ///< in pixels, as fingers move; a wheel turns by notches
    double x = 0;
    double y = 0;

    [[nodiscard]] static ScrollStep of(const QWheelEvent& event);
};

/// The place of a row that fingers, or a pressed pointer, push sideways. It follows the gesture
/// with `offset` and tells what its end means; the movement to a place of rest is the view's.
/// Vertical gestures and the notches of a wheel go on to the list.
class SwipeEvents : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    /// How far the row has been pushed, in pixels; to the left it is negative.
    Q_PROPERTY(double offset READ offset WRITE setOffset NOTIFY offsetChanged FINAL)
    Q_PROPERTY(bool archived MEMBER archived_ NOTIFY archivedChanged FINAL)
    /// How near the row is to its main action, from 0 to 1, and whether letting go does it.
    Q_PROPERTY(double archiveIntent READ archiveIntent NOTIFY offsetChanged FINAL)
    Q_PROPERTY(double copyIntent READ copyIntent NOTIFY offsetChanged FINAL)
    Q_PROPERTY(bool archivePending READ isArchivePending NOTIFY offsetChanged FINAL)
    Q_PROPERTY(bool copyPending READ isCopyPending NOTIFY offsetChanged FINAL)

public:
    static constexpr double mostOffset = 210;
    static constexpr double shareButtonsOffset = 156;
    static constexpr double archiveButtonOffset = -156;
    static constexpr double restoreButtonOffset = -82;
    /// Where the system doesn't tell the end of a gesture, this long without a step is one.
    static constexpr int idleGap = 160;

    explicit SwipeEvents(QQuickItem* parent = nullptr);

    [[nodiscard]] double offset() const noexcept { return offset_; }
    void setOffset(double offset);
    [[nodiscard]] double archiveIntent() const noexcept;
    [[nodiscard]] double copyIntent() const noexcept;
    [[nodiscard]] bool isArchivePending() const noexcept;
    [[nodiscard]] bool isCopyPending() const noexcept;

    /// Takes one step; false when the list is to have it.
    bool scroll(const ScrollStep& step);
    /// Lets the row go back to its place.
    Q_INVOKABLE void close();
    /// The row stands for another link: what was begun is forgotten.
    Q_INVOKABLE void reset();

Q_SIGNALS:
    void offsetChanged();
    void archivedChanged();
    /// A gesture takes the row.
    void started();
    /// The gesture is over, and the row comes to rest at this offset.
    void settling(double rest);
    void archiveWanted();
    void copyWanted();
    /// Pressed and let go without moving.
    void tapped();

protected:
    void wheelEvent(QWheelEvent* event) override;
    bool childMouseEventFilter(QQuickItem* child, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseUngrabEvent() override;
    void timerEvent(QTimerEvent* event) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    enum class End { finished, cancelled };

    void begin();
    bool move(double x, double y);
    bool end(End how);
    void press(const QMouseEvent& event);
    /// True when the row follows the pointer.
    bool drag(const QMouseEvent& event);
    void changed(double x);
    void ended(End how);

    double offset_ = 0;
    bool archived_ = false;
    RowSwipe gesture_;
    bool tracking_ = false;
    bool consumed_ = false;
    std::optional<double> origin_; ///< the offset at which the present gesture began
    QBasicTimer idle_;
    QPointF pointer_;
    bool tapCounts_ = false;
};

} // namespace brinmoor
