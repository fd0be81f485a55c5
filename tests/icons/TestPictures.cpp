#include "tests/icons/TestPictures.h"

#include <QBuffer>
#include <QtEndian>

namespace brinmoor::testing {
namespace {

template <class Number>
void append(QByteArray& target, Number number) {
    const Number little = qToLittleEndian(number);
    target.append(reinterpret_cast<const char*>(&little), sizeof little);
}

quint32 checksum(const QByteArray& bytes) {
    quint32 sum = 0xFFFFFFFF;
    for (const char byte : bytes) {
        sum ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            sum = (sum & 1) != 0 ? sum >> 1 ^ 0xEDB88320 : sum >> 1;
    }
    return ~sum;
}

} // namespace

QByteArray pictureOf(QSize size, QColor colour, const char* format) {
    QImage image(size, QImage::Format_ARGB32);
    image.fill(colour);
    QByteArray bytes;
    QBuffer target(&bytes);
    target.open(QIODevice::WriteOnly);
    image.save(&target, format);
    return bytes;
}

QByteArray icoOf(const std::vector<QByteArray>& pngs, const std::vector<int>& sides) {
    QByteArray ico;
    append<quint16>(ico, 0);
    append<quint16>(ico, 1);
    append<quint16>(ico, static_cast<quint16>(pngs.size()));
    auto offset = static_cast<quint32>(6 + 16 * pngs.size());
    for (std::size_t at = 0; at < pngs.size(); ++at) {
        append<quint8>(ico, static_cast<quint8>(sides[at]));
        append<quint8>(ico, static_cast<quint8>(sides[at]));
        append<quint16>(ico, 0);
        append<quint16>(ico, 1);
        append<quint16>(ico, 32);
        append<quint32>(ico, static_cast<quint32>(pngs[at].size()));
        append<quint32>(ico, offset);
        offset += static_cast<quint32>(pngs[at].size());
    }
    for (const QByteArray& png : pngs)
        ico += png;
    return ico;
}

QByteArray pngThatClaims(quint32 width, quint32 height) {
    QByteArray png = pictureOf({8, 8}, Qt::red);
    qToBigEndian(width, png.data() + 16);
    qToBigEndian(height, png.data() + 20);
    qToBigEndian(checksum(png.mid(12, 17)), png.data() + 29);
    return png;
}

QImage imageOf(const QByteArray& png) {
    return QImage::fromData(png, "PNG");
}

} // namespace brinmoor::testing
