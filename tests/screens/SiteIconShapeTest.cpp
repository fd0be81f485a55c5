#include "screens/SiteIcons.h"

#include "screens/QuickPanels.h"
#include "tests/icons/TestPictures.h"
#include "tests/support/Waiting.h"

#include <QCoroFuture>
#include <QPainter>
#include <QPromise>
#include <QQmlComponent>
#include <QQuickWindow>

#include <gmock/gmock.h>

#include <deque>

namespace brinmoor {
namespace {

using ::testing::ElementsAre;
using testing::pictureOf;
using testing::settle;
using testing::waitUntil;
using Icon = std::optional<QByteArray>;

/// A tile's shape in a window, and a source that answers when the test says so.
class SiteIconShapeTest : public ::testing::Test {
protected:
    SiteIconShapeTest() {
        panels.setSiteIcons([this](std::string page, std::optional<std::string>) {
            asked.push_back(std::move(page));
            answers.emplace_back().start();
            return answered(answers.back().future());
        });
        QQmlComponent component(&panels.engine());
        component.setData("import Brinmoor\nSiteIconShape { width: 20; height: 20 }", QUrl());
        shape.reset(qobject_cast<SiteIconShape*>(component.create()));
        shape->setParentItem(window.contentItem());
        window.show();
    }
    ~SiteIconShapeTest() override { settle(); }

    static QCoro::Task<Icon> answered(QFuture<Icon> answer) {
        Icon icon = co_await answer;
        co_return icon;
    }
    void show(const char* page) {
        shape->setPage(QString::fromLatin1(page));
        const std::size_t before = asked.size();
        EXPECT_TRUE(waitUntil([&] { return asked.size() > before; }));
    }
    void answer(std::size_t question, const Icon& icon) {
        answers.at(question).addResult(icon);
        answers.at(question).finish();
        settle();
    }
    QColor colour() {
        QImage image(20, 20, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        shape->paint(&painter);
        painter.end();
        return image.pixelColor(10, 10);
    }

    std::vector<std::string> asked;
    std::deque<QPromise<Icon>> answers;
    QuickPanels panels;
    QQuickWindow window;
    std::unique_ptr<SiteIconShape> shape;
    const QByteArray red = pictureOf({84, 84}, Qt::red);
    const QByteArray blue = pictureOf({84, 84}, Qt::blue);
};

TEST_F(SiteIconShapeTest, showsTheIconOfThePageThatItStandsForNow) {
    show("https://a.example/");
    show("https://b.example/");
    EXPECT_THAT(asked, ElementsAre("https://a.example/", "https://b.example/"));
    answer(1, blue);
    EXPECT_EQ(colour(), QColor(Qt::blue));
    answer(0, red);
    EXPECT_TRUE(shape->isLoaded());
    EXPECT_EQ(colour(), QColor(Qt::blue)) << "the first page's answer came last";
}

TEST_F(SiteIconShapeTest, showsNothingOfThePageThatItStoodForBefore) {
    show("https://a.example/");
    answer(0, red);
    EXPECT_TRUE(shape->isLoaded());
    show("https://b.example/");
    EXPECT_FALSE(shape->isLoaded());
    answer(1, std::nullopt);
    EXPECT_FALSE(shape->isLoaded());
}

TEST_F(SiteIconShapeTest, mayGoBeforeItsAnswer) {
    show("https://a.example/");
    shape.reset();
    answer(0, red);
}

} // namespace
} // namespace brinmoor
