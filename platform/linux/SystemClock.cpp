#include "platform/linux/SystemClock.h"

#include <QTimeZone>
#include <QTimer>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <memory>
#include <span>
#include <sys/random.h>
#include <time.h>

namespace brinmoor {
namespace {

using std::chrono::milliseconds;

/// A timer counts its milliseconds in an int, so that a longer delay goes in stretches.
constexpr milliseconds longestStretch = std::chrono::hours(24 * 20);

class DelayedWork {
public:
    DelayedWork(milliseconds delay, std::function<void()> work)
        : left_(std::max(delay, milliseconds{0})), work_(std::move(work)) {
        timer_.setSingleShot(true);
        timer_.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { stretchEnded(); });
        startStretch();
    }

private:
    void startStretch() {
        const auto stretch = std::min(left_, longestStretch);
        left_ -= stretch;
        timer_.start(static_cast<int>(stretch.count()));
    }

    void stretchEnded() {
        if (left_ > milliseconds{0}) {
            startStretch();
            return;
        }
        // The work may end its own subscription, and this object with it.
        const auto work = std::move(work_);
        work();
    }

    milliseconds left_;
    std::function<void()> work_;
    QTimer timer_;
};

/// Nothing safe can be made without random bytes; the kernel never refuses them to a running
/// desktop.
void fillWithRandomBytes(std::span<std::uint8_t> bytes) {
    while (!bytes.empty()) {
        const auto count = ::getrandom(bytes.data(), bytes.size(), 0);
        if (count < 0 && errno != EINTR)
            std::abort();
        if (count > 0)
            bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
}

} // namespace

Instant SystemClock::now() const {
    timespec time{};
    ::clock_gettime(CLOCK_REALTIME, &time);
    const auto seconds = static_cast<double>(time.tv_sec) - unixSecondsAtInstantZero;
    return {seconds + static_cast<double>(time.tv_nsec) * 1e-9};
}

std::string SystemClock::timeZone() const {
    const auto zone = QTimeZone::systemTimeZoneId();
    return zone.isEmpty() ? "UTC" : zone.toStdString();
}

Uuid SystemClock::newUuid() {
    Uuid made;
    fillWithRandomBytes(made.bytes);
    made.bytes[6] = static_cast<std::uint8_t>((made.bytes[6] & 0x0f) | 0x40);
    made.bytes[8] = static_cast<std::uint8_t>((made.bytes[8] & 0x3f) | 0x80);
    return made;
}

Subscription SystemClock::after(milliseconds delay, std::function<void()> work) {
    const auto delayed = std::make_shared<DelayedWork>(delay, std::move(work));
    return Subscription([held = delayed]() mutable { held.reset(); });
}

} // namespace brinmoor
