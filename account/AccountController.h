#pragma once

#include "account/AccountKeychain.h"
#include "account/AccountService.h"
#include "core/account/AccountRecords.h"
#include "core/account/PendingEmailSignIn.h"
#include "core/usage/UsageReport.h"

#include <QCoroTask>
#include <QObject>
#include <QString>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace brinmoor {

class Clock;
class Http;
class RandomSource;
class SecureStore;

/// What the account needs from outside. All of it outlives the controller.
struct AccountParts {
    Clock& clock;
    Http& http;
    RandomSource& random;
    SecureStore& secrets;
    std::string folder;       ///< where copies of the program meet: the lock file lies there
    std::string serviceURL;   ///< the service base URL, https
    std::string ownerAddress; ///< who may read the usage report
};

/// The face of the account: runs the sign-in by e-mailed link, holds the session, and keeps both in
/// step with the login that other running copies of the program share. Main thread.
///
/// The asynchronous operations may be started and left; what they find out of date when they resume
/// they throw away, and they do nothing once the controller has gone. changed() follows every
/// change of what the getters give.
class AccountController final : public QObject {
    Q_OBJECT
    Q_PROPERTY(SignInStage signInStage READ signInStage NOTIFY changed)
    Q_PROPERTY(bool hasLogin READ hasLogin NOTIFY changed)
    Q_PROPERTY(bool isBusy READ isBusy NOTIFY changed)
    Q_PROPERTY(bool isUsageOwner READ isUsageOwner NOTIFY changed)
    Q_PROPERTY(QString userName READ userName NOTIFY changed)
    Q_PROPERTY(QString userEmail READ userEmail NOTIFY changed)
    Q_PROPERTY(QString signInEmail READ signInEmailText WRITE setSignInEmail NOTIFY changed)
    Q_PROPERTY(QString signInName READ signInNameText WRITE setSignInName NOTIFY changed)
    Q_PROPERTY(QString message READ messageText NOTIFY changed)

public:
    enum class SignInStage { idle, sending, waiting, verifying };
    Q_ENUM(SignInStage)

    enum class Force { no, yes };
    enum class RefreshExisting { no, yes };

    static constexpr std::chrono::seconds usualTimeout{15};
    static constexpr double resendPause = 30.0; ///< seconds

    /// Reads the stored login and the request in progress.
    explicit AccountController(const AccountParts& parts);
    ~AccountController() override;

    // What the shell and the model install after start.
    /// Brings the account screen to the front.
    std::function<void()> bringAccountForward;
    /// Without the above: brings the program's window to the front and activates the program.
    std::function<void()> presentationWindow;
    /// Called after the login has been cleared or changed.
    std::function<void()> onChange;

    [[nodiscard]] const std::optional<BrinmoorAccount>& account() const noexcept {
        return account_;
    }
    [[nodiscard]] bool isRefreshing() const noexcept { return isRefreshing_; }
    [[nodiscard]] bool isBusy() const noexcept { return isRefreshing_; }
    [[nodiscard]] SignInStage signInStage() const noexcept { return signInStage_; }
    [[nodiscard]] bool hasLogin() const noexcept { return hasLogin_; }
    /// Before this moment another mail is refused.
    [[nodiscard]] const std::optional<Instant>& resendAvailableAt() const noexcept {
        return resendAvailableAt_;
    }
    [[nodiscard]] const std::string& signInEmail() const noexcept { return signInEmail_; }
    [[nodiscard]] const std::string& signInName() const noexcept { return signInName_; }
    /// The one line of status or failure.
    [[nodiscard]] const std::optional<std::string>& message() const noexcept { return message_; }
    /// Whether the one person is signed in who may read the usage report.
    [[nodiscard]] bool isUsageOwner() const;

    [[nodiscard]] QString userName() const;
    [[nodiscard]] QString userEmail() const;
    [[nodiscard]] QString signInEmailText() const { return QString::fromStdString(signInEmail_); }
    [[nodiscard]] QString signInNameText() const { return QString::fromStdString(signInName_); }
    /// Empty when there is none.
    [[nodiscard]] QString messageText() const;
    void setSignInEmail(const QString& typed);
    void setSignInName(const QString& typed);

    /// Starts asking for the mail; does nothing while that can't be asked.
    Q_INVOKABLE void sendSignInEmail();
    Q_INVOKABLE void cancelSignIn();
    Q_INVOKABLE void signOut();
    /// Takes a URL that the desktop handed over; one that is no return URL of a sign-in is ignored.
    void handleIncomingURL(const std::string& url);
    /// Brings this copy in step with the stored login.
    QCoro::Task<> synchronizeLogin(RefreshExisting refreshExisting);
    /// Fetches the account; callers at one time share one request.
    QCoro::Task<> refresh(Force force, std::chrono::milliseconds timeout = usualTimeout);
    /// The counts of all users over the last days.
    QCoro::Task<Result<UsageReport, AccountFailure>> loadUsageReport();

Q_SIGNALS:
    void changed();

private:
    /// One fetch of the account.
    struct RefreshFlight {
        Uuid id;
        Force force = Force::no;
        std::string token;
        AccountService::Call call;
    };
    using Fetched = Result<BrinmoorAccount, AccountFailure>;

    // Signing in.
    [[nodiscard]] Result<std::string, AccountFailure> randomSecret();
    [[nodiscard]] Result<PendingEmailSignIn, AccountFailure>
    chosenRequest(const std::string& email);
    [[nodiscard]] Result<bool, AccountFailure> canResend(const std::string& email);
    QCoro::Task<> mailTask(PendingEmailSignIn request);
    QCoro::Task<> mailAccepted(PendingEmailSignIn request);
    void mailFailed(const PendingEmailSignIn& request, const AccountFailure& failed);
    QCoro::Task<> takeLink(std::string url);
    QCoro::Task<> finishSignIn(std::string url);
    QCoro::Task<> exchange(AccountKeychain::Claim claim);
    [[nodiscard]] Result<Done, AccountFailure> exchanged(const PendingEmailSignIn& request,
                                                         const ServiceCall::Answer& answer);
    [[nodiscard]] Result<Done, AccountFailure> adoptExchange(const PendingEmailSignIn& request,
                                                             const SignInExchange& exchange);
    void restorePendingSignIn(const PendingEmailSignIn& request);
    void showPending(const std::optional<PendingEmailSignIn>& stored);
    void showAccount(std::string text);
    void showAccount();

    // The session.
    QCoro::Task<> adoptStored(std::string stored);
    void settle(const Fetched& fetched, const Uuid& flight, const std::string& token);
    void startFlight(Force force, std::chrono::milliseconds timeout);
    void dropFlight();
    void apply(const BrinmoorAccount& account, std::optional<std::string> message = std::nullopt);
    void holdLogin(const std::string& token, const BrinmoorAccount& account);
    void followLogin(const std::string& token, const BrinmoorAccount& account);
    void clearLocalLogin();
    void loginChanged();

    void setMessage(std::optional<std::string> text);
    void setMessage(const AccountFailure& failed) { setMessage(failed.errorDescription()); }
    void setStage(SignInStage stage);
    void dropMailCall();
    [[nodiscard]] bool isAttempt(const PendingEmailSignIn& request) const {
        return authAttempt_ == request.id;
    }

    Clock& clock_;
    RandomSource& random_;
    AccountKeychain keychain_;
    AccountService service_;
    std::string ownerAddress_;

    std::optional<BrinmoorAccount> account_;
    bool isRefreshing_ = false;
    SignInStage signInStage_ = SignInStage::idle;
    bool hasLogin_ = false;
    std::optional<Instant> resendAvailableAt_;
    std::string signInEmail_;
    std::string signInName_;
    std::optional<std::string> message_;

    std::optional<std::string> accessToken_;
    /// Replaced whenever the login changes hands: what began under an older one is thrown away.
    Uuid sessionGeneration_;
    /// The sign-in that is pursued: what belongs to another one is thrown away.
    Uuid authAttempt_;
    std::optional<PendingEmailSignIn> pendingSignIn_;
    AccountService::Call signInRequestTask_;
    std::optional<RefreshFlight> refreshFlight_;
    /// The flight whose good end leaves the message as it is.
    std::optional<Uuid> quietFlight_;
};

} // namespace brinmoor
