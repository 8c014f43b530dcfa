#include "document/pictureend.h"

#include "document/bmplayout.h"
#include "document/bytecursor.h"
#include "document/gifframe.h"

namespace ovrano {

namespace {

/// Follows run-length codes: count and value, or 0 and a command.
bool runsReachEnd(ByteCursor cursor, const bmp::Layout& layout) {
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
        const int literalBytes = layout.compression == bmp::Rle4 ? (value + 1) / 2 : value;
        if (value == Move)
            cursor.skip(2);
        else if (value != EndOfRow)
            cursor.skip(literalBytes + literalBytes % 2);
    }
}

bool bmpIsWhole(QIODevice& device) {
    const bmp::Layout layout = bmp::layoutOf(device);
    if (layout.compression == bmp::Rle8 || layout.compression == bmp::Rle4)
        return runsReachEnd(ByteCursor(device, layout.pixelOffset), layout);
    if (layout.width <= 0 || layout.height <= 0 || layout.bitsPerPixel <= 0)
        return false;
    const qint64 stride = (layout.width * layout.bitsPerPixel + 31) / 32 * 4;
    return (device.size() - layout.pixelOffset) / stride >= layout.height;
}

/// Behind a descriptor's last byte, which tells of a table of colours that follows: whether there is one.
bool skipGifColours(ByteCursor& cursor, int flags) {
    constexpr int HasTable = 0x80;
    if (flags == ByteCursor::End || !(flags & HasTable))
        return false;
    cursor.skip(qint64{3} * (2 << (flags & 7)));
    return true;
}

/// A number of two bytes, the lower one first.
int nextNumber(ByteCursor& cursor) {
    const int low = cursor.next();
    return low + 256 * cursor.next();
}

/// Starts behind the byte that begins a frame. Tells whether the frame's codes fill all its pixels and it has
/// a palette.
bool gifFrameIsWhole(ByteCursor& cursor, bool hasColours) {
    cursor.skip(4); // where it lies
    const qint64 width = nextNumber(cursor);
    const qint64 height = nextNumber(cursor);
    const bool hasOwnColours = skipGifColours(cursor, cursor.next());
    return (hasColours || hasOwnColours) && gifCodesAreWhole(cursor, width * height);
}

bool gifIsWhole(QIODevice& device) {
    constexpr int Extension = 0x21;
    constexpr int Frame = 0x2C;
    ByteCursor cursor(device, 10); // behind the signature and the size
    const int screenFlags = cursor.next();
    cursor.skip(2);
    const bool hasColours = skipGifColours(cursor, screenFlags);
    for (;;) {
        const int kind = cursor.next();
        if (kind == Frame)
            return gifFrameIsWhole(cursor, hasColours);
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
