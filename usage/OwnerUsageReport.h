#pragma once

#include "core/Result.h"
#include "core/account/AccountFailure.h"
#include "core/usage/UsageReport.h"

#include <QCoroTask>
#include <QObject>
#include <QString>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace brinmoor {

/// What the section for the service's owner shows. Main thread.
class OwnerUsageReport final : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool loading READ loading NOTIFY changed)
    Q_PROPERTY(QString buttonTitle READ buttonTitle NOTIFY changed)
    Q_PROPERTY(QString message READ messageText NOTIFY changed)
    Q_PROPERTY(bool hasReport READ hasReport NOTIFY changed)
    Q_PROPERTY(QString heading READ heading NOTIFY changed)
    Q_PROPERTY(QString note READ note CONSTANT)

public:
    using Answer = Result<UsageReport, AccountFailure>;
    using Load = std::function<QCoro::Task<Answer>()>;

    struct Line {
        QString title;
        QString count; ///< a plain decimal number
        friend bool operator==(const Line&, const Line&) = default;
    };

    /// `load` asks the service, usually through the account.
    explicit OwnerUsageReport(Load load);

    /// Starts loading; the report and the message shown before go at once. Does nothing while a
    /// load runs.
    Q_INVOKABLE void load();

    [[nodiscard]] const std::optional<UsageReport>& report() const noexcept { return report_; }
    [[nodiscard]] const std::optional<std::string>& message() const noexcept { return message_; }
    [[nodiscard]] bool loading() const noexcept { return loading_; }
    [[nodiscard]] bool hasReport() const noexcept { return report_.has_value(); }

    [[nodiscard]] QString buttonTitle() const;
    /// Empty without a report, like lines().
    [[nodiscard]] QString heading() const;
    /// One for each kind of action, in their order.
    [[nodiscard]] std::vector<Line> lines() const;
    [[nodiscard]] QString note() const;
    [[nodiscard]] QString messageText() const;

Q_SIGNALS:
    void changed();

private:
    QCoro::Task<> run();

    Load load_;
    std::optional<UsageReport> report_;
    std::optional<std::string> message_;
    bool loading_ = false;
};

} // namespace brinmoor
