#include "core/text/Wording.h"

#include <gtest/gtest.h>

namespace brinmoor::text {
namespace {

std::string shouted(std::string_view source) {
    return std::string(source) + "!";
}

class Wordings : public testing::Test {
protected:
    void TearDown() override { setWording(nullptr); }
};

TEST_F(Wordings, aTextIsItsOwnWordingUnlessOneIsInstalled) {
    EXPECT_EQ(worded("Couldn’t"), "Couldn’t");
    EXPECT_EQ(worded(""), "");
}

TEST_F(Wordings, anInstalledWordingAnswersUntilItIsTakenAway) {
    setWording(shouted);
    EXPECT_EQ(worded("Saved"), "Saved!");
    setWording(nullptr);
    EXPECT_EQ(worded("Saved"), "Saved");
}

} // namespace
} // namespace brinmoor::text
