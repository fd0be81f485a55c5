#include "screens/AppRoot.h"

#include "app/AppModel.h"
#include "core/search/LinkSearch.h"
#include "core/text/Wording.h"
#include "screens/AccountScreen.h"
#include "screens/AddForm.h"
#include "screens/CleanupReviewList.h"
#include "screens/DetailForm.h"
#include "screens/EmailShareForm.h"
#include "screens/OnboardingScreen.h"
#include "screens/SettingsScreen.h"
#include "screens/TagsScreen.h"

namespace brinmoor {

bool namesAutomation(const std::string& message) {
    constexpr std::string_view automation = "Automation";
    if (message.find(automation) != std::string::npos)
        return true;
    const std::string here = text::worded(automation);
    return here != automation &&
           LinkSearch::folded(message).find(LinkSearch::folded(here)) != std::string::npos;
}

AppRoot::AppRoot(AppModel& model, QObject* parent)
    : QObject(parent), model_(model), library_(model, this), tags_(new TagsScreen(model, this)),
      add_(new AddForm(model, this)), detail_(new DetailForm(model, this)),
      emailShare_(new EmailShareForm(model, this)),
      cleanupReview_(new CleanupReviewList(model, this)),
      settings_(new SettingsScreen(model, this)), account_(new AccountScreen(model, this)),
      onboarding_(new OnboardingScreen(model, this)) {
    connect(&model, &AppModel::sectionChanged, this, &AppRoot::sectionChanged);
    connect(&model, &AppModel::errorChanged, this, &AppRoot::errorChanged);
    connect(&library_, &LibraryScreen::shortcutSettingsWanted, settings_,
            &SettingsScreen::showCapture);
}

QString AppRoot::section() const {
    switch (model_.section()) {
    case AppSection::tags:
        return QStringLiteral("tags");
    case AppSection::account:
        return QStringLiteral("account");
    case AppSection::settings:
        return QStringLiteral("settings");
    case AppSection::library:
        break;
    }
    return QStringLiteral("library");
}

void AppRoot::showLibrary() {
    model_.setSection(AppSection::library);
}

void AppRoot::showTags() {
    model_.setSection(AppSection::tags);
}

void AppRoot::showAccount() {
    if (model_.showAccount)
        model_.showAccount();
}

void AppRoot::showSettings() {
    model_.setSection(AppSection::settings);
}

void AppRoot::showBrowserAccess() {
    model_.presentBrowserAccess();
}

void AppRoot::searchTabs() {
    if (model_.showTabSearch)
        model_.showTabSearch();
}

void AppRoot::addLink() {
    model_.presentAdd();
}

QString AppRoot::error() const {
    return model_.errorText();
}

bool AppRoot::errorLeadsToSettings() const {
    return namesAutomation(model_.error().value_or(""));
}

void AppRoot::dismissError() {
    model_.dismissError();
}

} // namespace brinmoor
