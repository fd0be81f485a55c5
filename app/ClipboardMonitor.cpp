#include "app/ClipboardMonitor.h"

#include "core/capture/ClipboardLink.h"
#include "platform/Clock.h"
#include "platform/Pasteboard.h"

#include <algorithm>

namespace brinmoor {
namespace {

constexpr std::chrono::seconds interval(1);

bool isConcealed(const Pasteboard& pasteboard) {
    const auto types = pasteboard.types();
    return std::ranges::any_of(ClipboardMonitor::transientTypes, [&](std::string_view marker) {
        return std::ranges::find(types, marker) != types.end();
    });
}

} // namespace

void ClipboardMonitor::start() {
    changeCount_ = pasteboard_.changeCount();
    watching_ = true;
    scheduleTick();
}

void ClipboardMonitor::stop() {
    watching_ = false;
    timer_.cancel();
}

void ClipboardMonitor::scheduleTick() {
    timer_ = clock_.after(interval, [this] {
        scheduleTick();
        check();
    });
}

void ClipboardMonitor::check() {
    const std::uint64_t count = pasteboard_.changeCount();
    if (count == changeCount_)
        return;
    changeCount_ = count;
    if (isConcealed(pasteboard_))
        return;
    const auto text = pasteboard_.text();
    if (!text)
        return;
    const auto address = ClipboardLink::parse(*text);
    if (address && onLink)
        onLink(*address);
}

} // namespace brinmoor
