// The account and the usage counts as the model drives them.

#include "tests/app/Desk.h"

#include <gmock/gmock.h>

namespace brinmoor {
namespace {

using namespace std::chrono_literals;
using testing::Desk;
using ::testing::HasSubstr;

class ServicesTest : public Desk {};

TEST_F(ServicesTest, aFreshUserIsCountedFromTheStart) {
    EXPECT_TRUE(model().analyticsEnabled());
    EXPECT_EQ(counted(UsageEvent::appOpened), 1);
    clock.advance(59s);
    EXPECT_TRUE(usageHttp.calls.empty());
    clock.advance(1s);
    ASSERT_EQ(usageHttp.calls.size(), 1);
    EXPECT_THAT(usageHttp.calls.front()->request.body, HasSubstr("\"app_opened\":1"));
    EXPECT_EQ(usageHttp.calls.front()->request.address, "https://service.example/api/usage");
}

TEST_F(ServicesTest, countsThatAreSwitchedOffAreForgottenAtOnceAndForGood) {
    model().setAnalyticsEnabled(false);
    EXPECT_FALSE(preferences.boolean("analyticsEnabled", true));
    model().copy(link("https://a.example/", "A"));
    EXPECT_EQ(counted(UsageEvent::appOpened), 0);
    EXPECT_EQ(counted(UsageEvent::linkCopied), 0);
    clock.advance(10min);
    EXPECT_TRUE(usageHttp.calls.empty());
    endModel();
    EXPECT_FALSE(model().analyticsEnabled());
    clock.advance(10min);
    EXPECT_TRUE(usageHttp.calls.empty());
}

TEST_F(ServicesTest, aUserWhoSwitchedCountsOffIsNotCountedAtTheNextStart) {
    preferences.set("analyticsEnabled", false);
    EXPECT_EQ(counted(UsageEvent::appOpened), 0);
}

TEST_F(ServicesTest, switchingOffDuringAnUploadGivesItUp) {
    model();
    clock.advance(60s);
    ASSERT_TRUE(usageHttp.calls.at(0)->isOpen());
    model().setAnalyticsEnabled(false);
    EXPECT_FALSE(usageHttp.calls.at(0)->isOpen());
}

TEST_F(ServicesTest, nothingOfALinkIsInACount) {
    model().saveClipboard("https://secret.example/path", ClipboardSave::atOnce);
    model().copy(model().library().links.front());
    clock.advance(60s);
    const std::string body = usageHttp.calls.at(0)->request.body;
    EXPECT_THAT(body, HasSubstr("\"links_saved\":1"));
    EXPECT_THAT(body, ::testing::Not(HasSubstr("secret")));
}

TEST_F(ServicesTest, noNetworkIsUsedByAModelThatNobodySignedIn) {
    model();
    testing::settle();
    EXPECT_TRUE(http.calls.empty());
}

} // namespace
} // namespace brinmoor
