#pragma once

#include "browser/ScriptRunner.h"

#include <QCoroTask>
#include <QObject>

#include <string>
#include <vector>

namespace brinmoor {

class BrowserSetup;
class Workspace;

/// What the user does to connect a browser, one thing after the other.
struct ConnectionStep {
    std::string text;     ///< the names of buttons stand between <b> and </b>
    std::string copyable; ///< an address or a path to be taken along; often empty

    friend bool operator==(const ConnectionStep&, const ConnectionStep&) = default;
};

/// The steps for a browser of the catalogue.
[[nodiscard]] std::vector<ConnectionStep> connectionSteps(const std::string& browserID,
                                                          const std::string& browserName,
                                                          const std::string& extensionFolder);

/// Which of this computer's browsers let the program in. Connected is a browser whose extension
/// has just answered a question, and nothing else. Main thread.
class BrowserConnections final : public QObject {
    Q_OBJECT

public:
    enum class State {
        checking,
        connected,
        notAdded,    ///< it runs, and no extension answers for it
        noAnswer,    ///< its extension is there and fails to answer
        notRunning,  ///< nobody to ask
        sandboxed,   ///< it may start no helper program
        unsupported, ///< a browser that can't be driven
    };

    struct Entry {
        std::string id;
        std::string name;
        State state = State::checking;

        friend bool operator==(const Entry&, const Entry&) = default;
    };

    /// All of it outlives the object.
    BrowserConnections(BrowserSetup& setup, const Workspace& workspace, ScriptRunner& scripts);
    ~BrowserConnections() override;

    /// Those that can be connected in the catalogue's order, then the others; empty before the
    /// first check.
    [[nodiscard]] const std::vector<Entry>& entries() const noexcept { return entries_; }
    [[nodiscard]] bool isChecking() const noexcept { return running_ > 0; }
    [[nodiscard]] std::string extensionFolder() const;

    /// Tells the browsers where the helper lies, looks which there are and asks each running one;
    /// returns at once. Does nothing while a check runs.
    void check();

Q_SIGNALS:
    void changed();

private:
    void listBrowsers();
    QCoro::Task<> ask(std::string browserID);
    void settle(const std::string& browserID, State state);

    BrowserSetup& setup_;
    const Workspace& workspace_;
    ScriptRunner& scripts_;
    std::vector<Entry> entries_;
    int running_ = 0;
};

} // namespace brinmoor
