#include "app/AppUpdater.h"
#include "platform/memory/MemoryUpdater.h"
#include "tests/app/Desk.h"

namespace brinmoor {
namespace {

using testing::Desk;
using testing::settle;

constexpr auto elsewhere = "Updates are available in the installed release of Brinmoor.";

AppBuild release() {
    return {
        .identifier = "app.brinmoor.mac", .updatesEnabled = true, .version = "1.0", .number = "1"};
}

TEST(AppBuild, namesItsVersionAndSaysDevelopmentForWhatIsMissing) {
    AppBuild build = release();
    EXPECT_EQ(build.versionText(), "1.0 (1)");
    build.number.reset();
    EXPECT_EQ(build.versionText(), "1.0 (development)");
    EXPECT_EQ(AppBuild().versionText(), "development (development)");
}

TEST(AppUpdater, aBuildThatIsNotTheReleaseHasNoUpdates) {
    AppBuild other = release();
    other.identifier = "app.brinmoor.mac.dev";
    AppBuild off = release();
    off.updatesEnabled = false;
    AppBuild unsaid = release();
    unsaid.updatesEnabled.reset();
    for (const AppBuild& build : {other, off, unsaid}) {
        MemoryUpdater real;
        real.set(true, true);
        AppUpdater updater(build, &real);
        updater.start();
        updater.checkForUpdates();
        EXPECT_EQ(updater.unavailableReason(), elsewhere);
        EXPECT_FALSE(updater.validateMenuItem());
        EXPECT_FALSE(updater.canCheckForUpdates());
        EXPECT_EQ(real.starts + real.checks, 0);
    }
}

TEST(AppUpdater, withoutAnUpdaterOnThisSystemThereAreNoUpdates) {
    AppUpdater updater(release(), nullptr);
    updater.start();
    updater.setAutomaticallyChecksForUpdates(true);
    EXPECT_EQ(updater.unavailableReason(), elsewhere);
    EXPECT_FALSE(updater.automaticallyChecksForUpdates());
}

TEST(AppUpdater, theReleaseMirrorsItsUpdater) {
    MemoryUpdater real;
    AppUpdater updater(release(), &real);
    EXPECT_FALSE(updater.canCheckForUpdates());
    updater.start();
    EXPECT_TRUE(updater.validateMenuItem());
    updater.setAutomaticallyChecksForUpdates(true);
    EXPECT_TRUE(real.automaticallyChecksForUpdates());
    EXPECT_TRUE(updater.automaticallyChecksForUpdates());
    EXPECT_EQ(updater.unavailableReason(), std::nullopt);
}

TEST(AppUpdater, aCheckInProgressDisablesTheNextOne) {
    MemoryUpdater real;
    AppUpdater updater(release(), &real);
    updater.start();
    real.set(false, false);
    EXPECT_FALSE(updater.validateMenuItem());
    updater.checkForUpdates();
    EXPECT_EQ(real.checks, 0);
}

TEST(AppUpdater, theUsersCheckComesToTheFront) {
    MemoryUpdater real;
    AppUpdater updater(release(), &real);
    int activations = 0;
    updater.activateApplication = [&] { ++activations; };
    updater.start();
    updater.checkForUpdates();
    EXPECT_EQ(activations, 1);
    EXPECT_EQ(real.checks, 1);
}

TEST(AppUpdater, aFailedStartIsSaidAndForgottenByTheNextLaunch) {
    MemoryUpdater real;
    real.startFailure = "no key";
    AppUpdater first(release(), &real);
    first.start();
    EXPECT_EQ(first.unavailableReason(), "Updates couldn’t start. Reopen Brinmoor to try again.");
    EXPECT_FALSE(first.validateMenuItem());
    real.startFailure.reset();
    AppUpdater second(release(), &real);
    second.start();
    EXPECT_EQ(second.unavailableReason(), std::nullopt);
}

class TourTest : public Desk {};

TEST_F(TourTest, leavingTheTourDoesntFinishIt) {
    EXPECT_TRUE(model().isShowingOnboarding());
    model().setShowingOnboarding(false);
    EXPECT_FALSE(model().isShowingOnboarding());
    EXPECT_FALSE(preferences.boolean("hasCompletedOnboarding"));
    endModel();
    EXPECT_TRUE(model().isShowingOnboarding());
}

TEST_F(TourTest, aFinishedTourStaysAwayAtTheNextLaunch) {
    model().completeOnboarding();
    endModel();
    EXPECT_FALSE(model().isShowingOnboarding());
    model().setShowingOnboarding(true);
    EXPECT_TRUE(model().isShowingOnboarding());
}

TEST_F(TourTest, aTourFinishedWhileSignedInStaysAwayAtTheNextLaunch) {
    secrets
        .items[{std::string(AccountKeychain::service), std::string(AccountKeychain::tokenItem)}] =
        std::string(43, 't');
    model().account().refresh(AccountController::Force::no);
    http.calls.back()->answer(
        200, R"({"account":{"user":{"id":"u1","name":"Ada","email":"ada@example.org"}}})");
    settle();
    ASSERT_TRUE(model().account().account());
    model().completeOnboarding();
    EXPECT_TRUE(preferences.boolean("hasCompletedOnboarding.u1"));
    endModel();
    EXPECT_FALSE(model().isShowingOnboarding());
    EXPECT_EQ(model().account().account(), std::nullopt);
}

TEST_F(TourTest, thePreviewOfTheClipboardOfferIsAnOffer) {
    model().previewClipboardOffer();
    ASSERT_EQ(notices.size(), 1U);
    EXPECT_EQ(notices[0].title, "Save copied link?");
    EXPECT_EQ(notices[0].message, "example.com");
    EXPECT_TRUE(notices[0].clipboardURL);
}

} // namespace
} // namespace brinmoor
