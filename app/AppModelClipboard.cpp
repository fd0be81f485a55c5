// Copied links: when one is offered, and how one is saved.

#include "app/AppModel.h"

#include "app/ClipboardMonitor.h"
#include "core/capture/ClipboardLink.h"
#include "core/links/LinkTitle.h"
#include "core/text/Wording.h"
#include "platform/Clock.h"
#include "platform/Pasteboard.h"
#include "platform/Preferences.h"

namespace brinmoor {

using text::worded;

void AppModel::setClipboardEnabled(bool on) {
    clipboardEnabled_ = on;
    preferences_.set("clipboardEnabled", on);
    if (on) {
        clipboard_->start();
    } else {
        clipboard_->stop();
        if (dismissClipboardNotice)
            dismissClipboardNotice();
    }
    Q_EMIT preferencesChanged();
}

void AppModel::offerClipboard(const WebAddress& address) {
    if (!clipboardEnabled_ || isCapturing_ || draft_ || tabSelection_)
        return;
    if (storedLink(address.string()) != nullptr)
        return;
    const auto host = address.host();
    notify({.id = clock_.newUuid(),
            .title = worded("Save copied link?"),
            .message = host.empty() ? worded("Copied web link") : std::string(host),
            .clipboardURL = address.string()});
}

void AppModel::previewClipboardOffer() {
    notify({.id = clock_.newUuid(),
            .title = worded("Save copied link?"),
            .message = "example.com",
            .clipboardURL = "https://example.com/something-worth-keeping"});
}

void AppModel::saveClipboard(const std::string& url, ClipboardSave how) {
    SavedLink link(url, LinkTitle::best(url, "", {}), "Clipboard", "Inbox", clock_.newUuid(),
                   clock_.now());
    const SavedLink* stored = storedLink(url);
    if (how == ClipboardSave::withNote) {
        beginDraft(stored != nullptr ? *stored : std::move(link), CaptureAction::note,
                   std::nullopt);
        return;
    }
    const bool isNew = stored == nullptr;
    std::vector<SavedLink> batch{std::move(link)};
    if (saveCaptured(std::move(batch), Tagging::suggested) && isNew)
        count(UsageEvent::clipboardSaved);
}

void AppModel::saveCurrentClipboard() {
    const auto text = pasteboard_.text();
    const auto address = text ? ClipboardLink::parse(*text) : std::nullopt;
    if (address)
        saveClipboard(address->string(), ClipboardSave::atOnce);
    else
        say("No copied link", "Copy a complete http:// or https:// web address first.",
            Tone::failure);
}

} // namespace brinmoor
