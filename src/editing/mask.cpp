#include "editing/mask.h"

#include "platform/parallel.h"
#include "platform/rows.h"
#include "platform/vectorised.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace ovrano {

namespace {

/// Which pixels get another colour: those that equal one colour, or all the others.
struct Recolouring {
    QRgb compared;
    bool whenEqual;
    QRgb colour;

    /// All bits for a pixel that gets the other colour, otherwise none: as wide as a pixel, since compilers
    /// pack truth values into bytes in loops by vectors. The unused fourth byte of a pixel may hold anything
    /// in a picture that came from elsewhere.
    QRgb meets(QRgb pixel) const {
        const QRgb inverted = whenEqual ? 0U : ~0U;
        return ((pixel | 0xFF000000U) == compared ? ~0U : 0U) ^ inverted;
    }
};

Rows<const QRgb> rowsOf(const QImage& tile, QPoint corner = QPoint(0, 0)) {
    const auto* row = reinterpret_cast<const QRgb*>(tile.constScanLine(corner.y()));
    return {row + corner.x(), tile.bytesPerLine() / qsizetype{sizeof(QRgb)}};
}

/// Never stops early, so that the compiler can vectorise the loop.
OVRANO_VECTORISED bool rowHas(const QRgb* row, int count, Recolouring wanted) {
    QRgb found = 0;
    for (int x = 0; x < count; ++x)
        found |= wanted.meets(row[x]);
    return found != 0;
}

OVRANO_VECTORISED void recolourRows(Rows<QRgb> out, Rows<const QRgb> in, QSize size, Recolouring wanted) {
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const QRgb change = wanted.meets(in.first[x]);
            out.first[x] = (in.first[x] & ~change) | (wanted.colour & change);
        }
        out.first += out.perRow;
        in.first += in.perRow;
    }
}

/// MERGEPAINT with the mask, then SRCAND with the block.
OVRANO_VECTORISED void composeRows(Rows<QRgb> onto, Rows<const QRgb> block, Rows<const QRgb> mask,
                                   QSize size) {
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            onto.first[x] = (~mask.first[x] | onto.first[x]) & block.first[x];
        onto.first += onto.perRow;
        block.first += block.perRow;
        mask.first += mask.perRow;
    }
}

bool tileHas(const QImage& tile, const Recolouring& wanted) {
    const Rows<const QRgb> rows = rowsOf(tile);
    for (int y = 0; y < tile.height(); ++y)
        if (rowHas(rows.first + y * rows.perRow, tile.width(), wanted))
            return true;
    return false;
}

/// A tile recoloured, or nothing where it has no pixel that is wanted: that one stays shared with the
/// surfaces that it came from.
std::optional<Tile> recoloured(const QImage& tile, const Recolouring& wanted) {
    if (!tileHas(tile, wanted))
        return std::nullopt;
    Tile anew = Tile::unwritten(tile.size());
    QRgb* pixels = anew.pixels();
    recolourRows({pixels, anew.pixelsPerRow()}, rowsOf(tile), tile.size(), wanted);
    return anew;
}

/// Recolours the tiles of these places, several at a time.
void recolourTiles(Surface& pic, std::span<const QRect> places, const Recolouring& wanted) {
    const Raster& image = pic.Image();
    std::vector<std::optional<Tile>> anew(places.size());
    inParallel(static_cast<int>(places.size()), [&](int, int item) {
        const auto i = static_cast<std::size_t>(item);
        image.readTiles(places[i],
                        [&](const QImage& tile, const QRect&) { anew[i] = recoloured(tile, wanted); });
    });
    for (std::size_t i = 0; i < places.size(); ++i) {
        if (!anew[i])
            continue;
        pic.editImage(places[i], [&](Raster& raster, const QRect& area) {
            raster.writeTiles(area, [&](Tile& tile, const QRect&) { tile = *std::move(anew[i]); });
        });
    }
}

std::vector<QRect> tilePlaces(QSize size) {
    std::vector<QRect> places;
    for (int y = 0; y < size.height(); y += Raster::TileSide)
        for (int x = 0; x < size.width(); x += Raster::TileSide)
            places.emplace_back(x, y, Raster::TileSide, Raster::TileSide);
    return places;
}

void recolour(Surface& pic, const Recolouring& wanted) {
    constexpr std::size_t Portion = 64; // tiles between two repaintings
    EventYield yield;
    const std::vector<QRect> all = tilePlaces(pic.innerSize());
    for (std::span<const QRect> left = all; !left.empty();) {
        const std::span<const QRect> portion = left.first(std::min(Portion, left.size()));
        recolourTiles(pic, portion, wanted);
        left = left.subspan(portion.size());
        yield();
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

QPoint inTile(QPoint point) {
    return {point.x() % Raster::TileSide, point.y() % Raster::TileSide};
}

/// Composes into the part `place` of one tile of the destination; `to` is where the block's corner lies.
void composeTile(Tile& tile, const QRect& place, const Raster& block, const Raster& mask, QPoint to) {
    QRgb* pixels = tile.pixels();
    block.readTiles(place.translated(-to), [&](const QImage& blockTile, const QRect& part) {
        const QPoint from = inTile(part.topLeft());
        const QPoint there = inTile(part.topLeft() + to);
        QRgb* onto = pixels + there.y() * tile.pixelsPerRow() + there.x();
        // Block and mask have the same corner: a part of one tile of the block is in one tile of the mask.
        mask.readTiles(part, [&](const QImage& maskTile, const QRect&) {
            composeRows({onto, tile.pixelsPerRow()}, rowsOf(blockTile, from), rowsOf(maskTile, from),
                        part.size());
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
