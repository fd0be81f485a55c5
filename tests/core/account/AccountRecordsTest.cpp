#include "core/account/AccountRecords.h"

#include <gmock/gmock.h>

using namespace brinmoor;
using Cause = AccountFailure::Cause;

namespace {

constexpr auto unavailable = "Brinmoor is temporarily unavailable. Try again shortly.";

std::string wordsOf(int status, const std::string& body) {
    const auto failed = failureOfStatus(status, body);
    EXPECT_TRUE(failed);
    return failed ? failed->errorDescription() : std::string();
}

std::string errorBody(const std::string& words) {
    return R"({"error":")" + words + "\"}";
}

} // namespace

TEST(ServiceStatus, from200To299IsNoFailure) {
    for (const int status : {200, 201, 204, 299})
        EXPECT_EQ(failureOfStatus(status, errorBody("x")), std::nullopt) << status;
    for (const int status : {0, 100, 199, 300, 302, 400, 401, 500, 999})
        EXPECT_TRUE(failureOfStatus(status, "")) << status;
}

TEST(ServiceStatus, of401MeansToSignInAgain) {
    EXPECT_EQ(failureOfStatus(401, errorBody("x"))->cause, Cause::signIn);
    EXPECT_THAT(wordsOf(401, ""), ::testing::HasSubstr("sign in"));
    EXPECT_THAT(wordsOf(401, ""), ::testing::HasSubstr("library is still available"));
}

TEST(ServiceStatus, theServicesWordsAreShownUpTo400Characters) {
    EXPECT_EQ(wordsOf(422, errorBody("Too many mails.")), "Too many mails.");
    EXPECT_EQ(wordsOf(500, errorBody(std::string(400, 'x'))), std::string(400, 'x'));
    EXPECT_EQ(wordsOf(500, errorBody(std::string(401, 'x'))), unavailable);
    std::string accents;
    for (int i = 0; i < 400; ++i)
        accents += "e\u0301";
    EXPECT_EQ(wordsOf(500, errorBody(accents)), accents);
    EXPECT_EQ(wordsOf(500, errorBody(accents + "x")), unavailable);
}

TEST(ServiceStatus, withoutWordsOfTheServiceTheFixedOnesAreShown) {
    for (const char* body : {"", "{}", "<html>", R"({"error":1})", R"({"error":null})", "[]",
                             R"({"error":"x)", "\xFF"})
        EXPECT_EQ(wordsOf(503, body), unavailable) << body;
}

TEST(ServiceAnswers, aMailIsOnItsWayOnlyIfTheServiceSaysSo) {
    EXPECT_TRUE(decodeMailAnswer(R"({"ok":true,"more":1})").ok());
    for (const char* body :
         {R"({"ok":false})", R"({"ok":1})", R"({"ok":null})", "{}", "", "true"}) {
        const auto read = decodeMailAnswer(body);
        ASSERT_FALSE(read.ok()) << body;
        EXPECT_EQ(read.error().cause, Cause::invalidResponse);
    }
}

TEST(ServiceAnswers, anAccountNeedsItsThreeTexts) {
    const auto read =
        decodeAccount(R"({"account":{"user":{"id":"u1","name":"Ada","email":"A@b.c"}}})");
    ASSERT_TRUE(read.ok());
    EXPECT_EQ(*read, (BrinmoorAccount{{"u1", "Ada", "A@b.c"}}));
    for (const char* body :
         {"", "{}", R"({"account":null})", R"({"account":{}})", R"({"account":{"user":{}}})",
          R"({"account":{"user":{"id":1,"name":"","email":""}}})",
          R"({"account":{"user":{"id":"","name":null,"email":""}}})",
          R"({"account":{"user":{"id":"","email":""}}})",
          R"({"user":{"id":"","name":"","email":""}})"})
        EXPECT_FALSE(decodeAccount(body).ok()) << body;
}

TEST(ServiceAnswers, anExchangeNeedsItsTokenAndItsAccount) {
    const std::string account = R"("account":{"user":{"id":"u","name":"n","email":"e"}})";
    const auto read = decodeExchange(R"({"accessToken":"t",)" + account + "}");
    ASSERT_TRUE(read.ok());
    EXPECT_EQ(read->accessToken, "t");
    EXPECT_EQ(read->account.user.id, "u");
    EXPECT_FALSE(decodeExchange("{" + account + "}").ok());
    EXPECT_FALSE(decodeExchange(R"({"accessToken":null,)" + account + "}").ok());
    EXPECT_FALSE(decodeExchange(R"({"accessToken":"t"})").ok());
    EXPECT_FALSE(decodeExchange("").ok());
}

TEST(ServiceRequests, areObjectsOfTexts) {
    EXPECT_EQ(encodedTexts({{"email", "a@b.c"}, {"name", "A \"d\" \\"}}),
              R"({"email":"a@b.c","name":"A \"d\" \\"})");
    EXPECT_EQ(encodedTexts({}), "{}");
}

TEST(AccountFailureWords, areTheseSentences) {
    const auto words = [](Cause cause) {
        return AccountFailure{cause, "own words"}.errorDescription();
    };
    EXPECT_EQ(words(Cause::service), "own words");
    EXPECT_EQ(words(Cause::system), "own words");
    EXPECT_EQ(words(Cause::invalidResponse),
              "Brinmoor couldn’t verify your account. Please try again in a moment.");
    EXPECT_EQ(words(Cause::callback),
              "This sign-in link doesn’t match your request. Start sign-in again in Brinmoor.");
    EXPECT_EQ(words(Cause::keychain), "Brinmoor couldn’t access your login in macOS Keychain. "
                                      "Unlock your keychain and try again.");
    EXPECT_EQ(words(Cause::accountBusy),
              "Another copy of Brinmoor is updating your account. Please try again in a moment.");
    EXPECT_EQ(words(Cause::connection),
              "Brinmoor couldn’t connect. Check your internet connection and try again. Your saved "
              "library is still available.");
}
