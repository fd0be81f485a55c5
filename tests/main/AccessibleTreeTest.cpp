#include "tests/main/AccessibleProgram.h"

#include <QSet>

#include <gmock/gmock.h>

namespace brinmoor::testing {
namespace {

using ::testing::IsEmpty;
using ::testing::IsSupersetOf;

class AccessibleTree : public AccessibleProgram {
protected:
    /// What can be pressed or typed into and doesn't say what it is.
    [[nodiscard]] std::vector<std::string> namelessRoles() const {
        static const QSet<QString> needNames{
            u"push button"_qs, u"toggle button"_qs, u"check box"_qs, u"radio button"_qs,
            u"menu item"_qs,   u"text"_qs,          u"entry"_qs,     u"link"_qs,
            u"combo box"_qs,   u"page tab"_qs};
        std::vector<std::string> nameless;
        for (const Control& each : controls())
            if (each.name.empty() && needNames.contains(QString::fromStdString(each.role)))
                nameless.push_back(each.within + "/" + each.role);
        return nameless;
    }
};

TEST_F(AccessibleTree, tellsTheNameOfEveryControlOfTheScreens) {
    start();
    ASSERT_TRUE(says("Close onboarding"));
    EXPECT_THAT(namelessRoles(), IsEmpty()) << "in the tour";
    keyboard.tap(XKey::escape);
    ASSERT_TRUE(says("Search open tabs"));
    EXPECT_THAT(names(), IsSupersetOf({"Add a link", "Tags", "Account", "Settings"}));
    EXPECT_THAT(namelessRoles(), IsEmpty()) << "in the library";
    keyboard.chord({XKey::controlLeft}, XKey::letterN);
    ASSERT_TRUE(says("Save link"));
    EXPECT_THAT(namelessRoles(), IsEmpty()) << "in the sheet of a new link";
    keyboard.tap(XKey::escape);
    keyboard.chord({XKey::controlLeft}, XKey::comma);
    ASSERT_TRUE(says("Share anonymous usage counts"));
    EXPECT_THAT(namelessRoles(), IsEmpty()) << "in the settings";
}

} // namespace
} // namespace brinmoor::testing
