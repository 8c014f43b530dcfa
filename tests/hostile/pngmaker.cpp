#include "pngmaker.h"

#include "pngrepair.h"
#include "variant.h"

#include <array>
#include <cstdlib>

namespace ovrano::hostile {

namespace {

int channelsOf(PngMaker::Kind kind) {
    switch (kind) {
    case PngMaker::Colours:
        return 3;
    case PngMaker::GreyAlpha:
        return 2;
    case PngMaker::ColoursAlpha:
        return 4;
    default:
        return 1;
    }
}

/// The neighbour that is nearest to what a plane through all three would give.
int nearestNeighbour(int left, int above, int both) {
    const int plane = left + above - both;
    const std::array<int, 3> distances = {std::abs(plane - left), std::abs(plane - above),
                                          std::abs(plane - both)};
    if (distances[0] <= distances[1] && distances[0] <= distances[2])
        return left;
    return distances[1] <= distances[2] ? above : both;
}

int prediction(int filter, int left, int above, int both) {
    switch (filter) {
    case 1:
        return left;
    case 2:
        return above;
    case 3:
        return (left + above) / 2;
    case 4:
        return nearestNeighbour(left, above, both);
    default:
        return 0;
    }
}

int byteAt(const QByteArray& bytes, qsizetype at) {
    return at >= 0 && at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0;
}

} // namespace

QByteArray pngChunk(const QByteArray& name, const QByteArray& content) {
    QByteArray chunk;
    appendBig(chunk, static_cast<quint32>(content.size()));
    const QByteArray summed = name + content;
    chunk += summed;
    appendBig(chunk, fuzz::pngChecksum(reinterpret_cast<const std::uint8_t*>(summed.constData()),
                                       static_cast<std::size_t>(summed.size())));
    return chunk;
}

qsizetype PngMaker::bytesBack() const {
    return qMax(1, channelsOf(kind) * bits / 8);
}

QByteArray PngMaker::filtered(const QByteArray& row, const QByteArray& above) const {
    QByteArray out(1, static_cast<char>(filter));
    for (qsizetype i = 0; i < row.size(); ++i)
        out +=
            static_cast<char>(byteAt(row, i) - prediction(filter, byteAt(row, i - bytesBack()),
                                                          byteAt(above, i), byteAt(above, i - bytesBack())));
    return out;
}

QByteArray PngMaker::rowsOf(int left, int top, int stepX, int stepY, const Channels& channels) const {
    QByteArray rows;
    QByteArray above;
    if (left >= size.width())
        return rows;
    for (int y = top; y < size.height(); y += stepY) {
        BitPacker row;
        for (int x = left; x < size.width(); x += stepX)
            for (const unsigned channel : channels(x, y))
                row.add(channel, bits);
        row.fillByte();
        rows += filtered(row.bytes(), above);
        above = row.bytes();
    }
    return rows;
}

QByteArray PngMaker::rows(const Channels& channels) const {
    if (!interlaced)
        return rowsOf(0, 0, 1, 1, channels);
    static constexpr std::array<std::array<int, 4>, 7> Passes = {
        {{0, 0, 8, 8}, {4, 0, 8, 8}, {0, 4, 4, 8}, {2, 0, 4, 4}, {0, 2, 2, 4}, {1, 0, 2, 2}, {0, 1, 1, 2}}};
    QByteArray all;
    for (const auto& [left, top, stepX, stepY] : Passes)
        all += rowsOf(left, top, stepX, stepY, channels);
    return all;
}

QByteArray PngMaker::packed(const QByteArray& rows) {
    constexpr qsizetype LengthBytes = 4; // which the toolkit puts in front
    return qCompress(rows).mid(LengthBytes);
}

QByteArray PngMaker::header() const {
    QByteArray content;
    appendBig(content, static_cast<quint32>(size.width()));
    appendBig(content, static_cast<quint32>(size.height()));
    for (const int field : {bits, static_cast<int>(kind), 0, 0, interlaced ? 1 : 0})
        content += static_cast<char>(field);
    return "\x89PNG\r\n\x1A\n" + pngChunk("IHDR", content);
}

QByteArray PngMaker::bytesOfPacked(const QByteArray& packed) const {
    QByteArray file = header() + before;
    for (qsizetype at = 0; at < packed.size(); at += chunkBytes)
        file += pngChunk("IDAT", packed.mid(at, chunkBytes));
    file += after;
    return ended ? file + pngChunk("IEND", QByteArray()) : file;
}

QByteArray PngMaker::bytes(const Channels& channels) const {
    return bytesOfPacked(packed(rows(channels)));
}

} // namespace ovrano::hostile
