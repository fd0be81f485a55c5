#pragma once

#include "tests/support/ChildProcess.h"
#include "tests/support/ScratchFolder.h"

#include <optional>
#include <string>

namespace brinmoor::testing {

/// A D-Bus session of its own with a real, unlocked GNOME Keyring that nobody has used before.
/// Other programs join it by its environment.
class KeyringSession {
public:
    KeyringSession();

    /// What a program needs to use this session and its folders in place of the user's own.
    [[nodiscard]] const Environment& environment() const { return environment_; }
    /// Makes this process use it, from its first use of D-Bus on.
    void join() const;

    /// Locks everything that is kept, as a user does who leaves the desk.
    void lock() const;
    /// Ends the keyring and starts it anew, unlocked; what is kept stays.
    void restart();

private:
    void startBus();
    void startKeyring();
    [[nodiscard]] bool hasKeyring() const;

    ScratchFolder folder_;
    Environment environment_;
    std::optional<ChildProcess> bus_;
    std::optional<ChildProcess> keyring_;
};

} // namespace brinmoor::testing
