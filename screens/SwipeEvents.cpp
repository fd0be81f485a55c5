#include "screens/SwipeEvents.h"

#include <QDeadlineTimer>
#include <QPointingDevice>

#include <algorithm>

namespace brinmoor {

namespace {

constexpr int notch = 120;
/// Fingers are told in notches too, of 15 pixels each.
constexpr double anglePerPixel = 8;

ScrollStep::Phase phaseOf(const QWheelEvent& event) {
    switch (event.phase()) {
    case Qt::ScrollBegin:
        return ScrollStep::Phase::began;
    case Qt::ScrollUpdate:
        return ScrollStep::Phase::changed;
    case Qt::ScrollEnd:
        return ScrollStep::Phase::ended;
    case Qt::ScrollMomentum:
        return ScrollStep::Phase::momentum;
    case Qt::NoScrollPhase:
        break;
    }
    return ScrollStep::Phase::none;
}

bool isWholeNotches(QPoint angle) {
    return angle.x() % notch == 0 && angle.y() % notch == 0;
}

/// A system that tells phases tells them of fingers alone. Elsewhere wheels are told in pixels too.
bool isPreciseStep(const QWheelEvent& event) {
    if (event.phase() != Qt::NoScrollPhase)
        return true;
    const auto* device = event.pointingDevice();
    return (device && device->type() == QInputDevice::DeviceType::TouchPad) ||
           !isWholeNotches(event.angleDelta());
}

/// Until when further steps belong to the same stream. Only the row under the pointer at its
/// beginning may take it, so all rows share this.
QDeadlineTimer& stream() {
    static QDeadlineTimer end;
    return end;
}

/// Whether the last gesture was a swipe. Its momentum goes to whatever row is under the pointer by
/// then, and no list is to scroll by it, so all rows share this too.
bool& swallowsMomentum() {
    static bool swallows = false;
    return swallows;
}

bool beginsStream() {
    const bool begins = stream().hasExpired();
    stream().setRemainingTime(SwipeEvents::idleGap);
    return begins;
}

bool beginsGesture(const ScrollStep& step) {
    return step.phase == ScrollStep::Phase::none ? beginsStream()
                                                 : step.phase == ScrollStep::Phase::began;
}

} // namespace

ScrollStep ScrollStep::of(const QWheelEvent& event) {
    const QPointF moved = event.pixelDelta().isNull() ? QPointF(event.angleDelta()) / anglePerPixel
                                                      : QPointF(event.pixelDelta());
    return {phaseOf(event), isPreciseStep(event), moved.x(), moved.y()};
}

SwipeEvents::SwipeEvents(QQuickItem* parent) : QQuickItem(parent) {
    setAcceptedMouseButtons(Qt::LeftButton);
    // A push may begin on a button of the row.
    setFiltersChildMouseEvents(true);
}

void SwipeEvents::setOffset(double offset) {
    if (offset == offset_)
        return;
    offset_ = offset;
    Q_EMIT offsetChanged();
}

double SwipeEvents::archiveIntent() const noexcept {
    return RowSwipe::archiveIntentProgress(offset_);
}

double SwipeEvents::copyIntent() const noexcept {
    return RowSwipe::copyIntentProgress(offset_);
}

bool SwipeEvents::isArchivePending() const noexcept {
    return offset_ <= RowSwipe::archiveThreshold;
}

bool SwipeEvents::isCopyPending() const noexcept {
    return offset_ >= RowSwipe::copyThreshold;
}

void SwipeEvents::begin() {
    gesture_ = {};
    consumed_ = false;
    tracking_ = true;
}

bool SwipeEvents::move(double x, double y) {
    gesture_.move(x, y);
    if (gesture_.axis != RowSwipe::Axis::horizontal)
        return false;
    consumed_ = true;
    changed(gesture_.x);
    return true;
}

bool SwipeEvents::end(End how) {
    tracking_ = false;
    if (!consumed_)
        return false;
    ended(how);
    return true;
}

bool SwipeEvents::scroll(const ScrollStep& step) {
    if (!step.isPrecise)
        return false;
    if (step.phase == ScrollStep::Phase::momentum)
        return swallowsMomentum();
    if (beginsGesture(step)) {
        swallowsMomentum() = false;
        begin();
    }
    if (!tracking_)
        return false;
    if (step.phase == ScrollStep::Phase::none)
        idle_.start(idleGap, this);
    if (step.phase == ScrollStep::Phase::ended)
        return end(End::finished);
    const bool taken = move(step.x, step.y);
    swallowsMomentum() |= taken;
    return taken;
}

void SwipeEvents::changed(double x) {
    if (!origin_) {
        origin_ = offset_;
        Q_EMIT started();
    }
    setOffset(std::clamp(x + *origin_, -mostOffset, mostOffset));
}

void SwipeEvents::ended(End how) {
    origin_.reset();
    switch (RowSwipe::finish(offset_, how == End::cancelled)) {
    case RowSwipe::Outcome::closed:
        Q_EMIT settling(0);
        return;
    case RowSwipe::Outcome::archive:
        Q_EMIT settling(0);
        Q_EMIT archiveWanted();
        return;
    case RowSwipe::Outcome::copy:
        Q_EMIT settling(0);
        Q_EMIT copyWanted();
        return;
    case RowSwipe::Outcome::archiveButton:
        Q_EMIT settling(archived_ ? restoreButtonOffset : archiveButtonOffset);
        return;
    case RowSwipe::Outcome::shareButtons:
        Q_EMIT settling(shareButtonsOffset);
        return;
    }
}

void SwipeEvents::close() {
    origin_.reset();
    tracking_ = false;
    if (offset_ != 0)
        Q_EMIT settling(0);
}

void SwipeEvents::reset() {
    idle_.stop();
    origin_.reset();
    tracking_ = false;
    consumed_ = false;
    setOffset(0);
}

void SwipeEvents::timerEvent(QTimerEvent* event) {
    if (event->timerId() != idle_.timerId())
        return;
    idle_.stop();
    if (tracking_)
        end(End::finished);
}

void SwipeEvents::wheelEvent(QWheelEvent* event) {
    event->setAccepted(scroll(ScrollStep::of(*event)));
}

void SwipeEvents::press(const QMouseEvent& event) {
    pointer_ = event.scenePosition();
    begin();
}

bool SwipeEvents::drag(const QMouseEvent& event) {
    if (!tracking_)
        return false;
    const QPointF moved = event.scenePosition() - pointer_;
    pointer_ = event.scenePosition();
    return move(moved.x(), moved.y());
}

bool SwipeEvents::childMouseEventFilter(QQuickItem*, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress) {
        tapCounts_ = false;
        if (static_cast<const QMouseEvent&>(*event).button() == Qt::LeftButton)
            press(static_cast<const QMouseEvent&>(*event));
    } else if (event->type() == QEvent::MouseButtonRelease) {
        tracking_ = false;
    } else if (event->type() == QEvent::MouseMove) {
        // Pushed aside, the row takes the pointer, and what was pressed is let go unclicked.
        if (drag(static_cast<const QMouseEvent&>(*event))) {
            setKeepMouseGrab(true);
            grabMouse();
            return true;
        }
    }
    return false;
}

void SwipeEvents::mousePressEvent(QMouseEvent* event) {
    tapCounts_ = true;
    press(*event);
}

void SwipeEvents::mouseDoubleClickEvent(QMouseEvent*) {
    tapCounts_ = false;
}

void SwipeEvents::mouseMoveEvent(QMouseEvent* event) {
    // The list takes a pointer that goes up or down; one that goes sideways stays here.
    if (drag(*event))
        setKeepMouseGrab(true);
}

void SwipeEvents::mouseReleaseEvent(QMouseEvent*) {
    setKeepMouseGrab(false);
    const bool wasTracking = tracking_;
    // A row that was closed meanwhile does nothing more.
    if (wasTracking && !end(End::finished) && tapCounts_ &&
        gesture_.axis == RowSwipe::Axis::undecided)
        Q_EMIT tapped();
    consumed_ = false;
}

void SwipeEvents::mouseUngrabEvent() {
    setKeepMouseGrab(false);
    if (tracking_)
        end(End::cancelled);
}

void SwipeEvents::itemChange(ItemChange change, const ItemChangeData& data) {
    // A sheet opens, or the row is taken away: nothing that was begun is carried out.
    const bool goes = (change == ItemEnabledHasChanged && !isEnabled()) ||
                      (change == ItemVisibleHasChanged && !isVisible());
    if (goes && tracking_) {
        idle_.stop();
        end(End::cancelled);
    }
    QQuickItem::itemChange(change, data);
}

} // namespace brinmoor
