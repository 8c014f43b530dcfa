#include "text/rasterrotation.h"

#include "platform/numbers.h"
#include "text/nearestrun.h"
#include "text/subpixel.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace ovrano {

namespace {

using Columns = RotationMap::Columns;
using Fixed = RotationMap::Fixed;

/// Distance from the middle of the pixel that a coordinate is in, in the steps of mixedPixel().
int subpixelPart(Fixed coordinate) {
    constexpr int Shift = RotationMap::FractionBits - SubpixelBits;
    const Fixed fromMiddle = (coordinate & (RotationMap::One - 1)) - RotationMap::One / 2;
    return static_cast<int>((fromMiddle + (Fixed(1) << (Shift - 1))) >> Shift);
}

int subpixelPart(double distance) {
    return static_cast<int>(std::lround(std::ldexp(distance, SubpixelBits)));
}

/// The columns or rows of a side that are at most `reach` from the centre, which may be anywhere.
Columns reached(int side, std::int64_t centre, int reach) {
    const std::int64_t first = std::max<std::int64_t>(0, centre - reach);
    const std::int64_t last = std::min<std::int64_t>(side - 1, centre + reach);
    return first <= last ? Columns{static_cast<int>(first), static_cast<int>(last)} : Columns{0, -1};
}

QPoint pixelAt(QPointF point) {
    return QPoint(toInteger32(point.x()), toInteger32(point.y()));
}

/// A vector turned by a quarter, counter-clockwise.
template<typename Vector>
Vector quarterTurned(const Vector& v) {
    return Vector(v.y(), -v.x());
}

} // namespace

RasterRotation::RasterRotation(const Raster& source, double degrees, std::optional<Colour> skipped,
                               Sampling sampling)
    : m_source(source)
    , m_map(source.size(), degrees)
    , m_sampling(sampling)
    , m_margin(sampling == Sampling::Mixed ? 1 : 0)
    , m_hasOwnAxes(m_map.hasTiesOnAxes())
    , m_parts([skipped] { return std::make_unique<Part>(skipped); }) {
    m_parts.of(Caller); // allocated first: without memory nothing is painted
}

QRect RasterRotation::areaIn(QSize destination, QPoint centre) const {
    const Columns columns = reached(destination.width(), centre.x(), m_map.reach());
    const Columns rows = reached(destination.height(), centre.y(), m_map.reach());
    return QRect(QPoint(columns.first, rows.first), QPoint(columns.last, rows.last));
}

void RasterRotation::paint(Raster& destination, QPoint centre) {
    if (areaIn(destination.size(), centre).isEmpty())
        return;
    const int side = SourcePatch::Side - 2 * m_margin;
    const int columns = (m_source.width() + side - 1) / side;
    const int rows = (m_source.height() + side - 1) / side;
    destination.makeUnshared();
    inParallel(columns * rows, [&](int worker, int item) {
        const QRect area(item % columns * side, item / columns * side, side, side);
        paintPart(destination, m_parts.of(worker), area & m_source.rect(), centre);
    });
    if (m_hasOwnAxes)
        paintAxes(destination, m_parts.of(Caller).patch, centre);
}

/// Paints the destination pixels that read an area of the source.
void RasterRotation::paintPart(Raster& destination, Part& part, const QRect& area, QPoint centre) {
    part.patch.load(m_source, area.adjusted(-m_margin, -m_margin, m_margin, m_margin));
    const QRect inked = area & part.patch.inkedRows();
    if (inked.isEmpty())
        return;
    const QRect box = m_map.offsetsOf(inked).translated(centre) & areaIn(destination.size(), centre);
    const Columns columns{box.left() - centre.x(), box.right() - centre.x()};
    part.firstRow = box.top();
    part.rows.clear();
    for (int y = box.top(); y <= box.bottom(); ++y)
        part.rows.push_back(m_map.columnsOf(inked, y - centre.y(), columns));
    destination.writeTiles(box,
                           [&](Tile& tile, const QRect& place) { paintTile(tile, place, part, centre); });
}

/// Paints the runs of a part inside a place of a tile, but for axes that are painted apart.
void RasterRotation::paintTile(Tile& tile, const QRect& place, const Part& part, QPoint centre) {
    QRgb* const pixels = pixelsOf(tile);
    const std::ptrdiff_t pixelsPerRow = tile.pixelsPerRow();
    for (int y = place.top(); y <= place.bottom(); ++y) {
        const Columns columns = part.rows[static_cast<std::size_t>(y - part.firstRow)];
        const int left = std::max(columns.first + centre.x(), place.left());
        const int right = std::min(columns.last + centre.x(), place.right());
        if (m_hasOwnAxes && y == centre.y())
            continue;
        QRgb* row = pixels + y % Raster::TileSide * pixelsPerRow;
        const bool crossed = m_hasOwnAxes && left <= centre.x() && centre.x() <= right;
        paintRun(row, QPoint(left, y), (crossed ? centre.x() : right + 1) - left, part.patch, centre);
        if (crossed)
            paintRun(row, QPoint(centre.x() + 1, y), right - centre.x(), part.patch, centre);
    }
}

/// Several threads may paint different pixels of one tile at once; the first one makes it writable.
QRgb* RasterRotation::pixelsOf(Tile& tile) {
    const std::scoped_lock lock(m_tiles);
    return tile.pixels();
}

void RasterRotation::paintRun(QRgb* row, QPoint at, int count, const SourcePatch& patch,
                              QPoint centre) const {
    if (count <= 0)
        return;
    RotationMap::Point from = m_map.sourceOf(at - centre);
    from.x -= patch.area().left() * RotationMap::One;
    from.y -= patch.area().top() * RotationMap::One;
    QRgb* out = row + at.x() % Raster::TileSide;
    if (m_sampling == Sampling::Nearest) {
        layNearestOver(out, count, patch, from, m_map.step());
        return;
    }
    for (QRgb* const end = out + count; out != end; ++out) {
        const QRgb* nearest = patch.at(static_cast<int>(from.x >> RotationMap::FractionBits),
                                       static_cast<int>(from.y >> RotationMap::FractionBits));
        const QRgb sample = mixedPixel(nearest, subpixelPart(from.x), subpixelPart(from.y));
        if (sample != SourcePatch::Nothing)
            *out = sample;
        from.x += m_map.step().x;
        from.y += m_map.step().y;
    }
}

/// The row and the column of the centre, where coordinates lie exactly between two pixels, as at multiples of
/// 30 degrees, and there the rounding depends on the formula's last digits. The rule behind it fills the
/// plane in quarter turns from radius and angle, the column first and the row after it, so that each of these
/// pixels has two source points; the later one counts, or the earlier if nothing is to be copied from that.
void RasterRotation::paintAxes(Raster& destination, SourcePatch& patch, QPoint centre) {
    const double angle = m_map.radians();
    const double quarterOn = angle + RotationMap::Pi / 2;
    QPoint direction(1, 0);
    QPointF later(std::cos(angle), std::sin(angle));
    QPointF earlier = quarterTurned(QPointF(std::cos(quarterOn), std::sin(quarterOn)));
    for (int turn = 0; turn < 4; ++turn) {
        paintAxis(destination, patch, centre, direction, later, earlier);
        direction = quarterTurned(direction);
        later = quarterTurned(later);
        earlier = quarterTurned(earlier);
    }
}

/// One arm of the cross, from the centre on until its source points leave the picture.
void RasterRotation::paintAxis(Raster& destination, SourcePatch& patch, QPoint centre, QPoint direction,
                               QPointF later, QPointF earlier) {
    for (int radius = 0; radius <= m_map.reach(); ++radius) {
        const QPointF from = m_map.middle() + radius * later;
        const QPointF before = m_map.middle() + radius * earlier;
        if (!m_source.rect().contains(pixelAt(from)) && !m_source.rect().contains(pixelAt(before)))
            return;
        const QPoint at = centre + radius * direction;
        if (!paintPixel(destination, patch, at, from))
            paintPixel(destination, patch, at, before);
    }
}

/// Copies one pixel from a point of the source; tells whether there was one to copy.
bool RasterRotation::paintPixel(Raster& destination, SourcePatch& patch, QPoint at, QPointF from) {
    const QPoint pixel = pixelAt(from);
    patch.load(m_source, QRect(pixel, QSize(1, 1)).adjusted(-m_margin, -m_margin, m_margin, m_margin));
    const QRgb* nearest = patch.at(m_margin, m_margin);
    if (*nearest == SourcePatch::Nothing)
        return false;
    const QPointF inside = from - pixel;
    const QRgb sample = m_sampling == Sampling::Nearest
                            ? *nearest
                            : mixedPixel(nearest, subpixelPart(inside.x()), subpixelPart(inside.y()));
    destination.setPixel(at.x(), at.y(), fromPixel(sample));
    return true;
}

} // namespace ovrano
