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

/// What has been copied: bits of any pixel, and bits of all.
struct Copied {
    QRgb any;
    QRgb all;
};

/// Copies pixels with those to skip as Nothing.
OVRANO_VECTORISED Copied copyRow(const QRgb* in, int count, QRgb skipped, QRgb* out) {
    QRgb any = SourcePatch::Nothing;
    QRgb all = ~SourcePatch::Nothing;
    for (int x = 0; x < count; ++x) {
        const QRgb pixel = in[x] | Opaque;
        const QRgb kept = pixel & (pixel == skipped ? SourcePatch::Nothing : ~SourcePatch::Nothing);
        out[x] = kept;
        any |= kept;
        all &= kept;
    }
    return {any, all};
}

} // namespace

SourcePatch::SourcePatch(std::optional<Colour> skipped)
    : m_skipped(pixelToSkip(skipped))
    , m_memory(Tile::unwritten(QSize(Side, Side)))
    , m_pixels(m_memory.pixels()) {}

void SourcePatch::load(const Raster& raster, const QRect& area) {
    m_area = area;
    m_inkedRows = QRect();
    m_isWhole = raster.rect().contains(area);
    if (!m_isWhole)
        std::fill_n(m_pixels, area.height() * Side, Nothing);
    raster.readTiles(area, [this](const QImage& tile, const QRect& place) { copyTile(tile, place); });
}

void SourcePatch::copyTile(const QImage& tile, const QRect& place) {
    const int left = place.left() % Raster::TileSide;
    const QPoint to = place.topLeft() - m_area.topLeft();
    QRgb* out = m_pixels + std::ptrdiff_t{to.y()} * Side + to.x();
    for (int y = place.top(); y <= place.bottom(); ++y, out += Side) {
        const auto* row = reinterpret_cast<const QRgb*>(tile.constScanLine(y % Raster::TileSide));
        const Copied copied = copyRow(row + left, place.width(), m_skipped, out);
        m_isWhole = m_isWhole && (copied.all & Opaque) == Opaque;
        if (copied.any != Nothing)
            m_inkedRows |= QRect(m_area.left(), y, m_area.width(), 1);
    }
}

} // namespace ovrano
