#include "document/bmpheader.h"

#include "platform/raster.h"

#include <QtEndian>

#include <algorithm>

namespace ovrano::bmp {

namespace {

constexpr quint16 Magic = 0x4D42; // "BM"
constexpr quint32 InfoBytes = 40;
constexpr quint16 BitsPerPixel = 24;
constexpr quint32 PixelsPerMetre = 3780; // 96 dots per inch

/// Where the fields lie in the file; all are little-endian.
enum Offset {
    AtMagic = 0,
    AtFileBytes = 2,
    AtPixelOffset = 10,
    AtInfoBytes = 14,
    AtWidth = 18,
    AtHeight = 22,
    AtPlanes = 26,
    AtBitsPerPixel = 28,
    AtCompression = 30,
    AtPixelBytes = 34,
    AtPixelsPerMetreX = 38,
    AtPixelsPerMetreY = 42,
};

template<typename Number>
void put(QByteArray& bytes, Offset at, Number value) {
    qToLittleEndian(value, bytes.data() + at);
}

template<typename Number>
Number get(const QByteArray& bytes, Offset at) {
    return qFromLittleEndian<Number>(bytes.constData() + at);
}

} // namespace

QByteArray header(QSize size) {
    QByteArray bytes(HeaderBytes, '\0');
    put(bytes, AtMagic, Magic);
    put(bytes, AtFileBytes, static_cast<quint32>(fileBytes(size)));
    put(bytes, AtPixelOffset, quint32{HeaderBytes});
    put(bytes, AtInfoBytes, InfoBytes);
    put(bytes, AtWidth, qint32{size.width()});
    put(bytes, AtHeight, qint32{size.height()});
    put(bytes, AtPlanes, quint16{1});
    put(bytes, AtBitsPerPixel, BitsPerPixel);
    put(bytes, AtPixelBytes, static_cast<quint32>(fileBytes(size) - HeaderBytes));
    put(bytes, AtPixelsPerMetreX, PixelsPerMetre);
    put(bytes, AtPixelsPerMetreY, PixelsPerMetre);
    return bytes;
}

std::optional<QSize> announcedSize(const QByteArray& header) {
    if (header.size() < HeaderBytes || get<quint16>(header, AtMagic) != Magic ||
        get<quint32>(header, AtPixelOffset) != HeaderBytes ||
        get<quint32>(header, AtInfoBytes) != InfoBytes ||
        get<quint16>(header, AtBitsPerPixel) != BitsPerPixel || get<quint32>(header, AtCompression) != 0)
        return std::nullopt;
    const QSize size(get<qint32>(header, AtWidth), get<qint32>(header, AtHeight));
    // A longer side is no picture of this program's, and the file's length could not be reckoned with it.
    if (size.isEmpty() || std::max(size.width(), size.height()) > Raster::MaxSide)
        return std::nullopt;
    return size;
}

} // namespace ovrano::bmp
