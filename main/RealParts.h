#pragma once

#include "app/AppModel.h"
#include "browser/ScriptTool.h"
#include "main/Installation.h"
#include "platform/linux/DesktopBrowsers.h"
#include "platform/linux/DesktopPasteboard.h"
#include "platform/linux/FocusReports.h"
#include "platform/linux/JsonPreferences.h"
#include "platform/linux/LibsecretStore.h"
#include "platform/linux/NetworkHttp.h"
#include "platform/linux/Places.h"
#include "platform/linux/SystemClock.h"
#include "platform/linux/SystemRandom.h"
#include "platform/linux/XdgOpener.h"
#include "screens/QuickFileDialogs.h"
#include "screens/SiteIconSource.h"

#include <memory>

namespace brinmoor {

/// The real answers to everything that the application asks of the desktop. Outlives the shell.
class RealParts {
public:
    /// The engine, which draws the file dialogs, outlives the parts.
    RealParts(const Installation& installation, QQmlEngine& engine);
    ~RealParts();
    RealParts(const RealParts&) = delete;
    RealParts& operator=(const RealParts&) = delete;

    [[nodiscard]] AppParts parts();
    [[nodiscard]] SystemOpener& opener() noexcept { return opener_; }
    /// The icons of sites, by a network session of their own; made when it is first asked for.
    [[nodiscard]] SiteIconSource siteIcons();
    [[nodiscard]] BrowserSetup& browsers() noexcept { return browsers_; }

private:
    struct Icons;

    Places places_;
    DesktopBrowsers browsers_;
    SystemClock clock_;
    JsonPreferences preferences_;
    std::unique_ptr<HotKeys> hotKeys_;
    std::unique_ptr<FocusReports> focus_; ///< where no window system tells
    std::unique_ptr<Workspace> workspace_;
    QuickFileDialogs files_;
    XdgOpener opener_;
    DesktopPasteboard pasteboard_;
    std::string certificate_;
    NetworkHttp http_;
    SystemRandom random_;
    LibsecretStore secrets_;
    ScriptTool scripts_;
    QString iconDecoder_;
    std::unique_ptr<Icons> icons_;
};

} // namespace brinmoor
