#pragma once

#include "screens/LibraryScreen.h"

#include <QObject>
#include <QQmlEngine>
#include <QString>

namespace brinmoor {

class AccountScreen;
class AddForm;
class AppModel;
class CleanupReviewList;
class DetailForm;
class EmailShareForm;
class OnboardingScreen;
class SettingsScreen;
class TagsScreen;

/// Whether a text for the user is about a missing permission to use a browser, in the words of
/// this platform or as it was first written.
[[nodiscard]] bool namesAutomation(const std::string& message);

/// What the library window shows: which section, the screen of each, and the sheets above them.
class AppRoot final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the library window")
    /// "library", "tags", "account" or "settings".
    Q_PROPERTY(QString section READ section NOTIFY sectionChanged FINAL)
    /// What the application could not do; empty when there is nothing to tell.
    Q_PROPERTY(QString error READ error NOTIFY errorChanged FINAL)
    /// Whether the page about the connections to browsers can mend it.
    Q_PROPERTY(bool errorLeadsToSettings READ errorLeadsToSettings NOTIFY errorChanged FINAL)
    Q_PROPERTY(brinmoor::LibraryScreen* library READ library CONSTANT FINAL)
    Q_PROPERTY(brinmoor::TagsScreen* tags MEMBER tags_ CONSTANT FINAL)
    Q_PROPERTY(brinmoor::AddForm* add MEMBER add_ CONSTANT FINAL)
    Q_PROPERTY(brinmoor::DetailForm* detail MEMBER detail_ CONSTANT FINAL)
    Q_PROPERTY(brinmoor::EmailShareForm* emailShare MEMBER emailShare_ CONSTANT FINAL)
    Q_PROPERTY(brinmoor::CleanupReviewList* cleanupReview MEMBER cleanupReview_ CONSTANT FINAL)
    Q_PROPERTY(brinmoor::SettingsScreen* settings READ settings CONSTANT FINAL)
    Q_PROPERTY(brinmoor::AccountScreen* account READ account CONSTANT FINAL)
    Q_PROPERTY(brinmoor::OnboardingScreen* onboarding READ onboarding CONSTANT FINAL)
    Q_MOC_INCLUDE("screens/AccountScreen.h")
    Q_MOC_INCLUDE("screens/AddForm.h")
    Q_MOC_INCLUDE("screens/CleanupReviewList.h")
    Q_MOC_INCLUDE("screens/DetailForm.h")
    Q_MOC_INCLUDE("screens/EmailShareForm.h")
    Q_MOC_INCLUDE("screens/OnboardingScreen.h")
    Q_MOC_INCLUDE("screens/SettingsScreen.h")
    Q_MOC_INCLUDE("screens/TagsScreen.h")

public:
    /// The model outlives it.
    explicit AppRoot(AppModel& model, QObject* parent = nullptr);

    [[nodiscard]] QString section() const;
    Q_INVOKABLE void showLibrary();
    Q_INVOKABLE void showTags();
    Q_INVOKABLE void showAccount();
    Q_INVOKABLE void showSettings();
    /// How each browser is connected, and how to connect it.
    Q_INVOKABLE void showBrowserAccess();
    Q_INVOKABLE void searchTabs();
    Q_INVOKABLE void addLink();

    [[nodiscard]] QString error() const;
    [[nodiscard]] bool errorLeadsToSettings() const;
    Q_INVOKABLE void dismissError();

    [[nodiscard]] LibraryScreen* library() noexcept { return &library_; }
    [[nodiscard]] SettingsScreen* settings() const noexcept { return settings_; }
    [[nodiscard]] AccountScreen* account() const noexcept { return account_; }
    [[nodiscard]] OnboardingScreen* onboarding() const noexcept { return onboarding_; }

Q_SIGNALS:
    void sectionChanged();
    void errorChanged();

private:
    AppModel& model_;
    LibraryScreen library_;
    TagsScreen* tags_;
    AddForm* add_;
    DetailForm* detail_;
    EmailShareForm* emailShare_;
    CleanupReviewList* cleanupReview_;
    SettingsScreen* settings_;
    AccountScreen* account_;
    OnboardingScreen* onboarding_;
};

} // namespace brinmoor
