// brinmoor-account URL CERTIFICATE FOLDER [OWNER]: one copy of the account on a terminal, with the
// real keyring and the real network. Each line of input is a command, answered by one line:
//
//   state                 what the account screen would show
//   send ADDRESS [NAME]   ask for the mail
//   link URL              the desktop hands over a return URL
//   come                  the program comes to the front
//   cancel, signout, report
//
// FOLDER is where copies meet. Ends with its input.

#include "account/AccountController.h"
#include "platform/linux/LibsecretStore.h"
#include "platform/linux/NetworkHttp.h"
#include "platform/linux/SystemClock.h"
#include "platform/linux/SystemRandom.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <unistd.h>

#include <array>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

using namespace brinmoor;

namespace {

std::string bytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

const char* words(AccountController::SignInStage stage) {
    constexpr std::array names{"idle", "sending", "waiting", "verifying"};
    return names.at(static_cast<std::size_t>(stage));
}

void tell(const AccountController& account) {
    std::cout << "stage=" << words(account.signInStage())
              << " login=" << (account.hasLogin() ? "yes" : "no")
              << " busy=" << (account.isBusy() ? "yes" : "no")
              << " user=" << account.userEmail().toStdString() << " email=" << account.signInEmail()
              << " message=" << account.message().value_or("") << std::endl;
}

QCoro::Task<> tellReport(AccountController& account) {
    const auto loading = account.loadUsageReport();
    const Result<UsageReport, AccountFailure> report = co_await loading;
    if (!report) {
        std::cout << "failed: " << report.error().errorDescription() << std::endl;
        co_return;
    }
    for (const auto& [event, count] : report->totals())
        std::cout << title(event) << "=" << count << " ";
    std::cout << std::endl;
}

void send(AccountController& account, const std::string& typed) {
    const auto blank = typed.find(' ');
    account.setSignInEmail(QString::fromStdString(typed.substr(0, blank)));
    if (blank != std::string::npos)
        account.setSignInName(QString::fromStdString(typed.substr(blank + 1)));
    account.sendSignInEmail();
}

void obey(AccountController& account, const std::string& line) {
    const auto blank = line.find(' ');
    const std::string command = line.substr(0, blank);
    const std::string rest = blank == std::string::npos ? "" : line.substr(blank + 1);
    if (command == "report") {
        tellReport(account);
        return;
    }
    if (command == "send")
        send(account, rest);
    else if (command == "link")
        account.handleIncomingURL(rest);
    else if (command == "come")
        account.synchronizeLogin(AccountController::RefreshExisting::yes);
    else if (command == "cancel")
        account.cancelSignIn();
    else if (command == "signout")
        account.signOut();
    tell(account);
}

/// Hands on whole lines; false at the end of the input.
bool readLines(std::string& rest, AccountController& account) {
    std::array<char, 4096> piece{};
    const ssize_t size = ::read(STDIN_FILENO, piece.data(), piece.size());
    if (size <= 0)
        return false;
    rest.append(piece.data(), static_cast<std::size_t>(size));
    for (auto end = rest.find('\n'); end != std::string::npos; end = rest.find('\n')) {
        const std::string line = rest.substr(0, end);
        rest.erase(0, end + 1);
        obey(account, line);
    }
    return true;
}

} // namespace

int main(int count, char** arguments) {
    const QCoreApplication application(count, arguments);
    const std::vector<std::string> given(arguments + 1, arguments + count);
    if (given.size() < 3) {
        std::cerr << "usage: brinmoor-account URL CERTIFICATE FOLDER [OWNER]" << std::endl;
        return 2;
    }
    SystemClock clock;
    NetworkHttp http(bytesOf(given[1]));
    SystemRandom random;
    LibsecretStore secrets;
    AccountController account({clock, http, random, secrets, given[2], given[0],
                               given.size() > 3 ? given[3] : "owner@brinmoor.invalid"});
    std::string rest;
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &input, [&] {
        if (!readLines(rest, account))
            QCoreApplication::quit();
    });
    tell(account);
    return QCoreApplication::exec();
}
