#include "document/palettereducer.h"

#include "document/colourhistogram.h"
#include "document/colourtable.h"
#include "document/errordiffusion.h"
#include "document/nearestcolour.h"
#include "document/paletterefinement.h"
#include "document/palettetable.h"
#include "document/variancecut.h"
#include "platform/parallel.h"

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

namespace ovrano {

namespace {

/// The greatest histogram worth its time. Drawings, screens and clear skies usually have less colours.
constexpr std::size_t MaxBins = 32768;

/// After this many passes the palette hardly moves any more.
constexpr int RefinementPasses = 4;

/// A colour whose squared distance to its palette colour is no greater is off by about one step a channel,
/// which nobody sees.
constexpr float InvisibleError = 3;

IndexedPicture blankPicture(QSize size, Palette palette) {
    const auto pixels = static_cast<std::size_t>(size.width()) * static_cast<std::size_t>(size.height());
    return {size, std::move(palette), std::vector<std::uint8_t>(pixels)};
}

Palette reducedPalette(ColourHistogram histogram) {
    std::vector<ColourPoint> colours = varianceCut(histogram, MaxColours);
    refinePalette(histogram, colours, RefinementPasses);
    keepFlatColours(histogram, colours);
    return toPalette(colours);
}

/// For more colours than MaxBins. If they lie close together, as in a portrait, 256 colours come so near to
/// them that bins of 4 × 4 × 4 would be too coarse; otherwise finer bins gain next to nothing.
ColourHistogram coarseHistogram(const ColourCounts& counts) {
    ColourHistogram fine = counts.histogram(2);
    return fine.size() <= MaxBins ? fine : counts.histogram(4);
}

/// The greatest squared distance of a colour to its nearest palette colour.
float greatestError(const ColourHistogram& colours, const Palette& palette) {
    const std::vector<ColourPoint> points = toPoints(palette);
    NearestColour nearest(points);
    float greatest = 0;
    for (const ColourBin& colour : colours)
        greatest = std::max(greatest, squaredDistance(colour.mean, points[nearest(colour.mean)]));
    return greatest;
}

QRgb toColour(const ColourPoint& whole) {
    return qRgb(int(whole[0]), int(whole[1]), int(whole[2]));
}

/// A picture of at most MaxColours, pixel for pixel.
IndexedPicture mapExactly(PixelRows& rows, const ColourHistogram& histogram) {
    ColourTable colours(MaxColours);
    for (const ColourBin& bin : histogram)
        colours.insert(toColour(bin.mean));
    IndexedPicture picture = blankPicture(rows.size(), exactPalette(colours));
    forEachRowInParallel(
        rows, [&](int, int y, const QRgb* row) { colours.read(row, rows.size().width(), picture.row(y)); });
    return picture;
}

IndexedPicture mapByNearest(PixelRows& rows, Palette palette) {
    IndexedPicture picture = blankPicture(rows.size(), std::move(palette));
    PerWorker<PaletteTable> tables([&] { return std::make_unique<PaletteTable>(picture.palette); });
    forEachRowInParallel(rows, [&](int worker, int y, const QRgb* row) {
        tables.of(worker).map(row, rows.size().width(), picture.row(y));
    });
    return picture;
}

IndexedPicture mapWithDiffusion(PixelRows& rows, Palette palette) {
    IndexedPicture picture = blankPicture(rows.size(), std::move(palette));
    ErrorDiffusion diffusion(picture.palette, rows.size().width());
    constexpr std::size_t RowsAtOnce = ErrorDiffusion::RowsAtOnce;
    std::array<std::vector<QRgb>, RowsAtOnce> group; // its rows, of which only one is there at a time
    const int inGroups = rows.size().height() / int{RowsAtOnce} * int{RowsAtOnce};
    forEachRow(rows, [&](int y, const QRgb* row) {
        if (y >= inGroups) {
            diffusion.map(row, picture.row(y));
            return;
        }
        const std::size_t place = static_cast<std::size_t>(y) % RowsAtOnce;
        group[place].assign(row, row + rows.size().width());
        if (place < RowsAtOnce - 1)
            return;
        std::array<const QRgb*, RowsAtOnce> together;
        std::array<std::uint8_t*, RowsAtOnce> indices;
        for (std::size_t i = 0; i < RowsAtOnce; ++i) {
            together[i] = group[i].data();
            indices[i] = picture.row(y - static_cast<int>(place - i));
        }
        diffusion.map(together, indices);
    });
    return picture;
}

IndexedPicture mapTo(Palette palette, PixelRows& rows, Diffusion diffusion) {
    return diffusion == Diffusion::Off ? mapByNearest(rows, std::move(palette))
                                       : mapWithDiffusion(rows, std::move(palette));
}

IndexedPicture reduceFewColours(PixelRows& rows, const ColourHistogram& colours, Diffusion diffusion) {
    Palette palette = reducedPalette(colours);
    const bool isInvisible = greatestError(colours, palette) <= InvisibleError;
    return mapTo(std::move(palette), rows, isInvisible ? Diffusion::Off : diffusion);
}

ColourCounts countColours(PixelRows& rows) {
    PerWorker<ColourCounts> counts([] { return std::make_unique<ColourCounts>(); });
    forEachRowInParallel(
        rows, [&](int worker, int, const QRgb* row) { counts.of(worker).add(row, rows.size().width()); });
    ColourCounts& all = counts.of(Caller);
    counts.forEach([&all](const ColourCounts& some) {
        if (&some != &all)
            all.add(some);
    });
    return std::move(all);
}

} // namespace

IndexedPicture reduceTo256(PixelRows& rows, Diffusion diffusion) {
    const ColourCounts counts = countColours(rows);
    if (counts.size() > MaxBins)
        return mapTo(reducedPalette(coarseHistogram(counts)), rows, diffusion);
    const ColourHistogram colours = counts.histogram(1);
    if (colours.size() > MaxColours)
        return reduceFewColours(rows, colours, diffusion);
    return mapExactly(rows, colours);
}

} // namespace ovrano
