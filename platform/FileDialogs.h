#pragma once

#include <functional>
#include <optional>
#include <string>

namespace brinmoor {

/// Asks the user for a JSON file. Main thread; each call returns at once, and `chosen` is called
/// once on the main thread, absent when the user cancelled. At most one dialog is open: a call
/// while it is brings it forward and is answered as cancelled.
class FileDialogs {
public:
    using Chosen = std::function<void(std::optional<std::string> path)>;

    virtual ~FileDialogs() = default;

    /// One existing file.
    virtual void chooseToRead(Chosen chosen) = 0;
    /// A place to write to; the dialog itself has the user confirm the replacing of a file.
    virtual void chooseToWrite(const std::string& suggestedName, Chosen chosen) = 0;
};

} // namespace brinmoor
