#include "platform/coverage.h"

#include "platform/rows.h"
#include "platform/vectorised.h"

#include <cstddef>

namespace ovrano {

namespace {

constexpr unsigned Full = 255;

/// value / 255, rounded, for values up to 255 × 255.
constexpr unsigned dividedBy255(unsigned value) {
    return (value + 128 + ((value + 128) >> 8)) >> 8;
}

OVRANO_VECTORISED void blendRows(Rows<QRgb> onto, Rows<const uchar> mask, QSize size, QRgb colour) {
    const unsigned red = (colour >> 16) & Full, green = (colour >> 8) & Full, blue = colour & Full;
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const unsigned some = mask.first[x], rest = Full - some;
            const QRgb old = onto.first[x];
            const unsigned newRed = dividedBy255(((old >> 16) & Full) * rest + red * some);
            const unsigned newGreen = dividedBy255(((old >> 8) & Full) * rest + green * some);
            const unsigned newBlue = dividedBy255((old & Full) * rest + blue * some);
            onto.first[x] = 0xFF000000U | newRed << 16 | newGreen << 8 | newBlue;
        }
        onto.first += onto.perRow;
        mask.first += mask.perRow;
    }
}

} // namespace

void blendCoverage(Surface& surface, const QImage& mask, QPoint at, Colour colour) {
    const QRgb pixel = toPixel(colour);
    surface.editImage(QRect(at, mask.size()), [&](Raster& image, const QRect& area) {
        image.writeTiles(area, [&](Tile& tile, const QRect& place) {
            const std::ptrdiff_t pixelsPerRow = tile.pixelsPerRow();
            QRgb* first = tile.pixels() + place.top() % Raster::TileSide * pixelsPerRow +
                          place.left() % Raster::TileSide;
            const uchar* covers = mask.constScanLine(place.top() - at.y()) + (place.left() - at.x());
            blendRows({first, pixelsPerRow}, {covers, mask.bytesPerLine()}, place.size(), pixel);
        });
    });
}

} // namespace ovrano
