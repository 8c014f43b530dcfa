#include "document/bmplayout.h"

#include <QtEndian>

#include <algorithm>
#include <limits>

namespace ovrano::bmp {

namespace {

constexpr qsizetype HeadBytes = 70;  // up to the last mask
constexpr quint32 OldInfoBytes = 12; // the first version of the header, with 16-bit sizes
constexpr quint32 PlainInfoBytes = 40;
constexpr quint32 AlphaInfoBytes = 56; // the first version that has room for all four masks
constexpr int FileHeaderBytes = 14;

/// Fields of one width, little-endian.
template<typename Number>
Number at(const QByteArray& head, qsizetype place) {
    return qFromLittleEndian<Number>(head.constData() + place);
}

void readMasks(const QByteArray& head, Layout& layout) {
    constexpr qsizetype MasksAt = FileHeaderBytes + 40; // within newer headers, behind older ones
    if (layout.compression != BitFields && layout.compression != AlphaBitFields)
        return;
    const bool hasAlpha = layout.infoBytes >= AlphaInfoBytes || layout.compression == AlphaBitFields;
    for (std::size_t i = 0; i < (hasAlpha ? 4 : 3); ++i)
        layout.masks.at(i) = at<quint32>(head, MasksAt + static_cast<qsizetype>(4 * i));
}

/// Where the pixels begin at the earliest: behind the header, its masks and its colours. A file may say that
/// they begin before, and then they begin there.
qint64 endOfHeaders(const Layout& layout) {
    qint64 end = qint64{FileHeaderBytes} + layout.infoBytes;
    if (layout.infoBytes == PlainInfoBytes && layout.compression == BitFields)
        end += 12;
    if (layout.infoBytes == PlainInfoBytes && layout.compression == AlphaBitFields)
        end += 16;
    if (layout.bitsPerPixel > 8)
        return end;
    const qint64 colours = layout.coloursUsed > 0 ? qint64{layout.coloursUsed} : 1 << layout.bitsPerPixel;
    return end + colours * (layout.infoBytes == OldInfoBytes ? 3 : 4);
}

void readOldHeader(const QByteArray& head, Layout& layout) {
    layout.width = at<quint16>(head, 18);
    layout.height = at<quint16>(head, 20);
    layout.bitsPerPixel = at<quint16>(head, 24);
}

void readHeader(const QByteArray& head, Layout& layout) {
    layout.width = at<qint32>(head, 18);
    const qint64 height = at<qint32>(head, 22);
    layout.fromTop = height < 0;
    layout.height = qAbs(height);
    layout.bitsPerPixel = at<quint16>(head, 28);
    layout.compression = at<quint32>(head, 30);
    layout.coloursUsed = at<quint32>(head, 46);
    readMasks(head, layout);
}

bool isVersion(quint32 infoBytes) {
    constexpr std::array<quint32, 7> Versions = {OldInfoBytes, PlainInfoBytes, 52, AlphaInfoBytes, 64, 108,
                                                 124};
    return std::find(Versions.begin(), Versions.end(), infoBytes) != Versions.end();
}

} // namespace

QSize Layout::size() const {
    constexpr qint64 Longest = std::numeric_limits<int>::max();
    const bool isSize = width > 0 && width <= Longest && height > 0 && height <= Longest;
    return isSize && isVersion(infoBytes) ? QSize(static_cast<int>(width), static_cast<int>(height))
                                          : QSize();
}

Layout layoutOf(QIODevice& device) {
    QByteArray head = device.peek(HeadBytes);
    head.append(HeadBytes - head.size(), '\0');
    Layout layout;
    layout.infoBytes = at<quint32>(head, 14);
    if (layout.infoBytes == OldInfoBytes)
        readOldHeader(head, layout);
    else
        readHeader(head, layout);
    layout.pixelOffset = std::max<qint64>(at<quint32>(head, 10), endOfHeaders(layout));
    return layout;
}

} // namespace ovrano::bmp
