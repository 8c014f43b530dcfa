#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QSize>

#include <array>
#include <optional>

namespace ovrano::bmp {

enum Compression : quint32 { None = 0, Rle8 = 1, Rle4 = 2, BitFields = 3, AlphaBitFields = 6 };

/// The fields of a BMP file's headers that matter, in any version. Nothing is checked yet.
struct Layout {
    quint32 infoBytes = 0; // which version it is
    qint64 pixelOffset = 0;
    qint64 width = 0;
    qint64 height = 0;
    bool fromTop = false;
    int bitsPerPixel = 0;
    quint32 compression = None;
    quint32 coloursUsed = 0;           // 0: as many as the bits of a pixel can tell apart
    std::array<quint32, 4> masks = {}; // of red, green, blue and alpha in a pixel, where the file has them

    QSize size() const; // empty for an impossible size or an unknown header version
};

/// Reads the first bytes of a file, and leaves the device where it was.
Layout layoutOf(QIODevice& device);

} // namespace ovrano::bmp
