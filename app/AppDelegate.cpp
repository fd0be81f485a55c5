#include "app/AppDelegate.h"

#include "app/AppUpdater.h"
#include "app/SavedSettings.h"
#include "app/TabCleanup.h"
#include "browser/TabSearchModel.h"
#include "core/text/Wording.h"
#include "platform/Clock.h"
#include "platform/Preferences.h"

#include <QMetaObject>

#include <algorithm>
#include <utility>

namespace brinmoor {
namespace {

using text::worded;

constexpr int toastMarginRight = 24;
constexpr int toastMarginTop = 20;

} // namespace

AppDelegate::AppDelegate(const AppParts& parts, Panels& panels) : parts_(parts), panels_(panels) {}

AppDelegate::~AppDelegate() {
    panels_.didBecomeActive = nullptr;
}

void AppDelegate::launch() {
    followAppearance();
    model_ = std::make_unique<AppModel>(parts_);
    installCallbacks();
    libraryWindow_ = panels_.libraryWindow(*model_);
    setupMenus();
    setupStatusItem();
    openLibrary();
    model_->updater().start();
    openURLs(std::exchange(pendingURLs_, {}));
    applicationDidBecomeActive();
    if (!model_->shortcutErrors().empty())
        openSettings();
    panels_.didBecomeActive = [this] { applicationDidBecomeActive(); };
}

void AppDelegate::followAppearance() {
    const auto apply = [this] { panels_.setAppearance(savedAppearance(parts_.preferences)); };
    apply();
    appearance_ = parts_.preferences.observe("appAppearance", apply);
}

void AppDelegate::installCallbacks() {
    model_->showTabSearch = [this] { openTabSearch(); };
    model_->tabSearch().close = [this] {
        if (tabSearchPanel_)
            tabSearchPanel_->orderOut();
    };
    model_->tabCleanup().showCleanupReview = [this](const TabCleanupDraft&) { openLibrary(); };
    model_->updater().activateApplication = [this] { openLibrary(); };
    model_->showLibrary = [this] { openLibrary(); };
    model_->showAccount = [this] { openAccount(); };
    model_->account().presentationWindow = [this] { openLibrary(); };
    model_->account().bringAccountForward = [this] { openAccount(); };
    model_->showSettings = [this] { openSettings(); };
    model_->showCaptureEditor = [this](const CaptureDraft& draft) { openCaptureEditor(draft); };
    model_->closeCaptureEditor = [this] { closeCaptureEditor(); };
    model_->showTabSelection = [this](const TabSelectionDraft& draft) { openTabSelection(draft); };
    model_->closeTabSelection = [this] { closeTabSelection(); };
    model_->dismissClipboardNotice = [this] { dismissClipboardNotice(); };
    model_->showToast = [this](const CaptureNotice& notice) { presentToast(notice); };
}

void AppDelegate::retire(std::unique_ptr<Panel>& panel) {
    if (!panel)
        return;
    panel->willClose = nullptr;
    panel->orderOut();
    retired_.push_back(std::move(panel));
    afterThis([this] { retired_.clear(); });
}

void AppDelegate::afterThis(std::function<void()> action) {
    QMetaObject::invokeMethod(&nextTurn_, std::move(action), Qt::QueuedConnection);
}

void AppDelegate::openLibrary() {
    libraryWindow_->makeKeyAndOrderFront();
}

void AppDelegate::openSettings() {
    model_->setSection(AppSection::settings);
    openLibrary();
}

void AppDelegate::openAccount() {
    model_->setSection(AppSection::account);
    openLibrary();
    applicationDidBecomeActive();
}

void AppDelegate::openURLs(const std::vector<std::string>& urls) {
    if (!model_) {
        pendingURLs_.insert(pendingURLs_.end(), urls.begin(), urls.end());
        return;
    }
    for (const std::string& url : urls)
        model_->account().handleIncomingURL(url);
}

void AppDelegate::applicationDidBecomeActive() {
    if (model_)
        model_->account().synchronizeLogin(AccountController::RefreshExisting::yes);
}

void AppDelegate::openCaptureEditor(const CaptureDraft& draft) {
    if (captureEditor_ && editorDraftID_ == draft.link.id) {
        captureEditor_->makeKeyAndOrderFront();
        return;
    }
    retire(captureEditor_);
    captureEditor_ = panels_.captureEditor(*model_, draft, worded(messageName(draft.action)));
    captureEditor_->willClose = [this] {
        model_->discardDraft();
        closeCaptureEditor();
    };
    captureEditor_->center();
    editorDraftID_ = draft.link.id;
    captureEditor_->makeKeyAndOrderFront();
}

void AppDelegate::closeCaptureEditor() {
    retire(captureEditor_);
    editorDraftID_.reset();
}

void AppDelegate::openTabSelection(const TabSelectionDraft& draft) {
    if (tabSelectionPanel_ && tabSelectionDraftID_ == draft.id) {
        tabSelectionPanel_->makeKeyAndOrderFront();
        return;
    }
    rememberFrontApplication();
    retire(tabSelectionPanel_);
    tabSelectionPanel_ = panels_.tabSelection(*model_, draft.id, worded("Save selected tabs"));
    tabSelectionPanel_->willClose = [this] {
        model_->discardTabSelection();
        closeTabSelection();
    };
    tabSelectionPanel_->center();
    tabSelectionDraftID_ = draft.id;
    tabSelectionPanel_->makeKeyAndOrderFront();
}

void AppDelegate::rememberFrontApplication() {
    auto front = parts_.workspace.frontmostApplication();
    if (front && front->bundleIdentifier == parts_.workspace.ownBundleIdentifier())
        front.reset();
    returnToApp_ = std::move(front);
}

void AppDelegate::closeTabSelection() {
    // Asked before the panel goes: with its last window hidden, an application is no longer active.
    const bool active = panels_.applicationIsActive();
    retire(tabSelectionPanel_);
    tabSelectionDraftID_.reset();
    if (const auto returnTo = std::exchange(returnToApp_, std::nullopt); returnTo && active)
        parts_.workspace.activate(*returnTo);
}

void AppDelegate::presentToast(const CaptureNotice& notice) {
    toastDismiss_.cancel();
    retire(toastPanel_);
    toastPanel_ = panels_.notice(notice, noticeActions());
    toastPanel_->willClose = [this] { toastPanel_->orderOut(); };
    if (const auto origin = toastOrigin(toastPanel_->size()))
        toastPanel_->setOrigin(*origin);
    toastPanel_->orderFrontRegardless();
    toastDismiss_ = parts_.clock.after(notice.duration(), [this] { toastPanel_->orderOut(); });
    panels_.announce(*toastPanel_, notice.title + ". " + notice.message);
}

void AppDelegate::dismissClipboardNotice() {
    if (!model_->toast() || !model_->toast()->clipboardURL)
        return;
    toastPanel_->orderOut();
    model_->dismissToast();
}

NoticeActions AppDelegate::noticeActions() {
    // A notice's buttons are gone with it, so the panel they mean is always the present one.
    NoticeActions actions;
    actions.dismiss = [this] { toastPanel_->orderOut(); };
    actions.openSettings = [this] {
        toastPanel_->orderOut();
        model_->presentBrowserAccess();
        openLibrary();
    };
    actions.saveClipboard = [this](const std::string& url, bool withNote) {
        toastPanel_->orderOut();
        // What opens next must not happen within this panel's own event.
        afterThis([this, url, withNote] {
            model_->saveClipboard(url, withNote ? ClipboardSave::withNote : ClipboardSave::atOnce);
        });
    };
    return actions;
}

std::optional<PanelPoint> AppDelegate::toastOrigin(PanelSize size) const {
    const auto screens = panels_.screens();
    if (screens.empty())
        return std::nullopt;
    const PanelPoint pointer = panels_.pointer();
    auto screen = std::ranges::find_if(
        screens, [&](const PanelScreen& each) { return each.frame.contains(pointer); });
    if (screen == screens.end())
        screen = screens.begin();
    const PanelRect& area = screen->visibleFrame;
    return PanelPoint{area.origin.x + area.size.width - size.width - toastMarginRight,
                      area.origin.y + toastMarginTop};
}

} // namespace brinmoor
