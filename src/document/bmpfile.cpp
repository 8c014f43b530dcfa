#include "document/bmpfile.h"

#include "document/bmpheader.h"
#include "document/safefile.h"
#include "platform/runtimeerror.h"

#include <QtEndian>

#include <algorithm>
#include <cstring>
#include <limits>
#include <vector>

namespace ovrano {

namespace {

/// What is packed and written in one go. About 20 rows of a photo: larger chunks leave the processor's cache,
/// and packing the whole file first takes more than twice as long for the fresh memory alone.
constexpr qint64 ChunkBytes = 256 * 1024;

void requireFits(QSize size) {
    if (size.isEmpty())
        throw RuntimeError(error::InvalidPropertyValue,
                           QStringLiteral("L'image est vide : il n'y a rien à enregistrer"));
    if (bmp::fileBytes(size) > std::numeric_limits<quint32>::max())
        throw RuntimeError(error::InvalidPropertyValue,
                           QStringLiteral("L'image est trop grande pour le format BMP (4 Go au plus)"));
}

void putWord(uchar*& out, quint32 word) {
    const quint32 stored = qToLittleEndian(word);
    std::memcpy(out, &stored, sizeof stored);
    out += sizeof stored;
}

/// Packs pixels 0xFFRRGGBB into bytes blue, green, red. Four pixels make three words; a byte at a time would
/// take several times as long.
void packRow(const QRgb* pixels, int count, uchar* out) {
    constexpr QRgb Rgb = 0x00FFFFFF;
    const QRgb* const end = pixels + count;
    for (; end - pixels >= 4; pixels += 4) {
        putWord(out, (pixels[0] & Rgb) | pixels[1] << 24);
        putWord(out, (pixels[1] & Rgb) >> 8 | pixels[2] << 16);
        putWord(out, (pixels[2] & Rgb) >> 16 | pixels[3] << 8);
    }
    for (; pixels < end; ++pixels) {
        *out++ = static_cast<uchar>(qBlue(*pixels));
        *out++ = static_cast<uchar>(qGreen(*pixels));
        *out++ = static_cast<uchar>(qRed(*pixels));
    }
}

void writeRows(const Raster& picture, SafeFile& file) {
    const auto stride = static_cast<std::size_t>(bmp::stride(picture.width()));
    const std::size_t rowsAtOnce = std::max<std::size_t>(1, ChunkBytes / stride);
    std::vector<QRgb> row(static_cast<std::size_t>(picture.width()));
    std::vector<uchar> chunk(rowsAtOnce * stride); // the filling at the end of each row stays 0
    std::size_t rows = 0;
    for (int y = picture.height() - 1; y >= 0; --y) {
        picture.readRow(y, 0, picture.width(), row.data());
        packRow(row.data(), picture.width(), chunk.data() + rows * stride);
        if (++rows == rowsAtOnce || y == 0) {
            file.write(chunk.data(), rows * stride);
            rows = 0;
        }
    }
}

} // namespace

void SavePicture(const Raster& picture, const QString& path) {
    requireFits(picture.size());
    SafeFile file(path);
    const QByteArray header = bmp::header(picture.size());
    file.write(header.constData(), static_cast<std::size_t>(header.size()));
    writeRows(picture, file);
    file.commit();
}

} // namespace ovrano
