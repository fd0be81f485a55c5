#include "screens/OwnerUsage.h"

#include "account/AccountController.h"
#include "usage/OwnerUsageReport.h"

namespace brinmoor {

OwnerUsage::OwnerUsage(AccountController& account, QObject* parent)
    : QObject(parent), account_(account) {
    connect(&account, &AccountController::changed, this, [this] { follow(); });
    follow();
}

OwnerUsage::~OwnerUsage() = default;

void OwnerUsage::follow() {
    if (account_.isUsageOwner() == isOwner())
        return;
    if (report_) {
        report_.reset();
    } else {
        report_ = std::make_unique<OwnerUsageReport>([this] { return account_.loadUsageReport(); });
        connect(report_.get(), &OwnerUsageReport::changed, this, &OwnerUsage::changed);
    }
    Q_EMIT changed();
}

bool OwnerUsage::isOwner() const {
    return report_ != nullptr;
}

bool OwnerUsage::isLoading() const {
    return report_ && report_->loading();
}

bool OwnerUsage::hasReport() const {
    return report_ && report_->hasReport();
}

QString OwnerUsage::buttonTitle() const {
    return report_ ? report_->buttonTitle() : QString();
}

QString OwnerUsage::message() const {
    return report_ ? report_->messageText() : QString();
}

QString OwnerUsage::heading() const {
    return report_ ? report_->heading() : QString();
}

QString OwnerUsage::note() const {
    return report_ ? report_->note() : QString();
}

QStringList OwnerUsage::titles() const {
    QStringList titles;
    if (report_)
        for (const auto& line : report_->lines())
            titles.append(line.title);
    return titles;
}

QStringList OwnerUsage::counts() const {
    QStringList counts;
    if (report_)
        for (const auto& line : report_->lines())
            counts.append(line.count);
    return counts;
}

void OwnerUsage::load() {
    if (report_)
        report_->load();
}

} // namespace brinmoor
