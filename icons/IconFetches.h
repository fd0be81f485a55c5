#pragma once

#include "core/text/WebAddress.h"
#include "icons/Gate.h"
#include "platform/Http.h"

#include <QByteArray>
#include <QCoroTask>

#include <chrono>
#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>

namespace brinmoor {

/// What a server gave, and where it was in the end.
struct Fetched {
    QByteArray bytes;
    WebAddress address;
};

/// What is done with a body that is longer than the limit.
enum class Excess {
    refused,
    cutOff, ///< what came before counts
};

/// Fetches pages and pictures: bounded in bytes and time, at most two calls to a host at once.
/// Main thread. Must outlive its calls, as `http` must.
class IconFetches {
public:
    struct Limits {
        std::chrono::milliseconds silence = std::chrono::seconds(6);
        std::chrono::milliseconds total = std::chrono::seconds(10);
    };
    static constexpr std::size_t mostPerHost = 2;

    IconFetches(Http& http, Limits limits) : http_(http), limits_(limits) {}

    /// Absent for anything but an answer of success from an address that the library would accept.
    [[nodiscard]] QCoro::Task<std::optional<Fetched>> fetch(WebAddress address, std::size_t limit,
                                                            Excess excess);

private:
    [[nodiscard]] QFuture<std::optional<Fetched>> send(const WebAddress& address, std::size_t limit,
                                                       Excess excess);

    Http& http_;
    Limits limits_;
    /// By scheme, host and port; a host that nobody asks has none.
    std::map<std::string, std::shared_ptr<Gate>> hosts_;
};

} // namespace brinmoor
