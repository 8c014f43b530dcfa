#include "editing/mask.h"

#include "platform/vectorised.h"

namespace ovrano {

namespace {

/// Which pixels get another colour: those that equal one colour, or all the others.
struct Recolouring {
    QRgb compared;
    bool whenEqual;
    QRgb colour;

    /// The unused fourth byte of a pixel may hold anything in a picture that came from elsewhere.
    bool meets(QRgb pixel) const { return ((pixel | 0xFF000000U) == compared) == whenEqual; }
};

/// Looks at the whole row, so that it goes by vectors.
OVRANO_VECTORISED bool rowHas(const QRgb* row, int count, Recolouring wanted) {
    QRgb found = 0;
    for (int x = 0; x < count; ++x)
        found |= wanted.meets(row[x]) ? 1U : 0U;
    return found != 0;
}

OVRANO_VECTORISED void recolourRow(QRgb* out, const QRgb* row, int count, Recolouring wanted) {
    for (int x = 0; x < count; ++x)
        out[x] = wanted.meets(row[x]) ? wanted.colour : row[x];
}

/// MERGEPAINT with the mask, then SRCAND with the block.
OVRANO_VECTORISED void composeRow(QRgb* row, const QRgb* block, const QRgb* mask, int count) {
    for (int x = 0; x < count; ++x)
        row[x] = (~mask[x] | row[x]) & block[x];
}

const QRgb* rowOf(const QImage& tile, int y) {
    return reinterpret_cast<const QRgb*>(tile.constScanLine(y));
}

bool tileHas(const QImage& tile, const Recolouring& wanted) {
    for (int y = 0; y < tile.height(); ++y)
        if (rowHas(rowOf(tile, y), tile.width(), wanted))
            return true;
    return false;
}

/// Writes a tile anew, in one pass also when it is shared.
void recolourTile(Tile& tile, const Recolouring& wanted) {
    Tile anew = Tile::unwritten(tile.size());
    QRgb* pixels = anew.pixels();
    for (int y = 0; y < tile.size().height(); ++y)
        recolourRow(pixels + y * anew.pixelsPerRow(), tile.row(y), tile.size().width(), wanted);
    tile = anew;
}

/// A tile without a pixel that is wanted stays shared with the surfaces that it came from.
void recolourTileAt(Surface& pic, const QRect& place, const Recolouring& wanted) {
    bool found = false;
    pic.Image().readTiles(place, [&](const QImage& tile, const QRect&) { found = tileHas(tile, wanted); });
    if (!found)
        return;
    pic.editImage(place, [&](Raster& image, const QRect& area) {
        image.writeTiles(area, [&](Tile& tile, const QRect&) { recolourTile(tile, wanted); });
    });
}

void recolour(Surface& pic, const Recolouring& wanted) {
    EventYield yield;
    const QSize size = pic.innerSize();
    for (int y = 0; y < size.height(); y += Raster::TileSide) {
        for (int x = 0; x < size.width(); x += Raster::TileSide) {
            recolourTileAt(pic, QRect(x, y, Raster::TileSide, Raster::TileSide), wanted);
            yield();
        }
    }
}

/// What composing can change: neither block nor mask goes on beyond the larger of them.
QSize reachOf(QSize block, QSize mask, QSize wanted) {
    return wanted.boundedTo(block.expandedTo(mask));
}

/// White changes nothing, neither as mask nor as block: a raster that is to reach further is continued in it.
Raster whiteBeyond(const Raster& raster, QSize size) {
    return raster.resized(raster.size().expandedTo(size), White);
}

/// Composes into the part `place` of one tile of the destination; `to` is where the block's corner lies.
void composeTile(Tile& tile, const QRect& place, const Raster& block, const Raster& mask, QPoint to) {
    constexpr int Side = Raster::TileSide;
    QRgb* pixels = tile.pixels();
    block.readTiles(place.translated(-to), [&](const QImage& blockTile, const QRect& part) {
        const int from = part.left() % Side;
        const int there = (part.left() + to.x()) % Side;
        // Block and mask have the same corner: a part of one tile of the block is in one tile of the mask.
        mask.readTiles(part, [&](const QImage& maskTile, const QRect&) {
            for (int y = part.top(); y <= part.bottom(); ++y)
                composeRow(pixels + (y + to.y()) % Side * tile.pixelsPerRow() + there,
                           rowOf(blockTile, y % Side) + from, rowOf(maskTile, y % Side) + from, part.width());
        });
    });
}

} // namespace

void WhiteNonPaintArea(Surface& pic, Colour colour) {
    recolour(pic, {toPixel(colour), true, toPixel(White)});
}

void CreateMask(Surface& pic, Colour colour) {
    recolour(pic, {toPixel(White), false, toPixel(colour)});
}

void composeMasked(Raster& destination, const Raster& block, const Raster& mask, QPoint to, QSize size,
                   EventYield* yield) {
    const QSize reach = reachOf(block.size(), mask.size(), size);
    const Raster wholeBlock = whiteBeyond(block, reach);
    const Raster wholeMask = whiteBeyond(mask, reach);
    destination.writeTiles(QRect(to, reach), [&](Tile& tile, const QRect& place) {
        composeTile(tile, place, wholeBlock, wholeMask, to);
        if (yield)
            (*yield)();
    });
}

void composeMasked(Surface& destination, const Surface& block, const Surface& mask, QPoint to, QSize size) {
    const QSize reach = reachOf(block.innerSize(), mask.innerSize(), size);
    destination.editImage(QRect(to, reach), [&](Raster& image, const QRect&) {
        composeMasked(image, block.Image(), mask.Image(), to, size);
    });
}

} // namespace ovrano
