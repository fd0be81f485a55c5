#include "bridge/frames/Envelope.h"

#include <gtest/gtest.h>

namespace brinmoor::bridge {
namespace {

TEST(Envelope, keepsTheRestByteForByteUnderAnotherNumber) {
    const std::string body = R"({"id":42,"protocol":1,"request":"tab","tab":7})";
    const auto opened = openedEnvelope(body);
    ASSERT_TRUE(opened);
    EXPECT_EQ(opened->id, 42U);
    EXPECT_EQ(closedEnvelope(9007199254740991, opened->rest),
              R"({"id":9007199254740991,"protocol":1,"request":"tab","tab":7})");
    EXPECT_EQ(closedEnvelope(42, opened->rest), body);
}

class BadEnvelope : public ::testing::TestWithParam<const char*> {};

TEST_P(BadEnvelope, isRefused) {
    EXPECT_FALSE(openedEnvelope(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Cases, BadEnvelope,
                         ::testing::Values("", "{}", R"({"id":1})", R"({"id":1,"a":2)",
                                           R"({ "id":1,"a":2})", R"({"id": 1,"a":2})",
                                           R"({"id":-1,"a":2})", R"({"id":01,"a":2})",
                                           R"({"id":1.5,"a":2})", R"({"id":"1","a":2})",
                                           R"({"a":2,"id":1})", R"([{"id":1,"a":2}])",
                                           R"({"id":9007199254740992,"a":2})",
                                           R"({"id":99999999999999999999999,"a":2})"));

} // namespace
} // namespace brinmoor::bridge
