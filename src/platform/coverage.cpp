#include "platform/coverage.h"

#include "platform/vectorised.h"

namespace ovrano {

namespace {

constexpr unsigned Full = 255;

/// value / 255, rounded, for values up to 255 × 255.
constexpr unsigned dividedBy255(unsigned value) {
    return (value + 128 + ((value + 128) >> 8)) >> 8;
}

OVRANO_VECTORISED void blendRow(QRgb* row, const uchar* mask, int count, QRgb colour) {
    const unsigned red = (colour >> 16) & Full, green = (colour >> 8) & Full, blue = colour & Full;
    for (int x = 0; x < count; ++x) {
        const unsigned some = mask[x], rest = Full - some;
        const QRgb old = row[x];
        const unsigned newRed = dividedBy255(((old >> 16) & Full) * rest + red * some);
        const unsigned newGreen = dividedBy255(((old >> 8) & Full) * rest + green * some);
        const unsigned newBlue = dividedBy255((old & Full) * rest + blue * some);
        row[x] = 0xFF000000U | newRed << 16 | newGreen << 8 | newBlue;
    }
}

} // namespace

void blendCoverage(Surface& surface, const QImage& mask, QPoint at, Colour colour) {
    const QRgb pixel = toPixel(colour);
    surface.editImage(QRect(at, mask.size()), [&](Raster& image, const QRect& area) {
        image.writeTiles(area, [&](Tile& tile, const QRect& place) {
            QRgb* pixels = tile.pixels();
            for (int y = place.top(); y <= place.bottom(); ++y) {
                QRgb* row = pixels + y % Raster::TileSide * tile.pixelsPerRow();
                blendRow(row + place.left() % Raster::TileSide,
                         mask.constScanLine(y - at.y()) + (place.left() - at.x()), place.width(), pixel);
            }
        });
    });
}

} // namespace ovrano
