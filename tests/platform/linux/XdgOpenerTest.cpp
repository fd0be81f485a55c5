#include "platform/linux/XdgOpener.h"

#include "tests/platform/linux/EventLoop.h"
#include "tests/platform/linux/FakeFileManager.h"
#include "tests/platform/linux/TestFolder.h"

#include <QByteArray>

#include <gmock/gmock.h>

#include <sys/stat.h>

using namespace brinmoor;
using namespace brinmoor::testing;

namespace {

/// A desktop's `xdg-open` that takes down what it was asked to open.
class XdgOpenerTest : public ::testing::Test {
protected:
    void SetUp() override {
        putFile(folder.path("bin/xdg-open"),
                "#!/bin/sh\nprintf '%s' \"$1\" >'" + folder.path("part") + "' && mv '" +
                    folder.path("part") + "' '" + folder.path("opened") + "'\n");
        ::chmod(folder.path("bin/xdg-open").c_str(), 0755);
        qputenv("PATH", QByteArray::fromStdString(folder.path("bin")) + ":" + path);
    }
    void TearDown() override { qputenv("PATH", path); }

    /// The desktop's answer about the program for e-mail addresses.
    void mailProgramIs(const std::string& name) {
        putFile(folder.path("bin/xdg-mime"),
                "#!/bin/sh\n[ \"$*\" = 'query default x-scheme-handler/mailto' ] && printf '" +
                    name + "\\n'\n");
        ::chmod(folder.path("bin/xdg-mime").c_str(), 0755);
    }
    [[nodiscard]] bool opens(const std::string& target) const {
        return eventually([&] { return contentsOf(folder.path("opened")) == target; });
    }

    TestFolder folder;
    QByteArray path = qgetenv("PATH");
    XdgOpener opener;
};

} // namespace

TEST_F(XdgOpenerTest, anAddressGoesToTheUsersBrowser) {
    EXPECT_TRUE(opener.openAddress("https://example.org/a?b=c&d='e'"));
    EXPECT_TRUE(opens("https://example.org/a?b=c&d='e'"));
}

TEST_F(XdgOpenerTest, whatLooksLikeAnOptionIsNotPassedOn) {
    EXPECT_FALSE(opener.openAddress("--help"));
    EXPECT_FALSE(opener.openAddress(""));
    EXPECT_FALSE(std::filesystem::exists(folder.path("opened")));
}

TEST_F(XdgOpenerTest, withoutXdgOpenNothingTakesTheAddress) {
    qputenv("PATH", QByteArray::fromStdString(folder.path("empty")));
    EXPECT_FALSE(opener.openAddress("https://example.org/"));
}

TEST_F(XdgOpenerTest, aFileIsShownByTheFileManager) {
    FakeFileManager manager;
    EXPECT_TRUE(opener.revealFile(folder.path("a b.json")));
    ASSERT_TRUE(eventually([&] { return !manager.shown.isEmpty(); }));
    EXPECT_EQ(manager.shown.front(),
              u"file://"_qs + QString::fromStdString(folder.path("a%20b.json")));
}

TEST_F(XdgOpenerTest, aFileManagerThatRefusesLeadsToTheFolder) {
    FakeFileManager manager;
    manager.refuses = true;
    EXPECT_TRUE(opener.revealFile(folder.path("file.json")));
    EXPECT_TRUE(opens(folder.path()));
}

TEST_F(XdgOpenerTest, withoutFileManagerTheFolderIsOpened) {
    EXPECT_TRUE(opener.revealFile(folder.path("file.json")));
    EXPECT_TRUE(opens(folder.path()));
}

TEST_F(XdgOpenerTest, anEMailGoesToTheMailProgramWithItsLinesAndSigns) {
    mailProgramIs("mail.desktop");
    EXPECT_TRUE(opener.composeMail("Ä & b?", "50% off\nhttps://example.org/?a=b&c=d#e\r\nend"));
    EXPECT_TRUE(opens("mailto:?subject=%C3%84%20%26%20b%3F&body=50%25%20off%0D%0Ahttps%3A%2F%2F"
                      "example.org%2F%3Fa%3Db%26c%3Dd%23e%0D%0Aend"));
}

TEST_F(XdgOpenerTest, withoutAMailProgramNothingTakesTheEMail) {
    mailProgramIs("");
    EXPECT_FALSE(opener.composeMail("Subject", "Text"));
    std::filesystem::remove(folder.path("bin/xdg-mime"));
    qputenv("PATH", QByteArray::fromStdString(folder.path("bin")));
    EXPECT_FALSE(opener.composeMail("Subject", "Text"));
    EXPECT_FALSE(std::filesystem::exists(folder.path("opened")));
}
