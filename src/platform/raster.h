#pragma once

#include "platform/colour.h"
#include "platform/tile.h"

#include <QImage>
#include <QList>
#include <QRect>
#include <QRegion>
#include <QSize>

namespace ovrano {

/// Pixels as a value, cut into square tiles that copies share until one of them is written.
///
/// Copying a Raster copies one reference; writing detaches the tiles that are touched, so undo snapshots,
/// hidden companions and the shown picture of one photo share nearly everything. Pixels are 32-bit RGB
/// without alpha (QImage::Format_RGB32), coordinates are pixels from the upper-left corner. Reading
/// outside gives InvalidColour, writing outside is ignored.
class Raster {
public:
    static constexpr int TileSide = Tile::Side;
    /// Largest side of a raster: what the 32-bit pixel arithmetic of a row can hold with room to spare.
    static constexpr int MaxSide = 1 << 20;

    /// The empty raster, 0 × 0.
    Raster() = default;
    /// Filled with one colour, which costs one tile whatever the size. Negative sizes count as 0. Throws
    /// error::OutOfMemory when a side exceeds MaxSide.
    Raster(QSize size, Colour fill);

    /// Shares the image's memory where its format is Format_RGB32 already, converts it otherwise.
    /// Alpha is dropped, not blended.
    static Raster fromImage(const QImage& image);

    QSize size() const { return m_size; }
    int width() const { return m_size.width(); }
    int height() const { return m_size.height(); }
    QRect rect() const { return QRect(QPoint(0, 0), m_size); }
    bool isEmpty() const { return m_size.isEmpty(); }

    Colour pixel(int x, int y) const;
    void setPixel(int x, int y, Colour colour);

    /// Fills the part of area that lies inside.
    void fill(const QRect& area, Colour colour);

    /// Copies the part `from` of source so that its upper-left corner comes to `to`, clipped on both
    /// sides. Tiles that are covered whole and in step are shared instead. source may be *this when the
    /// two places do not overlap.
    void copyFrom(const Raster& source, const QRect& from, QPoint to);
    /// The same area, at the same place.
    void copyFrom(const Raster& source, const QRect& area) { copyFrom(source, area, area.topLeft()); }

    /// The same, but shares nothing: what is this raster's own stays so.
    void copyPixels(const Raster& source, const QRect& area);

    /// Makes the tiles that meet an area this raster's own, so that writing their pixels takes no more
    /// memory. Without memory for that (error::OutOfMemory) the pixels are still what they were.
    void makeOwn(const QRegion& area);

    /// Another size: what is added has the fill colour, what no longer fits is cut.
    Raster resized(QSize size, Colour fill) const;

    /// A contiguous Format_RGB32 copy of an area; what lies outside is black.
    QImage toImage(const QRect& area) const;
    QImage toImage() const { return toImage(rect()); }

    /// Copies `count` pixels of row y from column x on into out; all of them must lie inside.
    void readRow(int y, int x, int count, QRgb* out) const;

    /// Calls visit(const QImage& tile, QRect place) for each tile that meets the area. `place` is the part
    /// of the raster to look at, already clipped; pixel (x, y) of the raster is pixel
    /// (x % TileSide, y % TileSide) of the tile.
    template<typename Visit>
    void readTiles(const QRect& area, Visit&& visit) const;
    /// The same for writing: visit(Tile& tile, QRect place). The tile may still be shared; asking for its
    /// pixels() makes it this raster's own.
    template<typename Visit>
    void writeTiles(const QRect& area, Visit&& visit);

    /// Makes the list of tiles this raster's own, not yet the tiles, so that several threads may reach for
    /// them to write. One tile's pixels() is for one thread at a time.
    void makeUnshared() { m_tiles.detach(); }

    /// The area of all tiles that meet an area.
    static QRect wholeTiles(const QRect& area);

    /// Shares the other raster's tiles that meet the area and have the same size and pixels as ours, so that
    /// equal pixels are not kept twice.
    void shareEqualTiles(const Raster& other, const QRect& area);

    /// Whether a pixel's tile is the same memory in both (for tests and for telling what changed).
    bool sharesTile(const Raster& other, int x, int y) const;

    /// Compares pixels; shared tiles are equal at once.
    friend bool operator==(const Raster& a, const Raster& b);

private:
    int columns() const { return (m_size.width() + TileSide - 1) / TileSide; }
    int rows() const { return (m_size.height() + TileSide - 1) / TileSide; }
    QRect tileRect(int column, int row) const;
    static void overwrite(Tile& tile, const QRect& place, const Raster& source, QPoint shift);
    const Tile& tile(int column, int row) const { return m_tiles.at(row * columns() + column); }
    Tile& tile(int column, int row) { return m_tiles[row * columns() + column]; }

    QSize m_size = QSize(0, 0);
    QList<Tile> m_tiles; // row by row; edge tiles have just the size that is left
};

template<typename Visit>
void Raster::readTiles(const QRect& area, Visit&& visit) const {
    const QRect wanted = area & rect();
    if (wanted.isEmpty())
        return;
    for (int row = wanted.top() / TileSide; row <= wanted.bottom() / TileSide; ++row)
        for (int column = wanted.left() / TileSide; column <= wanted.right() / TileSide; ++column)
            visit(tile(column, row).image(), tileRect(column, row) & wanted);
}

template<typename Visit>
void Raster::writeTiles(const QRect& area, Visit&& visit) {
    const QRect wanted = area & rect();
    if (wanted.isEmpty())
        return;
    for (int row = wanted.top() / TileSide; row <= wanted.bottom() / TileSide; ++row)
        for (int column = wanted.left() / TileSide; column <= wanted.right() / TileSide; ++column)
            visit(tile(column, row), tileRect(column, row) & wanted);
}

} // namespace ovrano
