#include "document/pictureend.h"

#include "document/bytecursor.h"

#include <QtEndian>

namespace ovrano {

namespace {

/// What matters of a BMP file's headers, of any version.
struct BmpLayout {
    qint64 pixelOffset = 0;
    qint64 width = 0;
    qint64 height = 0;
    int bitsPerPixel = 0;
    quint32 compression = 0;
};

enum BmpCompression : quint32 { Rle8 = 1, Rle4 = 2 };

BmpLayout bmpLayout(QByteArray header) {
    constexpr qsizetype Needed = 34;
    constexpr quint32 OldInfoBytes = 12; // the first version of the header, with 16-bit sizes
    if (header.size() < Needed)
        header.append(Needed - header.size(), '\0');
    const char* bytes = header.constData();
    BmpLayout layout;
    layout.pixelOffset = qFromLittleEndian<quint32>(bytes + 10);
    if (qFromLittleEndian<quint32>(bytes + 14) == OldInfoBytes) {
        layout.width = qFromLittleEndian<quint16>(bytes + 18);
        layout.height = qFromLittleEndian<quint16>(bytes + 20);
        layout.bitsPerPixel = qFromLittleEndian<quint16>(bytes + 24);
        return layout;
    }
    layout.width = qFromLittleEndian<qint32>(bytes + 18);
    layout.height = qAbs(qint64{qFromLittleEndian<qint32>(bytes + 22)}); // negative: stored from the top
    layout.bitsPerPixel = qFromLittleEndian<quint16>(bytes + 28);
    layout.compression = qFromLittleEndian<quint32>(bytes + 30);
    return layout;
}

/// Follows run-length codes: count and value, or 0 and a command.
bool runsReachEnd(ByteCursor cursor, const BmpLayout& layout) {
    enum Command { EndOfRow = 0, EndOfPicture = 1, Move = 2 };
    qint64 rows = 0;
    for (;;) {
        const int count = cursor.next();
        const int value = cursor.next();
        if (value == ByteCursor::End)
            return false;
        if (count > 0)
            continue;
        if (value == EndOfPicture || (value == EndOfRow && ++rows == layout.height))
            return true;
        const int literalBytes = layout.compression == Rle4 ? (value + 1) / 2 : value;
        if (value == Move)
            cursor.skip(2);
        else if (value != EndOfRow)
            cursor.skip(literalBytes + literalBytes % 2);
    }
}

bool bmpIsWhole(QIODevice& device) {
    const BmpLayout layout = bmpLayout(device.peek(64));
    if (layout.compression == Rle8 || layout.compression == Rle4)
        return runsReachEnd(ByteCursor(device, layout.pixelOffset), layout);
    if (layout.width <= 0 || layout.height <= 0 || layout.bitsPerPixel <= 0)
        return false;
    const qint64 stride = (layout.width * layout.bitsPerPixel + 31) / 32 * 4;
    return (device.size() - layout.pixelOffset) / stride >= layout.height;
}

/// Blocks of a length byte and so many bytes, up to an empty one.
bool skipGifBlocks(ByteCursor& cursor) {
    for (;;) {
        const int length = cursor.next();
        if (length <= 0)
            return length == 0;
        cursor.skip(length);
    }
}

/// Behind a descriptor's last byte, which tells of a table of colours that follows.
void skipGifColours(ByteCursor& cursor, int flags) {
    constexpr int HasTable = 0x80;
    if (flags != ByteCursor::End && (flags & HasTable))
        cursor.skip(qint64{3} * (2 << (flags & 7)));
}

bool gifIsWhole(QIODevice& device) {
    constexpr int Extension = 0x21;
    constexpr int Frame = 0x2C;
    ByteCursor cursor(device, 10); // behind the signature and the size
    const int screenFlags = cursor.next();
    cursor.skip(2);
    skipGifColours(cursor, screenFlags);
    for (;;) {
        const int kind = cursor.next();
        if (kind == Frame) {
            cursor.skip(8);
            skipGifColours(cursor, cursor.next());
            cursor.skip(1); // size of the codes
            return skipGifBlocks(cursor);
        }
        if (kind != Extension)
            return false;
        cursor.skip(1); // what it extends
        if (!skipGifBlocks(cursor))
            return false;
    }
}

/// Whether a JPEG marker stands alone, without a segment.
bool isLoneMarker(int marker) {
    return marker <= 0x01 || (marker >= 0xD0 && marker <= 0xD8);
}

bool jpegIsWhole(QIODevice& device) {
    constexpr int EndOfImage = 0xD9;
    ByteCursor cursor(device);
    // Coded pixels contain no 0xFF but such as are followed by 0 or by a lone marker, so they need no care.
    while (cursor.skipPast('\xFF')) {
        int marker = cursor.next();
        while (marker == 0xFF) // filling
            marker = cursor.next();
        if (marker == EndOfImage)
            return true;
        if (marker == ByteCursor::End)
            return false;
        if (isLoneMarker(marker))
            continue;
        const int high = cursor.next();
        const int length = high * 256 + cursor.next(); // its own two bytes included
        cursor.skip(qMax(0, length - 2));
    }
    return false;
}

} // namespace

bool holdsWholePicture(QIODevice& device, const QByteArray& format) {
    if (format == "bmp")
        return bmpIsWhole(device);
    if (format == "gif")
        return gifIsWhole(device);
    return format != "jpeg" || jpegIsWhole(device);
}

} // namespace ovrano
