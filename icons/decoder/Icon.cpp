#include "icons/decoder/Icon.h"

#include <QBuffer>
#include <QColorSpace>
#include <QImage>
#include <QImageReader>
#include <QSemaphore>
#include <QThreadPool>

#include <cstring>

namespace brinmoor::decoder {
namespace {

constexpr int longestPictureSide = 8192;
constexpr int mostMegabytes = 128; ///< of one picture's pixels

/// Drawn pictures have no size of their own: they are drawn as large as is wanted.
bool isDrawn(const QImageReader& reader) {
    return reader.format().startsWith("svg");
}

QSize fitted(const QSize& size, int longestSide) {
    return size.scaled(longestSide, longestSide, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
}

bool isTooLong(const QSize& size, int longestSide) {
    return size.width() > longestSide || size.height() > longestSide;
}

QImage read(QImageReader& reader, int longestSide) {
    const QSize size = reader.size();
    if (isDrawn(reader))
        reader.setScaledSize(fitted(size.isEmpty() ? QSize(1, 1) : size, longestSide));
    else if (isTooLong(size, longestPictureSide))
        return {};
    return reader.read();
}

/// The pixels alone: what pictures say about themselves, in texts of any length, is not kept.
QImage bare(const QImage& image) {
    const QImage pixels = image.convertToFormat(QImage::Format_ARGB32);
    QImage result(pixels.size(), QImage::Format_ARGB32);
    for (int line = 0; line < pixels.height(); ++line)
        std::memcpy(result.scanLine(line), pixels.constScanLine(line),
                    static_cast<std::size_t>(pixels.width()) * sizeof(QRgb));
    return result;
}

void loadReaders() {
    for (const QByteArray& format : QImageReader::supportedImageFormats()) {
        QBuffer nothing;
        nothing.open(QIODevice::ReadOnly);
        (void)QImageReader(&nothing, format).canRead();
    }
}

/// Large pictures are scaled by a worker, which opens files when it starts. One for each processor,
/// each with room for a stack, would not fit into the memory allowed.
void startWorker() {
    QThreadPool& workers = *QThreadPool::globalInstance();
    workers.setMaxThreadCount(1);
    workers.setExpiryTimeout(-1);
    QSemaphore started;
    workers.start([&started] { started.release(); });
    started.acquire();
}

} // namespace

void prepare() {
    loadReaders();
    startWorker();
}

std::optional<QByteArray> iconOf(QByteArray picture, int longestSide) {
    QImageReader::setAllocationLimit(mostMegabytes);
    QBuffer source(&picture);
    source.open(QIODevice::ReadOnly);
    QImageReader reader(&source);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    QImage image = read(reader, longestSide);
    if (image.isNull())
        return std::nullopt;
    if (image.colorSpace().isValid())
        image.convertToColorSpace(QColorSpace::SRgb);
    if (isTooLong(image.size(), longestSide))
        image = image.convertToFormat(QImage::Format_ARGB32_Premultiplied)
                    .scaled(fitted(image.size(), longestSide), Qt::IgnoreAspectRatio,
                            Qt::SmoothTransformation);
    QByteArray png;
    QBuffer target(&png);
    target.open(QIODevice::WriteOnly);
    return bare(image).save(&target, "PNG") ? std::optional(png) : std::nullopt;
}

} // namespace brinmoor::decoder
