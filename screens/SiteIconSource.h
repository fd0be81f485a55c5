#pragma once

#include <QByteArray>
#include <QCoroTask>

#include <functional>
#include <optional>
#include <string>

namespace brinmoor {

/// Answers with the icon of the site of a page as the bytes of a picture, or with nothing; the
/// hint is where the page said that its icon is. Never fails. Main thread.
using SiteIconSource = std::function<QCoro::Task<std::optional<QByteArray>>(
    std::string page, std::optional<std::string> hint)>;

} // namespace brinmoor
