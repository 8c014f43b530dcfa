#include "platform/raster.h"

#include "platform/runtimeerror.h"

#include <algorithm>
#include <cstring>

namespace ovrano {

namespace {

QImage newTile(QSize size) {
    QImage tile(size, QImage::Format_RGB32);
    if (tile.isNull())
        throw RuntimeError(error::OutOfMemory);
    return tile;
}

/// Fills a whole image without QImage::fill(), which on some processors leaves the vector unit in a state
/// that slows down every loop that follows (the upper halves of its registers stay in use).
void fillAll(QImage& image, QRgb pixel) {
    auto* first = reinterpret_cast<QRgb*>(image.bits());
    std::fill_n(first, image.sizeInBytes() / qsizetype{sizeof(QRgb)}, pixel); // rows have no padding
}

QImage filledTile(QSize size, QRgb pixel) {
    QImage tile = newTile(size);
    fillAll(tile, pixel);
    return tile;
}

/// A tile that reads another image's memory and keeps that image alive; writing to it copies it first.
QImage viewOf(const QImage& whole, const QRect& part) {
    const uchar* first =
        whole.constScanLine(part.top()) + sizeof(QRgb) * static_cast<std::size_t>(part.left());
    return QImage(
        first, part.width(), part.height(), whole.bytesPerLine(), QImage::Format_RGB32,
        [](void* kept) { delete static_cast<QImage*>(kept); }, new QImage(whole));
}

void fillRows(QImage& tile, const QRect& part, QRgb pixel) {
    uchar* bits = tile.bits();
    for (int y = part.top(); y <= part.bottom(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(bits + y * tile.bytesPerLine());
        std::fill_n(row + part.left(), part.width(), pixel);
    }
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
    QList<QImage> kinds;
    for (int i = 0; i < tileCount; ++i) {
        const QSize wanted = tileRect(i % columns(), i / columns()).size();
        const auto same = [wanted](const QImage& tile) { return tile.size() == wanted; };
        auto kind = std::find_if(kinds.cbegin(), kinds.cend(), same);
        if (kind == kinds.cend())
            kind = kinds.insert(kinds.cend(), filledTile(wanted, toPixel(fill)));
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
            raster.m_tiles.append(viewOf(whole, raster.tileRect(column, row)));
    return raster;
}

QRect Raster::tileRect(int column, int row) const {
    return QRect(column * TileSide, row * TileSide, TileSide, TileSide) & rect();
}

Colour Raster::pixel(int x, int y) const {
    if (!rect().contains(x, y))
        return InvalidColour;
    return fromPixel(rowOf(tile(x / TileSide, y / TileSide), y % TileSide)[x % TileSide]);
}

void Raster::setPixel(int x, int y, Colour colour) {
    fill(QRect(x, y, 1, 1), colour);
}

void Raster::fill(const QRect& area, Colour colour) {
    const QRgb pixel = toPixel(colour);
    QImage whole; // shared by all tiles that are filled entirely
    writeTiles(area, [&](QImage& tile, const QRect& place) {
        if (place.size() != tile.size()) {
            fillRows(tile, QRect(QPoint(place.left() % TileSide, place.top() % TileSide), place.size()),
                     pixel);
            return;
        }
        if (whole.size() != tile.size())
            whole = filledTile(tile.size(), pixel);
        tile = whole;
    });
}

void Raster::copyFrom(const Raster& source, const QRect& from, QPoint to) {
    const QPoint shift = to - from.topLeft();
    const QRect area = ((from & source.rect()).translated(shift)) & rect();
    const Raster kept = source; // source may be *this: its tiles must not change under the reading
    writeTiles(area, [&](QImage& tile, const QRect& place) {
        const QRect wanted = place.translated(-shift);
        const bool whole = place.size() == tile.size();
        const bool inStep = shift.x() % TileSide == 0 && shift.y() % TileSide == 0;
        if (whole && inStep) {
            const QImage& other = kept.tile(wanted.left() / TileSide, wanted.top() / TileSide);
            if (other.size() == tile.size()) {
                tile = other;
                return;
            }
        }
        if (whole)
            tile = newTile(tile.size()); // rather than copying what is overwritten anyway
        uchar* bits = tile.bits();
        const qsizetype stride = tile.bytesPerLine();
        kept.readTiles(wanted, [&](const QImage& other, const QRect& part) {
            const std::size_t bytes = sizeof(QRgb) * static_cast<std::size_t>(part.width());
            const int x = (part.left() + shift.x()) % TileSide;
            for (int y = part.top(); y <= part.bottom(); ++y) {
                auto* row = reinterpret_cast<QRgb*>(bits + ((y + shift.y()) % TileSide) * stride);
                std::memcpy(row + x, rowOf(other, y % TileSide) + part.left() % TileSide, bytes);
            }
        });
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
    QImage image = newTile(area.size());
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
    return tile(x / TileSide, y / TileSide).constBits() == other.tile(x / TileSide, y / TileSide).constBits();
}

bool operator==(const Raster& a, const Raster& b) {
    if (a.m_size != b.m_size)
        return false;
    for (qsizetype i = 0; i < a.m_tiles.size(); ++i) {
        const QImage& one = a.m_tiles.at(i);
        const QImage& other = b.m_tiles.at(i);
        if (one.constBits() != other.constBits() && one != other)
            return false;
    }
    return true;
}

} // namespace ovrano
