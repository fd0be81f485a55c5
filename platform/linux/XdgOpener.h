#pragma once

#include "platform/SystemOpener.h"

namespace brinmoor {

/// Opens by the desktop's own means: `xdg-open` for addresses, the file manager's D-Bus interface
/// for files, and the file's folder through `xdg-open` where no file manager offers that interface.
class XdgOpener final : public SystemOpener {
public:
    /// False when `xdg-open` can't be started; what it then does is not waited for.
    bool openAddress(const std::string& address) override;
    /// A file manager that turns the request down later leads to the folder being opened.
    bool revealFile(const std::string& path) override;
    /// False when no program is set for e-mail addresses or `xdg-open` can't be started.
    bool composeMail(const std::string& subject, const std::string& body) override;
};

} // namespace brinmoor
