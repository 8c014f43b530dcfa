#include "text/sourcepatch.h"

#include "platform/vectorised.h"

#include <algorithm>

namespace ovrano {

namespace {

constexpr QRgb Opaque = 0xFF000000U;

/// The pixel value of a colour, or one that no pixel has when there is no such colour.
QRgb pixelToSkip(std::optional<Colour> colour) {
    const bool exists = colour && *colour >= Black && *colour <= White;
    return exists ? toPixel(*colour) : SourcePatch::Nothing;
}

/// Copies pixels with those to skip as Nothing; tells whether there were others.
OVRANO_VECTORISED bool copyRow(const QRgb* in, int count, QRgb skipped, QRgb* out) {
    QRgb seen = SourcePatch::Nothing;
    for (int x = 0; x < count; ++x) {
        const QRgb pixel = in[x] | Opaque;
        const QRgb kept = pixel == skipped ? SourcePatch::Nothing : pixel;
        out[x] = kept;
        seen |= kept;
    }
    return seen != SourcePatch::Nothing;
}

} // namespace

SourcePatch::SourcePatch(std::optional<Colour> skipped)
    : m_skipped(pixelToSkip(skipped))
    , m_pixels(std::size_t(Side) * Side, Nothing) {}

void SourcePatch::load(const Raster& raster, const QRect& area) {
    m_area = area;
    m_inkedRows = QRect();
    if (!raster.rect().contains(area))
        std::fill_n(m_pixels.begin(), area.height() * Side, Nothing);
    raster.readTiles(area, [this](const QImage& tile, const QRect& place) { copyTile(tile, place); });
}

void SourcePatch::copyTile(const QImage& tile, const QRect& place) {
    const int left = place.left() % Raster::TileSide;
    const QPoint to = place.topLeft() - m_area.topLeft();
    QRgb* out = m_pixels.data() + std::ptrdiff_t{to.y()} * Side + to.x();
    for (int y = place.top(); y <= place.bottom(); ++y, out += Side) {
        const auto* row = reinterpret_cast<const QRgb*>(tile.constScanLine(y % Raster::TileSide));
        if (copyRow(row + left, place.width(), m_skipped, out))
            m_inkedRows |= QRect(m_area.left(), y, m_area.width(), 1);
    }
}

} // namespace ovrano
