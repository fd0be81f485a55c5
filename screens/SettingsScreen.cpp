#include "screens/SettingsScreen.h"

#include "app/AppModel.h"
#include "app/AppUpdater.h"
#include "app/SavedSettings.h"
#include "core/search/LibraryLists.h"
#include "platform/Preferences.h"
#include "screens/BrowserAccess.h"
#include "screens/OwnerUsage.h"
#include "screens/ShortcutRecorder.h"
#include "screens/Wording.h"

#include <QPointer>

#include <utility>

namespace brinmoor {
/// Which links are to be archived, as they were when the button was pressed.
struct SettingsScreen::ArchiveQuestion {
    UuidSet links;
    explicit ArchiveQuestion(UuidSet all) : links(std::move(all)) {}
};

SettingsScreen::SettingsScreen(AppModel& model, QObject* parent)
    : QObject(parent), model_(model), browserAccess_(new BrowserAccess(model, this)),
      ownerUsage_(new OwnerUsage(model.account(), this)) {
    makeRecorders();
    follow();
    showShortcuts();
    tab_ = firstTab();
    sectionChanged();
}

SettingsScreen::~SettingsScreen() {
    // Before what the end of a recording tells.
    qDeleteAll(std::exchange(shortcuts_, {}));
}

void SettingsScreen::follow() {
    connect(&model_, &AppModel::preferencesChanged, this, &SettingsScreen::changed);
    connect(&model_, &AppModel::libraryChanged, this, &SettingsScreen::libraryChanged);
    connect(&model_, &AppModel::shortcutsChanged, this, [this] { showShortcuts(); });
    connect(&model_, &AppModel::sectionChanged, this, [this] { sectionChanged(); });
    connect(&model_.updater(), &AppUpdater::changed, this, &SettingsScreen::updatesChanged);
    appearance_ =
        model_.preferences().observe("appAppearance", [this] { Q_EMIT appearanceChanged(); });
}

void SettingsScreen::makeRecorders() {
    // A window goes after the model when the program ends, and a recording with it.
    const QPointer<AppModel> model(&model_);
    const auto configure = [model](std::optional<CaptureShortcut> shortcut, CaptureAction action) {
        if (model)
            model->configureShortcut(std::move(shortcut), action);
    };
    for (const CaptureAction action : allCaptureActions) {
        ShortcutRecorderActions actions{
            .onStart =
                [this, action] {
                    endRecordings(action);
                    model_.suspendShortcuts();
                },
            .onRecord =
                [configure, action](std::optional<CaptureShortcut> shortcut) {
                    configure(std::move(shortcut), action);
                },
            .onReset =
                [this, configure, action] {
                    endRecordings();
                    configure(defaultShortcut(action), action);
                }};
        shortcuts_.append(new ShortcutRecorder(action, std::move(actions), this));
    }
}

void SettingsScreen::endRecordings(std::optional<CaptureAction> except) {
    for (ShortcutRecorder* recorder : std::as_const(shortcuts_))
        if (recorder->captureAction() != except)
            recorder->cancel();
}

void SettingsScreen::showShortcuts() {
    const auto& errors = model_.shortcutErrors();
    for (ShortcutRecorder* recorder : std::as_const(shortcuts_)) {
        const auto shortcut = model_.shortcuts().find(recorder->captureAction());
        const auto error = errors.find(recorder->captureAction());
        recorder->show(shortcut == model_.shortcuts().end()
                           ? QString()
                           : QString::fromStdString(shortcut->second.label()),
                       error == errors.end() ? QString() : QString::fromStdString(error->second));
    }
    Q_EMIT shortcutsChanged();
}

bool SettingsScreen::hasShortcutErrors() const {
    return !model_.shortcutErrors().empty();
}

SettingsScreen::Tab SettingsScreen::firstTab() const {
    // A shortcut that failed is why the settings were opened: its words must be seen.
    return hasShortcutErrors() ? Tab::Capture : Tab::General;
}

void SettingsScreen::sectionChanged() {
    const bool showsBrowserAccess = model_.isShowingBrowserAccess();
    if (showsBrowserAccess && !showedBrowserAccess_)
        browserAccess_->check();
    const bool shown = model_.section() == AppSection::settings;
    if (shown && !shown_)
        setTab(firstTab());
    if (!shown)
        cancelArchiveAll();
    shown_ = shown;
    if (std::exchange(showedBrowserAccess_, showsBrowserAccess) != showsBrowserAccess)
        Q_EMIT pageChanged();
}

bool SettingsScreen::showsBrowserAccess() const {
    return model_.isShowingBrowserAccess();
}

void SettingsScreen::setTab(Tab tab) {
    if (tab == tab_)
        return;
    tab_ = tab;
    Q_EMIT tabChanged();
}

void SettingsScreen::showCapture() {
    model_.setSection(AppSection::settings);
    setTab(Tab::Capture);
}

void SettingsScreen::showBrowserAccess() {
    model_.presentBrowserAccess();
}

void SettingsScreen::leaveBrowserAccess() {
    model_.endBrowserAccess();
}

void SettingsScreen::goBack() {
    model_.setSection(AppSection::library);
}

bool SettingsScreen::isDark() const {
    return savedAppearance(model_.preferences()) == AppAppearance::black;
}

void SettingsScreen::chooseAppearance(bool dark) {
    model_.preferences().set("appAppearance", std::string(dark ? "black" : "cream"));
}

bool SettingsScreen::sharesUsage() const {
    return model_.analyticsEnabled();
}

void SettingsScreen::setSharesUsage(bool on) {
    model_.setAnalyticsEnabled(on);
}

bool SettingsScreen::offersCopiedLinks() const {
    return model_.clipboardEnabled();
}

void SettingsScreen::setOffersCopiedLinks(bool on) {
    model_.setClipboardEnabled(on);
}

bool SettingsScreen::suggestsTags() const {
    return model_.autoTaggingEnabled();
}

void SettingsScreen::setSuggestsTags(bool on) {
    model_.setAutoTaggingEnabled(on);
}

bool SettingsScreen::closesSourceTab() const {
    return model_.closeAfterQuickSave();
}

void SettingsScreen::setClosesSourceTab(bool on) {
    model_.setCloseAfterQuickSave(on);
}

QString SettingsScreen::version() const {
    return QStringLiteral("Brinmoor ") + QString::fromStdString(model_.build().versionText());
}

bool SettingsScreen::hasUpdates() const {
    return !model_.updater().unavailableReason();
}

QString SettingsScreen::updatesNote() const {
    const auto& reason = model_.updater().unavailableReason();
    return reason ? QString::fromStdString(*reason)
                  : words("Brinmoor checks for new versions in the background. You choose when to "
                          "download and install them.");
}

bool SettingsScreen::canCheckForUpdates() const {
    return model_.updater().validateMenuItem();
}

bool SettingsScreen::checksAutomatically() const {
    return model_.updater().automaticallyChecksForUpdates();
}

void SettingsScreen::setChecksAutomatically(bool on) {
    model_.updater().setAutomaticallyChecksForUpdates(on);
}

void SettingsScreen::checkForUpdates() {
    model_.updater().checkForUpdates();
}

void SettingsScreen::openAccount() {
    if (model_.showAccount)
        model_.showAccount();
}

void SettingsScreen::previewClipboardOffer() {
    model_.previewClipboardOffer();
}

void SettingsScreen::applyPreset() {
    endRecordings();
    model_.applyMemorableShortcuts();
}

void SettingsScreen::showTour() {
    model_.setShowingOnboarding(true);
}

bool SettingsScreen::canArchiveAll() const {
    return !LibraryLists::activeIDs(model_.library().links).empty();
}

void SettingsScreen::askToArchive(std::unique_ptr<ArchiveQuestion> question) {
    question_ = std::move(question);
    Q_EMIT archiveTitleChanged();
}

void SettingsScreen::archiveAll() {
    if (canArchiveAll())
        askToArchive(
            std::make_unique<ArchiveQuestion>(LibraryLists::activeIDs(model_.library().links)));
}

QString SettingsScreen::archiveTitle() const {
    if (!question_)
        return {};
    const auto count = question_->links.size();
    return words("Archive ") + QString::number(count) + words(count == 1 ? " link" : " links");
}

void SettingsScreen::confirmArchiveAll() {
    const auto question = std::move(question_);
    askToArchive(nullptr);
    if (question)
        model_.setArchived(true, question->links);
}

void SettingsScreen::cancelArchiveAll() {
    askToArchive(nullptr);
}

void SettingsScreen::exportBackup() {
    model_.exportLibrary();
}

void SettingsScreen::importBackup() {
    model_.importLibrary();
}

void SettingsScreen::showInFiles() {
    model_.revealLibrary();
}

} // namespace brinmoor
