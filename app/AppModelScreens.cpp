// What the screens are set to show, and the preferences that they switch.

#include "app/AppModel.h"

#include "app/TabCleanup.h"
#include "platform/Preferences.h"

#include <algorithm>

namespace brinmoor {

void AppModel::setSection(AppSection section) {
    if (section_ == section && !showingBrowserAccess_)
        return;
    section_ = section;
    showingBrowserAccess_ = false;
    Q_EMIT sectionChanged();
}

void AppModel::presentBrowserAccess() {
    section_ = AppSection::settings;
    showingBrowserAccess_ = true;
    Q_EMIT sectionChanged();
}

void AppModel::endBrowserAccess() {
    showingBrowserAccess_ = false;
    Q_EMIT sectionChanged();
}

void AppModel::focusSearch() {
    setSection(AppSection::library);
    Q_EMIT searchFocusWanted();
}

void AppModel::setView(LibraryFilter view) {
    if (view_ == view)
        return;
    view_ = std::move(view);
    Q_EMIT viewChanged();
}

void AppModel::clearFilters() {
    setView(LibraryFilter{
        .filter = view_.filter, .query = {}, .selectedTag = {}, .selectedDomain = {}});
}

void AppModel::selectTag(const std::string& tag) {
    setSection(AppSection::library);
    setView(LibraryFilter{.query = {},
                          .searchEverywhere = view_.searchEverywhere,
                          .selectedTag = tag,
                          .selectedDomain = {}});
}

const SavedLink* AppModel::selected() const {
    if (!selectedID_)
        return nullptr;
    const auto link = std::ranges::find(library_->links, *selectedID_, &SavedLink::id);
    return link == library_->links.end() ? nullptr : &*link;
}

void AppModel::setSelectedID(std::optional<Uuid> id) {
    if (selectedID_ == id)
        return;
    selectedID_ = id;
    Q_EMIT selectionChanged();
}

void AppModel::setSwipedLinkID(std::optional<Uuid> id) {
    if (swipedLinkID_ == id)
        return;
    swipedLinkID_ = id;
    Q_EMIT selectionChanged();
}

void AppModel::endSharing() {
    sharingLink_.reset();
    Q_EMIT sheetsChanged();
}

void AppModel::setShowingAdd(bool showing) {
    if (showingAdd_ == showing)
        return;
    showingAdd_ = showing;
    Q_EMIT sheetsChanged();
}

void AppModel::presentAdd() {
    const bool isCovered =
        selected() || sharingLink_ || tabCleanup_->cleanupReview() || showingOnboarding_;
    if (!isCovered)
        setShowingAdd(true);
}

std::string AppModel::onboardingKey() const {
    const auto& signedIn = account_->account();
    return signedIn ? "hasCompletedOnboarding." + signedIn->user.id : "hasCompletedOnboarding";
}

void AppModel::completeOnboarding() {
    preferences_.set(onboardingKey(), true);
    // At start nobody knows yet who is signed in.
    preferences_.set("hasCompletedOnboarding", true);
    onboardingCompleted_ = true;
    showingOnboarding_ = false;
    Q_EMIT sheetsChanged();
}

void AppModel::setShowingOnboarding(bool showing) {
    if (showingOnboarding_ == showing)
        return;
    showingOnboarding_ = showing;
    Q_EMIT sheetsChanged();
}

void AppModel::showOnboardingIfNeededForActiveAccount() {
    if (loadFailed_)
        return;
    onboardingCompleted_ = preferences_.boolean(onboardingKey());
    if (!onboardingCompleted_)
        showingOnboarding_ = true;
    Q_EMIT sheetsChanged();
}

void AppModel::setCloseAfterQuickSave(bool on) {
    closeAfterQuickSave_ = on;
    preferences_.set("closeAfterQuickSave", on);
    Q_EMIT preferencesChanged();
}

void AppModel::setAutoTaggingEnabled(bool on) {
    autoTaggingEnabled_ = on;
    preferences_.set("autoTaggingEnabled", on);
    Q_EMIT preferencesChanged();
}

void AppModel::setAnalyticsEnabled(bool on) {
    analyticsEnabled_ = on;
    preferences_.set("analyticsEnabled", on);
    analytics_->configure(on);
    Q_EMIT preferencesChanged();
}

void AppModel::count(UsageEvent event, std::size_t number) {
    analytics_->record(event, static_cast<std::int64_t>(number));
}

void AppModel::countSaved(const SavedLink& link, bool isNew) {
    if (isNew)
        count(UsageEvent::linksSaved);
    if (isNew && link.browser == "Clipboard")
        count(UsageEvent::clipboardSaved);
    if (!link.note.empty())
        count(UsageEvent::noteSaved);
    if (!link.tags.empty())
        count(UsageEvent::tagsSaved);
}

} // namespace brinmoor
