#pragma once

#include <QObject>
#include <QQmlEngine>
#include <QString>
#include <QStringList>

#include <memory>

namespace brinmoor {

class AccountController;
class OwnerUsageReport;

/// The counts of all users, which the service's owner alone may read. What was loaded goes when the
/// owner signs out.
class OwnerUsage final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the settings screen")
    Q_PROPERTY(bool isOwner READ isOwner NOTIFY changed FINAL)
    Q_PROPERTY(bool loading READ isLoading NOTIFY changed FINAL)
    Q_PROPERTY(bool hasReport READ hasReport NOTIFY changed FINAL)
    Q_PROPERTY(QString buttonTitle READ buttonTitle NOTIFY changed FINAL)
    Q_PROPERTY(QString message READ message NOTIFY changed FINAL)
    Q_PROPERTY(QString heading READ heading NOTIFY changed FINAL)
    Q_PROPERTY(QString note READ note NOTIFY changed FINAL)
    Q_PROPERTY(QStringList titles READ titles NOTIFY changed FINAL)
    Q_PROPERTY(QStringList counts READ counts NOTIFY changed FINAL)

public:
    /// The account outlives the object.
    explicit OwnerUsage(AccountController& account, QObject* parent = nullptr);
    ~OwnerUsage() override;

    [[nodiscard]] bool isOwner() const;
    [[nodiscard]] bool isLoading() const;
    [[nodiscard]] bool hasReport() const;
    [[nodiscard]] QString buttonTitle() const;
    [[nodiscard]] QString message() const;
    [[nodiscard]] QString heading() const;
    [[nodiscard]] QString note() const;
    /// One for each kind of action, with its sum at the same place of counts(); empty without a
    /// report.
    [[nodiscard]] QStringList titles() const;
    [[nodiscard]] QStringList counts() const;

    Q_INVOKABLE void load();

Q_SIGNALS:
    void changed();

private:
    void follow();

    AccountController& account_;
    std::unique_ptr<OwnerUsageReport> report_; ///< while the owner is signed in
};

} // namespace brinmoor
