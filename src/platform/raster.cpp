#include "platform/raster.h"

#include "platform/runtimeerror.h"

#include <algorithm>
#include <cstring>

namespace ovrano {

namespace {

QImage newImage(QSize size) {
    QImage image(size, QImage::Format_RGB32);
    if (image.isNull())
        throw RuntimeError(error::OutOfMemory);
    return image;
}

/// As Tile::filled(), and for the same reason not by QImage::fill().
void fillAll(QImage& image, QRgb pixel) {
    auto* first = reinterpret_cast<QRgb*>(image.bits());
    std::fill_n(first, image.sizeInBytes() / qsizetype{sizeof(QRgb)}, pixel); // rows have no padding
}

void fillRows(Tile& tile, const QRect& part, QRgb pixel) {
    QRgb* pixels = tile.pixels();
    for (int y = part.top(); y <= part.bottom(); ++y)
        std::fill_n(pixels + y * tile.pixelsPerRow() + part.left(), part.width(), pixel);
}

const QRgb* rowOf(const QImage& tile, int y) {
    return reinterpret_cast<const QRgb*>(tile.constScanLine(y));
}

} // namespace

Raster::Raster(QSize size, Colour fill)
    : m_size(size.expandedTo(QSize(0, 0))) {
    if (m_size.width() > MaxSide || m_size.height() > MaxSide)
        throw RuntimeError(error::OutOfMemory);
    if (m_size.isEmpty())
        return;
    const int tileCount = columns() * rows();
    m_tiles.reserve(tileCount);
    // Tiles of one size are one tile: at most the inner ones, the right edge, the bottom edge, the corner.
    QList<Tile> kinds;
    for (int i = 0; i < tileCount; ++i) {
        const QSize wanted = tileRect(i % columns(), i / columns()).size();
        const auto same = [wanted](const Tile& tile) { return tile.size() == wanted; };
        auto kind = std::find_if(kinds.cbegin(), kinds.cend(), same);
        if (kind == kinds.cend())
            kind = kinds.insert(kinds.cend(), Tile::filled(wanted, toPixel(fill)));
        m_tiles.append(*kind);
    }
}

Raster Raster::fromImage(const QImage& image) {
    const QImage whole =
        image.format() == QImage::Format_RGB32 ? image : image.convertToFormat(QImage::Format_RGB32);
    if (whole.isNull() != image.isNull())
        throw RuntimeError(error::OutOfMemory);
    Raster raster;
    raster.m_size = whole.size();
    for (int row = 0; row < raster.rows(); ++row)
        for (int column = 0; column < raster.columns(); ++column)
            raster.m_tiles.append(Tile::viewOf(whole, raster.tileRect(column, row)));
    return raster;
}

QRect Raster::tileRect(int column, int row) const {
    return QRect(column * TileSide, row * TileSide, TileSide, TileSide) & rect();
}

Colour Raster::pixel(int x, int y) const {
    if (!rect().contains(x, y))
        return InvalidColour;
    return fromPixel(tile(x / TileSide, y / TileSide).row(y % TileSide)[x % TileSide]);
}

void Raster::setPixel(int x, int y, Colour colour) {
    fill(QRect(x, y, 1, 1), colour);
}

void Raster::fill(const QRect& area, Colour colour) {
    const QRgb pixel = toPixel(colour);
    Tile whole; // shared by all tiles that are filled entirely
    writeTiles(area, [&](Tile& tile, const QRect& place) {
        if (place.size() != tile.size()) {
            fillRows(tile, QRect(QPoint(place.left() % TileSide, place.top() % TileSide), place.size()),
                     pixel);
            return;
        }
        if (whole.size() != tile.size())
            whole = Tile::filled(tile.size(), pixel);
        tile = whole;
    });
}

void Raster::copyFrom(const Raster& source, const QRect& from, QPoint to) {
    const QPoint shift = to - from.topLeft();
    const QRect area = ((from & source.rect()).translated(shift)) & rect();
    const Raster kept = source; // source may be *this: its tiles must not change under the reading
    writeTiles(area, [&](Tile& tile, const QRect& place) {
        const QRect wanted = place.translated(-shift);
        const bool whole = place.size() == tile.size();
        const bool inStep = shift.x() % TileSide == 0 && shift.y() % TileSide == 0;
        if (whole && inStep) {
            const Tile& other = kept.tile(wanted.left() / TileSide, wanted.top() / TileSide);
            if (other.size() == tile.size()) {
                tile = other;
                return;
            }
        }
        overwrite(tile, place, kept, shift);
    });
}

void Raster::copyPixels(const Raster& source, const QRect& area) {
    writeTiles(area & source.rect(),
               [&](Tile& tile, const QRect& place) { overwrite(tile, place, source, QPoint(0, 0)); });
}

/// Copies pixels into a place of a tile from the place of the source that lies `shift` before it.
void Raster::overwrite(Tile& tile, const QRect& place, const Raster& source, QPoint shift) {
    if (place.size() == tile.size() && tile.isShared())
        tile = Tile::unwritten(tile.size()); // rather than copying what is overwritten anyway
    QRgb* pixels = tile.pixels();
    source.readTiles(place.translated(-shift), [&](const QImage& other, const QRect& part) {
        const int x = (part.left() + shift.x()) % TileSide;
        for (int y = part.top(); y <= part.bottom(); ++y)
            std::copy_n(rowOf(other, y % TileSide) + part.left() % TileSide, part.width(),
                        pixels + (y + shift.y()) % TileSide * tile.pixelsPerRow() + x);
    });
}

void Raster::makeOwn(const QRegion& area) {
    for (const QRect& part : area)
        writeTiles(part, [](Tile& tile, const QRect&) { tile.pixels(); });
}

QRect Raster::wholeTiles(const QRect& area) {
    if (area.isEmpty())
        return QRect();
    const auto first = [](int coordinate) { return coordinate & ~(TileSide - 1); }; // also of negative ones
    return QRect(QPoint(first(area.left()), first(area.top())),
                 QPoint(first(area.right()) + TileSide - 1, first(area.bottom()) + TileSide - 1));
}

void Raster::shareEqualTiles(const Raster& other, const QRect& area) {
    writeTiles(area & other.rect(), [&](Tile& tile, const QRect& place) {
        const Tile& twin = other.tile(place.left() / TileSide, place.top() / TileSide);
        if (twin.size() == tile.size() && twin.image() == tile.image())
            tile = twin;
    });
}

Raster Raster::resized(QSize size, Colour fill) const {
    if (size == m_size)
        return *this;
    Raster other(size, fill);
    other.copyFrom(*this, rect());
    return other;
}

QImage Raster::toImage(const QRect& area) const {
    if (area.isEmpty())
        return QImage();
    QImage image = newImage(area.size());
    if (!rect().contains(area))
        fillAll(image, toPixel(Black));
    uchar* bits = image.bits();
    const qsizetype stride = image.bytesPerLine();
    readTiles(area, [&](const QImage& tile, const QRect& place) {
        const std::size_t bytes = sizeof(QRgb) * static_cast<std::size_t>(place.width());
        for (int y = place.top(); y <= place.bottom(); ++y) {
            auto* row = reinterpret_cast<QRgb*>(bits + (y - area.top()) * stride);
            std::memcpy(row + (place.left() - area.left()),
                        rowOf(tile, y % TileSide) + place.left() % TileSide, bytes);
        }
    });
    return image;
}

void Raster::readRow(int y, int x, int count, QRgb* out) const {
    readTiles(QRect(x, y, count, 1), [&](const QImage& tile, const QRect& place) {
        const QRgb* row = rowOf(tile, y % TileSide) + place.left() % TileSide;
        std::copy_n(row, place.width(), out + (place.left() - x));
    });
}

bool Raster::sharesTile(const Raster& other, int x, int y) const {
    if (!rect().contains(x, y) || !other.rect().contains(x, y))
        return false;
    return tile(x / TileSide, y / TileSide).sharesWith(other.tile(x / TileSide, y / TileSide));
}

bool operator==(const Raster& a, const Raster& b) {
    if (a.m_size != b.m_size)
        return false;
    for (qsizetype i = 0; i < a.m_tiles.size(); ++i) {
        const Tile& one = a.m_tiles.at(i);
        const Tile& other = b.m_tiles.at(i);
        if (!one.sharesWith(other) && one.image() != other.image())
            return false;
    }
    return true;
}

} // namespace ovrano
