#include "document/palettereducer.h"

#include "document/colourhistogram.h"
#include "document/colourtable.h"
#include "document/errordiffusion.h"
#include "document/nearestcolour.h"
#include "document/paletterefinement.h"
#include "document/palettetable.h"
#include "document/variancecut.h"

#include <algorithm>

namespace ovrano {

namespace {

/// Up to so many colours are told apart one by one. Drawings and screens usually have less, photographs show
/// in their first rows that they have more.
constexpr int MaxDistinctColours = 32768;

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

/// Puts each colour's nearest palette colour into the table. Gives the greatest squared distance.
float assignNearest(ColourTable& colours, const Palette& palette) {
    NearestColour nearest(toPoints(palette));
    float greatest = 0;
    colours.forEach([&](QRgb colour, std::uint32_t& index) {
        index = nearest(toPoint(colour));
        greatest = std::max(greatest, squaredDistance(toPoint(colour), toPoint(palette[index])));
    });
    return greatest;
}

/// Maps the pixels by the indices that the table has for their colours.
IndexedPicture mapByColour(PixelRows& rows, ColourTable& colours, Palette palette) {
    IndexedPicture picture = blankPicture(rows.size(), std::move(palette));
    forEachRow(rows, [&](int y, const QRgb* row) { colours.read(row, rows.size().width(), picture.row(y)); });
    return picture;
}

IndexedPicture mapByNearest(PixelRows& rows, Palette palette) {
    IndexedPicture picture = blankPicture(rows.size(), std::move(palette));
    PaletteTable table(picture.palette);
    forEachRow(rows, [&](int y, const QRgb* row) {
        std::transform(row, row + rows.size().width(), picture.row(y),
                       [&](QRgb pixel) { return table(qRed(pixel), qGreen(pixel), qBlue(pixel)); });
    });
    return picture;
}

IndexedPicture mapWithDiffusion(PixelRows& rows, Palette palette) {
    IndexedPicture picture = blankPicture(rows.size(), std::move(palette));
    ErrorDiffusion diffusion(picture.palette, rows.size().width());
    forEachRow(rows, [&](int y, const QRgb* row) { diffusion.map(row, picture.row(y)); });
    return picture;
}

IndexedPicture reduceFewColours(PixelRows& rows, ColourTable& colours, Diffusion diffusion) {
    Palette palette = reducedPalette(exactHistogram(colours));
    if (assignNearest(colours, palette) <= InvisibleError || diffusion == Diffusion::Off)
        return mapByColour(rows, colours, std::move(palette));
    return mapWithDiffusion(rows, std::move(palette));
}

IndexedPicture reduceManyColours(PixelRows& rows, Diffusion diffusion) {
    Palette palette = reducedPalette(coarseHistogram(rows));
    return diffusion == Diffusion::Off ? mapByNearest(rows, std::move(palette))
                                       : mapWithDiffusion(rows, std::move(palette));
}

} // namespace

IndexedPicture reduceTo256(PixelRows& rows, Diffusion diffusion) {
    ColourTable colours(MaxDistinctColours);
    const int width = rows.size().width();
    if (!forEachRow(rows, [&](int, const QRgb* row) { return colours.count(row, width); }))
        return reduceManyColours(rows, diffusion);
    if (colours.size() > MaxColours)
        return reduceFewColours(rows, colours, diffusion);
    Palette palette = exactPalette(colours);
    return mapByColour(rows, colours, std::move(palette));
}

} // namespace ovrano
