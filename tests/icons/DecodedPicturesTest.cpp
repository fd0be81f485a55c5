#include "icons/DecodedPictures.h"

#include "tests/icons/TestPictures.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Waiting.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QFile>

#include <random>

namespace brinmoor {
namespace {

using namespace testing;
using namespace std::chrono_literals;

std::optional<QByteArray> iconBy(DecodedPictures& pictures, const QByteArray& picture) {
    const auto reading = pictures.icon(picture);
    EXPECT_TRUE(waitUntil([&] { return reading.isFinished(); }, 20s));
    return reading.result();
}

std::optional<QByteArray> iconOf(const QByteArray& picture) {
    DecodedPictures pictures(QStringLiteral(BRINMOOR_ICON_DECODER));
    return iconBy(pictures, picture);
}

QSize sizeOf(const QByteArray& picture) {
    const auto icon = iconOf(picture);
    return icon ? imageOf(*icon).size() : QSize();
}

TEST(DecodedPictures, areAtMost84PixelsLongAndKeepTheirShape) {
    EXPECT_EQ(sizeOf(pictureOf({400, 100}, Qt::red)), QSize(84, 21));
    EXPECT_EQ(sizeOf(pictureOf({90, 300}, Qt::red)), QSize(25, 84));
    EXPECT_EQ(sizeOf(pictureOf({2000, 1}, Qt::red)), QSize(84, 1));
    EXPECT_EQ(sizeOf(pictureOf({84, 84}, Qt::red)), QSize(84, 84));
    EXPECT_EQ(sizeOf(pictureOf({4000, 3000}, Qt::red)), QSize(84, 63));
}

TEST(DecodedPictures, thatAreSmallStaySmall) {
    EXPECT_EQ(sizeOf(pictureOf({16, 16}, Qt::red)), QSize(16, 16));
}

TEST(DecodedPictures, areReadInEveryUsualFormat) {
    for (const char* format : {"PNG", "JPG", "BMP", "ICO", "WEBP", "PPM"}) {
        const auto icon = iconOf(pictureOf({32, 32}, Qt::blue, format));
        ASSERT_TRUE(icon.has_value()) << format;
        EXPECT_TRUE(icon->startsWith("\x89PNG"));
        EXPECT_GT(imageOf(*icon).pixelColor(16, 16).blue(), 240) << format;
    }
    EXPECT_EQ(sizeOf("<svg xmlns='http://www.w3.org/2000/svg' width='10' height='5'/>"),
              QSize(84, 42));
}

/// A photograph that says that it lies on its side: its left is to be seen at the top.
QByteArray lyingPhotograph(QSize size) {
    const QByteArray exif("\xFF\xE1\x00\x22"
                          "Exif\0\0MM\0\x2A\0\0\0\x08"
                          "\0\x01\x01\x12\0\x03\0\0\0\x01\0\x06\0\0\0\0\0\0",
                          36);
    QByteArray photograph = pictureOf(size, Qt::red, "JPG");
    return photograph.insert(2, exif);
}

TEST(DecodedPictures, areTurnedAsTheySay) {
    EXPECT_EQ(sizeOf(lyingPhotograph({40, 20})), QSize(20, 40));
    EXPECT_EQ(sizeOf(lyingPhotograph({400, 100})), QSize(21, 84));
}

TEST(DecodedPictures, ofSeveralSizesInOneFileAreTheFirst) {
    const QByteArray ico =
        icoOf({pictureOf({16, 16}, Qt::green), pictureOf({48, 48}, Qt::red)}, {16, 48});
    const auto icon = iconOf(ico);
    ASSERT_TRUE(icon.has_value());
    EXPECT_EQ(imageOf(*icon).size(), QSize(16, 16));
    EXPECT_EQ(imageOf(*icon).pixelColor(8, 8), QColor(Qt::green));
}

TEST(DecodedPictures, keepNothingOfWhatAPictureSaysAboutItself) {
    QImage image(8, 8, QImage::Format_ARGB32);
    image.fill(Qt::red);
    image.setText(QStringLiteral("Comment"), QStringLiteral("private words"));
    QByteArray png;
    QBuffer target(&png);
    target.open(QIODevice::WriteOnly);
    image.save(&target, "PNG");
    ASSERT_TRUE(png.contains("private words"));
    EXPECT_FALSE(iconOf(png)->contains("private words"));
}

TEST(DecodedPictures, thatAreNoneGiveNothing) {
    for (const QByteArray& bytes :
         {QByteArray(), QByteArray("<!DOCTYPE html><title>Not found</title>"),
          QByteArray("\x89PNG\r\n\x1a\n"), pictureOf({64, 64}, Qt::red).left(60),
          QByteArray(1 << 20, 'x'), QByteArray((1 << 20) + 1, 'x'), pngThatClaims(60'000, 60'000),
          pngThatClaims(0x7FFFFFFF, 0x7FFFFFFF), pngThatClaims(8193, 8)})
        EXPECT_FALSE(iconOf(bytes).has_value()) << bytes.left(40).toStdString();
}

TEST(DecodedPictures, cannotBeMadeToReadFilesOfThisMachine) {
    const TemporaryFolder folder;
    const std::string secret = folder.path("secret.png");
    const QByteArray png = pictureOf({40, 40}, Qt::red);
    writeBytes(secret, png.toStdString());
    const QByteArray svg = "<svg xmlns='http://www.w3.org/2000/svg' "
                           "xmlns:xlink='http://www.w3.org/1999/xlink' width='40' height='40'>"
                           "<image xlink:href='" +
                           QByteArray::fromStdString(secret) +
                           "' x='0' y='0' width='40' height='40'/></svg>";
    const auto icon = iconOf(svg);
    EXPECT_TRUE(!icon || imageOf(*icon).pixelColor(20, 20).alpha() == 0);
}

TEST(DecodedPictures, thatAreDamagedNeverHarmTheirReader) {
    constexpr std::uint32_t seed = 7;
    std::mt19937 random(seed);
    const std::vector<QByteArray> whole{
        pictureOf({40, 30}, Qt::red), pictureOf({40, 30}, Qt::red, "BMP"),
        pictureOf({40, 30}, Qt::red, "JPG"), pictureOf({32, 32}, Qt::red, "ICO"),
        pictureOf({40, 30}, Qt::red, "WEBP")};
    DecodedPictures pictures(QStringLiteral(BRINMOOR_ICON_DECODER));
    for (int round = 0; round < 60; ++round) {
        QByteArray bytes = whole[random() % whole.size()];
        for (int left = 4; left > 0; --left)
            bytes[static_cast<qsizetype>(random() % static_cast<std::size_t>(bytes.size()))] =
                static_cast<char>(random());
        const auto icon = iconBy(pictures, bytes);
        EXPECT_TRUE(!icon || !imageOf(*icon).isNull()) << "seed " << seed;
    }
}

QString program(const TemporaryFolder& folder, const std::string& script) {
    const std::string path = folder.path("decoder");
    writeBytes(path, "#!/bin/sh\n" + script);
    QFile(QString::fromStdString(path))
        .setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return QString::fromStdString(path);
}

TEST(DecodedPictures, ofADecoderThatDiesHangsOrFloodsAreNone) {
    const TemporaryFolder folder;
    for (const char* script :
         {"kill -SEGV $$\n", "exit 1\n", "echo half; exit 3\n", "cat > /dev/null; exec sleep 60\n",
          "exec sleep 60\n", "exec cat /dev/zero\n", "exit 0\n"}) {
        DecodedPictures pictures(program(folder, script), 500ms);
        EXPECT_FALSE(iconBy(pictures, QByteArray(1 << 20, 'x')).has_value()) << script;
    }
    DecodedPictures missing(QStringLiteral("/no/such/program"));
    EXPECT_FALSE(iconBy(missing, "x").has_value());
}

} // namespace
} // namespace brinmoor
