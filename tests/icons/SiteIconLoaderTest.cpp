#include "icons/SiteIconLoader.h"

#include "icons/DecodedPictures.h"
#include "platform/linux/NetworkHttp.h"
#include "platform/memory/ManualClock.h"
#include "tests/icons/TestPictures.h"
#include "tests/support/HttpServer.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Waiting.h"

#include <gtest/gtest.h>

#include <QCryptographicHash>

#include <algorithm>
#include <filesystem>
#include <map>
#include <mutex>
#include <semaphore>

namespace brinmoor {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using namespace testing;
using Icon = std::optional<QByteArray>;

/// A site whose answers a test sets, and which counts what it is asked.
class Site {
public:
    void answer(const std::string& path, HttpAnswer answer) {
        const std::scoped_lock lock(guard_);
        answers_[path] = std::move(answer);
    }
    void answer(const std::string& path, const QByteArray& body) {
        answer(path, HttpAnswer{.type = "image/png", .body = body.toStdString()});
    }
    [[nodiscard]] int asked(const std::string& path) {
        const std::scoped_lock lock(guard_);
        return asked_[path];
    }
    [[nodiscard]] std::string address(const std::string& path = {}) const {
        return server_.address() + path;
    }

private:
    HttpAnswer serve(const testing::HttpRequest& request) {
        const std::scoped_lock lock(guard_);
        ++asked_[request.path];
        const auto known = answers_.find(request.path);
        return known == answers_.end() ? HttpAnswer{.status = 404, .body = "none"} : known->second;
    }

    std::mutex guard_;
    std::map<std::string, HttpAnswer> answers_;
    std::map<std::string, int> asked_;
    HttpServer server_{[this](const testing::HttpRequest& request) { return serve(request); }};
};

std::string page(const std::string& icon) {
    return "<html><link rel=icon href='" + icon + "'></html>";
}

class SiteIconLoaderTest : public ::testing::Test {
protected:
    SiteIconLoaderTest() {
        const auto since1970 = std::chrono::system_clock::now().time_since_epoch();
        clock.present = {std::chrono::duration<double>(since1970).count() -
                         unixSecondsAtInstantZero};
    }

    Icon load(const std::string& address, std::optional<std::string> hint = std::nullopt) {
        Icon icon;
        bool ended = false;
        auto ask = [&]() -> QCoro::Task<void> {
            const auto loading = loader.image(address, hint);
            icon = co_await loading;
            ended = true;
        };
        const auto asking = ask();
        EXPECT_TRUE(waitUntil([&] { return ended; }, 30s));
        return icon;
    }

    void forgetMemory() {
        std::destroy_at(&loader);
        std::construct_at(&loader, http, clock, pictures, folder);
    }

    [[nodiscard]] fs::path fileOf(const std::string& hint = {}) const {
        const QByteArray key = QByteArray::fromStdString(site.address() + "|" + hint);
        return fs::path(folder) /
               (QCryptographicHash::hash(key, QCryptographicHash::Sha256).toHex() + ".png")
                   .toStdString();
    }

    TemporaryFolder temporary;
    std::string folder = temporary.path("SiteIcons");
    Site site;
    NetworkHttp http;
    ManualClock clock;
    DecodedPictures pictures{QStringLiteral(BRINMOOR_ICON_DECODER)};
    SiteIconLoader loader{http, clock, pictures, folder};
    const QByteArray red = pictureOf({100, 100}, Qt::red);
};

TEST_F(SiteIconLoaderTest, findsTheUsualIconScalesAndKeepsIt) {
    site.answer("/favicon.ico", red);
    const Icon icon = load(site.address("some/page?with=query#part"));
    ASSERT_TRUE(icon.has_value());
    EXPECT_EQ(imageOf(*icon).size(), QSize(84, 84));
    EXPECT_EQ(bytesOf(fileOf()), icon->toStdString());
    EXPECT_EQ(site.asked("/"), 0);
}

TEST_F(SiteIconLoaderTest, takesTheHintFirst) {
    site.answer("/favicon.ico", red);
    site.answer("/hint.png", pictureOf({10, 10}, Qt::blue));
    const Icon icon = load(site.address("page"), "hint.png");
    EXPECT_EQ(imageOf(icon.value()).size(), QSize(10, 10));
    EXPECT_EQ(site.asked("/favicon.ico"), 0);
    EXPECT_TRUE(fs::exists(fileOf(site.address("hint.png"))));
}

TEST_F(SiteIconLoaderTest, fallsThroughToThePageWhereTheUsualIconIsNone) {
    site.answer("/", HttpAnswer{.body = page("/declared.png")});
    site.answer("/declared.png", red);
    site.answer("/favicon.ico", HttpAnswer{.status = 200, .body = "<html>Oops</html>"});
    EXPECT_TRUE(load(site.address()).has_value());
    site.answer("/favicon.ico", HttpAnswer{.status = 404, .body = red.toStdString()});
    EXPECT_TRUE(load(site.address(), "/missing.png").has_value());
}

TEST_F(SiteIconLoaderTest, asksForEachAddressOnceInALoad) {
    site.answer("/", HttpAnswer{.body = page("/favicon.ico") + page("hint.png") + page("x.png")});
    EXPECT_FALSE(load(site.address(), "hint.png").has_value());
    for (const char* path : {"/", "/favicon.ico", "/hint.png", "/x.png"})
        EXPECT_EQ(site.asked(path), 1) << path;
}

TEST_F(SiteIconLoaderTest, ofAPageThatIsNoAddressGivesNothingAndRemembersNothing) {
    for (const char* none : {"", "no address", "ftp://a.org/", "http://user@a.org/", "http:///"})
        EXPECT_FALSE(load(none).has_value()) << none;
    EXPECT_EQ(loader.remembered(), 0U);
    EXPECT_FALSE(fs::exists(folder));
}

TEST_F(SiteIconLoaderTest, takesARefusedHintForNone) {
    site.answer("/favicon.ico", red);
    for (const char* hint : {"javascript:alert(1)", "data:image/png,x", "http://user@a.org/"})
        EXPECT_TRUE(load(site.address("page"), hint).has_value()) << hint;
    EXPECT_TRUE(load(site.address()).has_value());
    EXPECT_EQ(site.asked("/favicon.ico"), 1);
    EXPECT_EQ(loader.remembered(), 1U);
}

TEST_F(SiteIconLoaderTest, loadsOnceForCallersOfOneIconAndThenReadsItsMemory) {
    site.answer("/favicon.ico", red);
    const auto first = loader.image(site.address("a"), std::nullopt);
    const auto second = loader.image(site.address("b"), std::nullopt);
    EXPECT_EQ(loader.activeLoads(), 1U);
    EXPECT_TRUE(waitUntil([&] { return first.isReady() && second.isReady(); }));
    fs::remove_all(folder);
    EXPECT_TRUE(load(site.address("c")).has_value());
    EXPECT_EQ(site.asked("/favicon.ico"), 1);
}

TEST_F(SiteIconLoaderTest, goesOnWithALoadThatNobodyWaitsFor) {
    site.answer("/favicon.ico", red);
    { const auto dropped = loader.image(site.address(), std::nullopt); }
    EXPECT_TRUE(waitUntil([&] { return loader.remembered() == 1; }));
    EXPECT_TRUE(load(site.address()).has_value());
    EXPECT_EQ(site.asked("/favicon.ico"), 1);
}

TEST_F(SiteIconLoaderTest, holdsSixLoadsAtOnceAndGivesTheFreeSlotToTheOldest) {
    std::counting_semaphore<32> mayAnswer(0);
    std::mutex guard;
    std::vector<std::string> order;
    HttpServer slow([&](const testing::HttpRequest& request) {
        {
            const std::scoped_lock lock(guard);
            order.push_back(request.path);
        }
        mayAnswer.acquire();
        return HttpAnswer{.type = "image/png", .body = red.toStdString()};
    });
    std::vector<QCoro::Task<Icon>> running;
    for (int number = 0; number < 9; ++number)
        running.push_back(loader.image(slow.address(), std::to_string(number) + ".png"));
    EXPECT_EQ(loader.activeLoads(), 6U);
    bool stayed = true;
    const auto ended = [&] {
        const auto count = static_cast<std::size_t>(
            std::ranges::count_if(running, [](const auto& task) { return task.isReady(); }));
        stayed = stayed && loader.activeLoads() == std::min<std::size_t>(6, 9 - count);
        return count;
    };
    const auto begun = [&] {
        const std::scoped_lock lock(guard);
        return order.size();
    };
    // One answer at a time, as two requests at once may reach the server in either order.
    for (std::size_t answered = 1; answered <= 9; ++answered) {
        mayAnswer.release();
        EXPECT_TRUE(waitUntil(
            [&] {
                return ended() == answered &&
                       begun() == std::min<std::size_t>(9, answered + IconFetches::mostPerHost);
            },
            30s));
    }
    EXPECT_TRUE(stayed);
    EXPECT_EQ(loader.activeLoads(), 0U);
    const std::vector<std::string> last(order.end() - 3, order.end());
    EXPECT_EQ(last, (std::vector<std::string>{"/6.png", "/7.png", "/8.png"}));
}

TEST_F(SiteIconLoaderTest, remembersAFailureForAnHour) {
    EXPECT_FALSE(load(site.address()).has_value());
    site.answer("/favicon.ico", red);
    clock.present.seconds += 3599;
    EXPECT_FALSE(load(site.address()).has_value());
    clock.present.seconds += 1;
    EXPECT_TRUE(load(site.address()).has_value());
    EXPECT_EQ(site.asked("/favicon.ico"), 2);
}

TEST_F(SiteIconLoaderTest, writesNoFailureToTheDisk) {
    EXPECT_FALSE(load(site.address()).has_value());
    EXPECT_FALSE(fs::exists(folder));
}

TEST_F(SiteIconLoaderTest, readsTheDiskWithoutASlotAndWithoutTheNetwork) {
    site.answer("/favicon.ico", red);
    const Icon icon = load(site.address());
    forgetMemory();
    EXPECT_EQ(load(site.address()), icon);
    EXPECT_EQ(site.asked("/favicon.ico"), 1);
}

TEST_F(SiteIconLoaderTest, readsTheDiskWhileAllSlotsAreTaken) {
    site.answer("/favicon.ico", red);
    const Icon icon = load(site.address());
    forgetMemory();
    std::counting_semaphore<32> mayAnswer(0);
    HttpServer slow([&](const testing::HttpRequest&) {
        mayAnswer.acquire();
        return HttpAnswer{.type = "image/png", .body = red.toStdString()};
    });
    std::vector<QCoro::Task<Icon>> running;
    for (int number = 0; number < 7; ++number)
        running.push_back(loader.image(slow.address(), std::to_string(number) + ".png"));
    EXPECT_EQ(load(site.address()), icon);
    EXPECT_EQ(loader.activeLoads(), 6U);
    EXPECT_TRUE(std::ranges::none_of(running, [](const auto& task) { return task.isReady(); }));
    mayAnswer.release(7);
    EXPECT_TRUE(waitUntil(
        [&] {
            return std::ranges::all_of(running, [](const auto& task) { return task.isReady(); });
        },
        30s));
}

TEST_F(SiteIconLoaderTest, replacesAnOldFileOnlyWhenItFindsAnother) {
    site.answer("/favicon.ico", red);
    const Icon icon = load(site.address());
    fs::last_write_time(fileOf(), fs::last_write_time(fileOf()) - 8 * 24h);
    const std::string old = bytesOf(fileOf());
    forgetMemory();
    site.answer("/favicon.ico", HttpAnswer{.status = 500});
    EXPECT_FALSE(load(site.address()).has_value());
    EXPECT_EQ(bytesOf(fileOf()), old);
    forgetMemory();
    site.answer("/favicon.ico", pictureOf({20, 20}, Qt::blue));
    EXPECT_TRUE(load(site.address()).has_value());
    EXPECT_NE(bytesOf(fileOf()), old);
}

TEST_F(SiteIconLoaderTest, countsAResultForSevenDays) {
    site.answer("/favicon.ico", red);
    EXPECT_TRUE(load(site.address()).has_value());
    fs::remove_all(folder);
    clock.present.seconds += 604'799;
    EXPECT_TRUE(load(site.address()).has_value());
    EXPECT_EQ(site.asked("/favicon.ico"), 1);
    clock.present.seconds += 1;
    EXPECT_TRUE(load(site.address()).has_value());
    EXPECT_EQ(site.asked("/favicon.ico"), 2);
}

TEST_F(SiteIconLoaderTest, forgetsEverythingAtTheTwoHundredAndFiftySeventh) {
    for (int number = 0; number < 256; ++number)
        (void)load(site.address(), std::to_string(number) + ".png");
    EXPECT_EQ(loader.remembered(), 256U);
    (void)load(site.address(), "one-more.png");
    EXPECT_EQ(loader.remembered(), 1U);
}

/// The picture in a file of this many bytes.
std::string filledUp(const QByteArray& picture, std::size_t size) {
    std::string bytes = picture.toStdString();
    bytes.resize(size, '.');
    return bytes;
}

TEST_F(SiteIconLoaderTest, takesPicturesOfOneMebibyteAtMost) {
    site.answer("/favicon.ico", unannounced(filledUp(red, 1'048'576)));
    EXPECT_TRUE(load(site.address()).has_value());
    site.answer("/favicon.ico", unannounced(filledUp(red, 1'048'577)));
    EXPECT_FALSE(load(site.address(), "other-key").has_value());
}

/// Takes whatever it is given for a picture.
class AnythingGoes final : public IconPictures {
public:
    QFuture<Icon> icon(QByteArray picture) override {
        sizes.push_back(picture.size());
        return QtFuture::makeReadyFuture(Icon("icon"));
    }
    std::vector<qsizetype> sizes;
};

TEST_F(SiteIconLoaderTest, handsOverNoPictureOfMoreThanOneMebibyte) {
    AnythingGoes anything;
    SiteIconLoader careless(http, clock, anything, folder);
    site.answer("/favicon.ico", unannounced(filledUp(red, 1'048'577)));
    site.answer("/", HttpAnswer{.body = page("/declared.png")});
    site.answer("/declared.png", unannounced(filledUp(red, 1'048'576)));
    const auto loading = careless.image(site.address(), std::nullopt);
    EXPECT_TRUE(waitUntil([&] { return loading.isReady(); }, 30s));
    EXPECT_EQ(anything.sizes, std::vector<qsizetype>{1'048'576});
}

TEST_F(SiteIconLoaderTest, readsTheBeginningOfALongPage) {
    site.answer("/early.png", red);
    site.answer("/late.png", red);
    const std::string filling(300'000, '.');
    site.answer("/", HttpAnswer{.body = page("/early.png") + filling});
    EXPECT_TRUE(load(site.address()).has_value());
    site.answer("/", HttpAnswer{.body = filling + page("/late.png")});
    EXPECT_FALSE(load(site.address(), "other-key").has_value());
    EXPECT_EQ(site.asked("/late.png"), 0);
}

TEST_F(SiteIconLoaderTest, readsNoPageThatIsCutInsideACharacter) {
    site.answer("/early.png", red);
    const std::string start = page("/early.png");
    const std::string filling(262'143 - start.size(), '.');
    site.answer("/", HttpAnswer{.body = start + filling + "é and more"});
    EXPECT_FALSE(load(site.address()).has_value());
    EXPECT_EQ(site.asked("/early.png"), 0);
}

TEST_F(SiteIconLoaderTest, resolvesDeclaredIconsFromWhereThePageReallyIs) {
    Site other;
    other.answer("/deep/page", HttpAnswer{.body = page("icon.png")});
    other.answer("/deep/icon.png", red);
    site.answer("/",
                HttpAnswer{.status = 302, .headers = {"Location: " + other.address("deep/page")}});
    EXPECT_TRUE(load(site.address()).has_value());
    EXPECT_EQ(other.asked("/deep/icon.png"), 1);
}

TEST_F(SiteIconLoaderTest, worksOnWhenTheDiskTakesNothing) {
    writeBytes(temporary.path("SiteIcons"), "a file where the folder should be");
    site.answer("/favicon.ico", red);
    EXPECT_TRUE(load(site.address()).has_value());
    EXPECT_TRUE(load(site.address()).has_value());
    EXPECT_EQ(site.asked("/favicon.ico"), 1);
}

} // namespace
} // namespace brinmoor
