#pragma once

#include <QByteArray>
#include <QList>
#include <QRgb>
#include <QSize>

#include <functional>

namespace ovrano::hostile {

/// A chunk of a PNG file with its checksum.
QByteArray pngChunk(const QByteArray& name, const QByteArray& content);

/// A PNG file by its parts.
struct PngMaker {
    enum Kind { Grey = 0, Colours = 2, Indexed = 3, GreyAlpha = 4, ColoursAlpha = 6 };

    QSize size;
    int bits = 8; // a channel
    Kind kind = Colours;
    bool interlaced = false;
    int filter = 0;        // of all rows, 0 to 4
    QByteArray before;     // chunks between the header and the pixels
    QByteArray after;      // behind the pixels
    int chunkBytes = 4096; // of a chunk of pixels
    bool ended = true;

    /// The file whose pixels have these channels, each of `bits` bits.
    using Channels = std::function<QList<unsigned>(int x, int y)>;
    QByteArray bytes(const Channels& channels) const;

    /// The header alone, and a file of given packed rows.
    QByteArray header() const;
    QByteArray bytesOfPacked(const QByteArray& packed) const;
    /// The rows as they are before they are packed.
    QByteArray rows(const Channels& channels) const;
    static QByteArray packed(const QByteArray& rows);

private:
    QByteArray rowsOf(int left, int top, int stepX, int stepY, const Channels& channels) const;
    QByteArray filtered(const QByteArray& row, const QByteArray& above) const;
    qsizetype bytesBack() const; // to the same channel of the pixel before, at least 1
};

} // namespace ovrano::hostile
