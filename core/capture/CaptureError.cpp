#include "core/capture/CaptureError.h"

#include "core/text/Wording.h"

namespace brinmoor {
namespace {

using text::worded;

struct NoticeWords {
    std::string title;
    std::string message;
};

NoticeWords noticeWords(const CaptureError& error) {
    switch (error.cause) {
    case CaptureError::Cause::unsupported:
        return {error.text + worded(" isn’t supported yet"),
                worded("Copy the page address and use Add link → Paste URL, or open it in Safari "
                       "or Chrome.")};
    case CaptureError::Cause::permission:
        return {worded("Browser access needed"), worded("Allow Brinmoor to read tabs from ") +
                                                     error.text +
                                                     worded(" in macOS Automation settings.")};
    case CaptureError::Cause::failed:
        // The detail is for a log or a dialog: a passing notice says what to do.
        return {worded("Couldn’t capture this tab"),
                worded("Check that your browser has a web page open, then try again.")};
    case CaptureError::Cause::noBrowser:
        return {worded("No browser found"),
                worded("Open a page in Safari or Chrome, then try your shortcut again.")};
    case CaptureError::Cause::noTabs:
        return {worded("No tabs to save"), worded("Open a web page first. Empty tabs and browser "
                                                  "settings can’t be saved.")};
    }
    return {};
}

} // namespace

CaptureNotice CaptureError::notice(Uuid id) const {
    NoticeWords words = noticeWords(*this);
    CaptureNotice notice;
    notice.id = id;
    notice.title = std::move(words.title);
    notice.message = std::move(words.message);
    notice.isError = true;
    notice.opensAutomationSettings = cause == Cause::permission;
    return notice;
}

std::string CaptureError::errorDescription() const {
    switch (cause) {
    case Cause::unsupported:
        return worded("Direct tab capture isn’t available for ") + text +
               worded(" yet. Copy the page address and use Add link → Paste URL, or open it in "
                      "Safari or Chrome.");
    case Cause::permission:
        return worded("Allow Brinmoor to read tabs from ") + text +
               worded(" in System Settings → Privacy & Security → Automation, then try again.");
    case Cause::failed:
        return worded("Couldn’t read this browser window. ") + text;
    case Cause::noBrowser:
        return worded("No browser tab found. Open a page in Safari or Chrome, then press your "
                      "shortcut again. Brinmoor will remember that browser for captures from "
                      "other apps.");
    case Cause::noTabs:
        return worded("There are no web pages to save in this window. New tabs, browser settings, "
                      "and local files are skipped.");
    }
    return {};
}

} // namespace brinmoor
