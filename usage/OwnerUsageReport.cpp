#include "usage/OwnerUsageReport.h"

#include "core/text/Wording.h"

#include <QPointer>

#include <utility>

namespace brinmoor {
namespace {

QString words(std::string_view text) {
    return QString::fromStdString(text::worded(text));
}

} // namespace

OwnerUsageReport::OwnerUsageReport(Load load) : load_(std::move(load)) {}

void OwnerUsageReport::load() {
    if (loading_)
        return;
    loading_ = true;
    message_.reset();
    report_.reset();
    Q_EMIT changed();
    run();
}

QCoro::Task<> OwnerUsageReport::run() {
    const QPointer<OwnerUsageReport> self(this);
    const QCoro::Task<Answer> asking = load_();
    const Answer answer = co_await asking;
    if (!self)
        co_return;
    if (answer)
        report_ = *answer;
    else
        message_ = answer.error().errorDescription();
    loading_ = false;
    Q_EMIT changed();
}

QString OwnerUsageReport::buttonTitle() const {
    return loading_ ? words("Loading…") : words("Load owner report · last 30 days");
}

QString OwnerUsageReport::heading() const {
    if (!report_)
        return {};
    return words("Anonymous activity · last ") + QString::number(report_->days) +
           words(" days (UTC)");
}

std::vector<OwnerUsageReport::Line> OwnerUsageReport::lines() const {
    std::vector<Line> lines;
    if (!report_)
        return lines;
    for (const auto& [event, count] : report_->totals())
        lines.push_back({words(title(event)), QString::number(count)});
    return lines;
}

QString OwnerUsageReport::note() const {
    return words("Event totals, not unique people. Best-effort reporting excludes opted-out and "
                 "offline activity. Refresh to see new counts.");
}

QString OwnerUsageReport::messageText() const {
    return QString::fromStdString(message_.value_or(std::string()));
}

} // namespace brinmoor
