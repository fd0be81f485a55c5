#pragma once

#include <QObject>
#include <QQmlEngine>
#include <QString>

namespace brinmoor {

class AccountController;
class AppModel;

/// The face of the account: the sign-in by e-mail, its progress, and who is signed in.
class AccountScreen final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the library window")
    Q_PROPERTY(bool hasLogin READ hasLogin NOTIFY changed FINAL)
    Q_PROPERTY(QString message READ message NOTIFY changed FINAL)
    Q_PROPERTY(QString signInEmail READ signInEmail WRITE setSignInEmail NOTIFY changed FINAL)
    Q_PROPERTY(QString signInName READ signInName WRITE setSignInName NOTIFY changed FINAL)
    Q_PROPERTY(QString sendText READ sendText NOTIFY changed FINAL)
    Q_PROPERTY(bool canSend READ canSend NOTIFY changed FINAL)
    Q_PROPERTY(bool canCancel READ canCancel NOTIFY changed FINAL)
    Q_PROPERTY(bool inProgress READ isInProgress NOTIFY changed FINAL)
    Q_PROPERTY(bool waitsForMail READ waitsForMail NOTIFY changed FINAL)
    Q_PROPERTY(QString userName READ userName NOTIFY changed FINAL)
    Q_PROPERTY(QString userEmail READ userEmail NOTIFY changed FINAL)
    Q_PROPERTY(bool canSignOut READ canSignOut NOTIFY changed FINAL)

public:
    /// The model outlives it.
    explicit AccountScreen(AppModel& model, QObject* parent = nullptr);

    [[nodiscard]] bool hasLogin() const;
    /// Empty when there is none.
    [[nodiscard]] QString message() const;
    [[nodiscard]] QString signInEmail() const;
    void setSignInEmail(const QString& typed);
    [[nodiscard]] QString signInName() const;
    void setSignInName(const QString& typed);
    [[nodiscard]] QString sendText() const;
    [[nodiscard]] bool canSend() const;
    [[nodiscard]] bool canCancel() const;
    /// Something is asked of the service.
    [[nodiscard]] bool isInProgress() const;
    [[nodiscard]] bool waitsForMail() const;
    [[nodiscard]] QString userName() const;
    [[nodiscard]] QString userEmail() const;
    [[nodiscard]] bool canSignOut() const;

    /// The screen has appeared: the account is brought in step with the stored login.
    Q_INVOKABLE void appear();
    Q_INVOKABLE void send();
    Q_INVOKABLE void cancel();
    Q_INVOKABLE void signOut();
    /// Goes to the library.
    Q_INVOKABLE void goBack();

Q_SIGNALS:
    void changed();

private:
    AppModel& model_;
    AccountController& account_;
};

} // namespace brinmoor
