#pragma once

#include <string>

namespace brinmoor {

/// Hands something to the program that the desktop has for it. Main thread.
class SystemOpener {
public:
    virtual ~SystemOpener() = default;

    /// Opens an address in the user's browser; false when nothing took it.
    virtual bool openAddress(const std::string& address) = 0;
    /// Shows a file in the file manager; false when nothing took it.
    virtual bool revealFile(const std::string& path) = 0;
    /// Opens a new e-mail in the mail program, with a subject on one line and a plain text; false
    /// when there is no mail program.
    virtual bool composeMail(const std::string& subject, const std::string& body) = 0;
};

} // namespace brinmoor
