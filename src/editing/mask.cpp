#include "editing/mask.h"

#include "platform/vectorised.h"
#include "platform/yield.h"

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

QRgb* rowOf(uchar* bits, qsizetype stride, int y) {
    return reinterpret_cast<QRgb*>(bits + y * stride);
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

/// Writes a tile anew, in one pass also when it is shared. Without memory for that it stays as it is.
void recolourTile(QImage& tile, const Recolouring& wanted) {
    QImage anew(tile.size(), tile.format());
    if (anew.isNull())
        return;
    uchar* bits = anew.bits();
    const qsizetype stride = anew.bytesPerLine();
    for (int y = 0; y < tile.height(); ++y)
        recolourRow(rowOf(bits, stride, y), rowOf(tile, y), tile.width(), wanted);
    tile = anew;
}

/// A tile without a pixel that is wanted stays shared with the surfaces that it came from.
void recolourTileAt(Surface& pic, const QRect& place, const Recolouring& wanted) {
    bool found = false;
    pic.Image().readTiles(place, [&](const QImage& tile, const QRect&) { found = tileHas(tile, wanted); });
    if (!found)
        return;
    pic.editImage(place, [&](Raster& image, const QRect& area) {
        image.writeTiles(area, [&](QImage& tile, const QRect&) { recolourTile(tile, wanted); });
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

/// White changes nothing, neither as mask nor as block: a raster that is to reach further is continued in it.
Raster whiteBeyond(const Raster& raster, QSize size) {
    return raster.resized(raster.size().expandedTo(size), White);
}

/// Composes into the part `place` of one tile of the destination; `to` is where the block's corner lies.
void composeTile(QImage& tile, const QRect& place, const Raster& block, const Raster& mask, QPoint to) {
    constexpr int Side = Raster::TileSide;
    uchar* bits = tile.bits();
    const qsizetype stride = tile.bytesPerLine();
    block.readTiles(place.translated(-to), [&](const QImage& blockTile, const QRect& part) {
        const int from = part.left() % Side;
        const int there = (part.left() + to.x()) % Side;
        // Block and mask have the same corner: a part of one tile of the block is in one tile of the mask.
        mask.readTiles(part, [&](const QImage& maskTile, const QRect&) {
            for (int y = part.top(); y <= part.bottom(); ++y)
                composeRow(rowOf(bits, stride, (y + to.y()) % Side) + there,
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

void composeMasked(Surface& destination, const Surface& block, const Surface& mask, QPoint to, QSize size) {
    const QSize reach = size.boundedTo(block.innerSize().expandedTo(mask.innerSize()));
    const Raster blockImage = whiteBeyond(block.Image(), reach);
    const Raster maskImage = whiteBeyond(mask.Image(), reach);
    // Beside what is shown, so that a repainting in between never shows half a block.
    Raster composed = destination.Image();
    EventYield yield;
    composed.writeTiles(QRect(to, reach), [&](QImage& tile, const QRect& place) {
        composeTile(tile, place, blockImage, maskImage, to);
        yield();
    });
    destination.editImage(QRect(to, reach), [&](Raster& image, const QRect&) {
        if (image.size() == composed.size()) // nothing has come in between
            image = composed;
    });
}

} // namespace ovrano
