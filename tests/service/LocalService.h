#pragma once

#include "tests/support/HttpServer.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace brinmoor::testing {

/// A sign-in mail, as it lies in the folder of mails.
struct Mail {
    std::string email;
    std::string link; ///< the return URL
};

/// The account service, over HTTPS on the loopback interface. Every address has an account; its
/// identifier is made from the address. Safe to call from any thread.
class LocalService {
public:
    struct Options {
        std::string mailFolder;        ///< each mail is a file there; made when missing
        std::string ownerAddress = {}; ///< who may read the report
        std::string identityFile = {}; ///< keeps the certificate between runs
        std::uint16_t port = 0;        ///< 0: one that the system chooses
    };
    /// Looks at a request before the service does, and may answer in its place. Called on the
    /// thread of a connection, which it may hold up.
    using Interference = std::function<std::optional<HttpAnswer>(const HttpRequest&)>;

    explicit LocalService(Options options);
    ~LocalService();

    /// The service base URL.
    [[nodiscard]] std::string address() const { return server_->address(); }
    [[nodiscard]] std::string certificate() const { return server_->certificate(); }

    void interfere(Interference interference);
    /// Every mail sent so far, oldest first.
    [[nodiscard]] std::vector<Mail> mails() const;
    /// "METHOD /path" of every request so far.
    [[nodiscard]] std::vector<std::string> requests() const;
    [[nodiscard]] bool isValid(const std::string& token) const;
    /// A session that some other device signed in to.
    [[nodiscard]] std::string newSession(const std::string& email);
    void endAllSessions();

private:
    /// What a code can be exchanged for.
    struct Invitation {
        std::string email;
        std::string name;
        std::string challenge;
        std::string state;
    };
    struct User {
        std::string email;
        std::string name;
    };

    HttpAnswer handle(const HttpRequest& request);
    HttpAnswer requestMail(const HttpRequest& request);
    HttpAnswer exchange(const HttpRequest& request);
    HttpAnswer account(const HttpRequest& request);
    HttpAnswer logout(const HttpRequest& request);
    HttpAnswer takeUsage(const HttpRequest& request);
    HttpAnswer report(const HttpRequest& request);
    [[nodiscard]] const User* userOf(const HttpRequest& request) const;
    void send(const Mail& mail);

    Options options_;
    mutable std::mutex guard_;
    Interference interference_;
    std::vector<Mail> mails_;
    std::vector<std::string> requests_;
    std::map<std::string, Invitation> invitations_; ///< by code
    std::map<std::string, User> sessions_;          ///< by token
    std::set<std::string> batches_;
    std::map<std::string, std::map<std::string, std::int64_t>> counts_; ///< by day and event
    std::unique_ptr<HttpServer> server_; ///< last: it ends before what it answers from
};

} // namespace brinmoor::testing
