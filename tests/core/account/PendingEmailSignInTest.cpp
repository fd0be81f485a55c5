#include "core/account/PendingEmailSignIn.h"

#include "tests/core/Generated.h"

#include <gmock/gmock.h>

#include <array>
#include <cmath>

using namespace brinmoor;
using ::testing::Eq;
using ::testing::Optional;

namespace {

const std::string verifier(43, 'v');
const std::string state(43, 's');
const std::string code(43, 'c');
const std::string rightLink = "brinmoor://auth/callback?code=" + code + "&state=" + state;
constexpr Instant start{800000000.5};

PendingEmailSignIn request() {
    return {*Uuid::parse("E621E1F8-C36C-495A-93FC-0C247A3E6E5F"),
            verifier,
            state,
            "ada@example.org",
            "Ada",
            start};
}

Instant after(double seconds) {
    return {start.seconds + seconds};
}

} // namespace

TEST(PendingEmailSignIn, aNewRequestLivesForFifteenMinutesFromNow) {
    const auto made = request();
    EXPECT_EQ(made.createdAt, start);
    EXPECT_EQ(made.expiresAt, after(900));
    EXPECT_FALSE(made.consumed);
    EXPECT_TRUE(made.isValid(start));
    EXPECT_TRUE(made.isValid(after(899.9)));
    EXPECT_FALSE(made.isValid(after(900)));
    EXPECT_FALSE(made.isValid(after(-1)));
    EXPECT_FALSE(made.isValid(after(1e9)));
}

TEST(PendingEmailSignIn, aRequestWithAnotherLifetimeIsNeverValid) {
    for (const double difference : {1.0, -1.0, 0.001, 1e9, -900.0}) {
        auto odd = request();
        odd.expiresAt.seconds += difference;
        for (const double moment : {0.0, 1.0, 450.0, 899.0, 900.0, 900.5})
            EXPECT_FALSE(odd.isValid(after(moment))) << difference << " at " << moment;
    }
}

TEST(PendingEmailSignIn, aRequestMadeAtAnyMomentIsValidThenAndAfterStorage) {
    tests::forSeeds(2000, [](tests::Generated& generated) {
        const double now = std::ldexp(static_cast<double>(generated.engine()()),
                                      -static_cast<int>(30 + generated.below(34)));
        PendingEmailSignIn made({}, verifier, state, "a@b.c", "", {now});
        EXPECT_TRUE(made.isValid({now})) << now;
        EXPECT_NEAR(made.createdAt.seconds, now, 1e-6);
        EXPECT_THAT(decodePendingSignIn(encoded(made)), Optional(Eq(made)));
    });
}

TEST(PendingEmailSignIn, eachValueMustHaveItsForm) {
    const auto isValidWith = [](auto change) {
        auto changed = request();
        change(changed);
        return changed.isValid(start);
    };
    EXPECT_FALSE(isValidWith([](auto& r) { r.verifier.pop_back(); }));
    EXPECT_FALSE(isValidWith([](auto& r) { r.state += 'x'; }));
    EXPECT_FALSE(isValidWith([](auto& r) { r.state[0] = '+'; }));
    EXPECT_FALSE(isValidWith([](auto& r) { r.email = "Ada@example.org"; }));
    EXPECT_FALSE(isValidWith([](auto& r) { r.email = " ada@example.org"; }));
    EXPECT_FALSE(isValidWith([](auto& r) { r.email = "ada"; }));
    EXPECT_TRUE(isValidWith([](auto& r) { r.consumed = true; }));
    EXPECT_TRUE(isValidWith([](auto& r) { r.name.clear(); }));
}

TEST(PendingEmailSignIn, theRightLinkGivesItsCodeOnce) {
    auto waiting = request();
    EXPECT_THAT(waiting.consume(rightLink, after(10)), Optional(Eq(code)));
    EXPECT_TRUE(waiting.consumed);
    EXPECT_EQ(waiting.consume(rightLink, after(11)), std::nullopt);
    EXPECT_TRUE(waiting.isValid(after(11)));
}

TEST(PendingEmailSignIn, aWrongLinkLeavesTheRightOneGood) {
    auto waiting = request();
    const std::string wrong =
        "brinmoor://auth/callback?code=" + code + "&state=" + std::string(43, 'x');
    EXPECT_EQ(waiting.consume(wrong, start), std::nullopt);
    EXPECT_EQ(waiting.consume("nonsense", start), std::nullopt);
    EXPECT_FALSE(waiting.consumed);
    EXPECT_THAT(waiting.consume(rightLink, start), Optional(Eq(code)));
}

TEST(PendingEmailSignIn, anExpiredOrInvalidRequestTakesNoLink) {
    auto late = request();
    EXPECT_EQ(late.consume(rightLink, after(900)), std::nullopt);
    EXPECT_EQ(late.consume(rightLink, after(-0.5)), std::nullopt);
    EXPECT_FALSE(late.consumed);
    auto invalid = request();
    invalid.email = "ADA@example.org";
    EXPECT_EQ(invalid.consume(rightLink, start), std::nullopt);
}

TEST(PendingSignInRecord, hasTheFieldsNamesAsKeys) {
    auto stored = request();
    stored.name = "A \"d\"\n\xE2\x80\xA8";
    EXPECT_EQ(encoded(stored),
              R"({"id":"E621E1F8-C36C-495A-93FC-0C247A3E6E5F",)"
              R"("verifier":"vvvvvvvvvvvvvvvvvvvvvvvvvvvvvvvvvvvvvvvvvvv",)"
              R"("state":"sssssssssssssssssssssssssssssssssssssssssss",)"
              R"("email":"ada@example.org","name":"A \"d\"\u000a\u2028",)"
              R"("createdAt":800000000.5,"expiresAt":800000900.5,"consumed":false})");
    EXPECT_THAT(decodePendingSignIn(encoded(stored)), Optional(Eq(stored)));
}

TEST(PendingSignInRecord, otherSpellingsOfTheSameValuesAreRead) {
    const auto read = decodePendingSignIn(
        R"( {"consumed":true,"more":[1],"expiresAt":8.000009e8,"createdAt":800000000,"name":"",)"
        R"("email":"x","state":"","verifier":"","id":"e621e1f8-c36c-495a-93fc-0c247a3e6e5f"} )");
    ASSERT_TRUE(read);
    EXPECT_EQ(read->id.string(), "E621E1F8-C36C-495A-93FC-0C247A3E6E5F");
    EXPECT_EQ(read->expiresAt.seconds, 800000900.0);
    EXPECT_TRUE(read->consumed);
}

TEST(PendingSignInRecord, everyKeyIsNeededWithItsType) {
    const std::string whole = encoded(request());
    for (const char* key :
         {"id", "verifier", "state", "email", "name", "createdAt", "expiresAt", "consumed"}) {
        const std::string quoted = '"' + std::string(key) + '"';
        const auto at = whole.find(quoted);
        std::string missing = whole;
        missing.replace(at, quoted.size(), "\"other\"");
        EXPECT_EQ(decodePendingSignIn(missing), std::nullopt) << key;
        std::string ofNoType = whole;
        const auto value = at + quoted.size() + 1;
        ofNoType.replace(value, ofNoType.find_first_of(",}", value) - value, "null");
        EXPECT_EQ(decodePendingSignIn(ofNoType), std::nullopt) << key;
    }
    for (const char* broken : {"", "{", "[]", "null", "\"x\"", "{}", "\xFF"})
        EXPECT_EQ(decodePendingSignIn(broken), std::nullopt) << broken;
}
