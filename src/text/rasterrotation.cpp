#include "text/rasterrotation.h"

#include "platform/numbers.h"
#include "text/subpixel.h"

#include <algorithm>
#include <array>
#include <cmath>

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

/// Whether a value, or several and-ed, are pixels: the highest bit of a pixel is set, that of Nothing is not.
bool isPixel(QRgb value) {
    return (value >> 31) != 0;
}

/// A sample, or what is below where the sample is Nothing. Without a branch: along ragged edges between ink
/// and background it would be guessed wrong all the time.
QRgb laidOver(QRgb sample, QRgb below) {
    const QRgb covers = 0U - (sample >> 31);
    return sample | (below & ~covers);
}

/// Lays `Count` samples over the pixels at `out`, the first of them from a point of the patch. What is below
/// is read only along edges and not touched where there is nothing to copy: most of the time goes by waiting
/// for the memory of the destination.
template<std::size_t Count, typename Sample>
void layOver(QRgb* out, RotationMap::Point from, RotationMap::Point step, const Sample& sample) {
    std::array<QRgb, Count> samples;
    QRgb all = ~SourcePatch::Nothing;
    QRgb any = SourcePatch::Nothing;
    int distance = 0;
    for (QRgb& next : samples) {
        next = sample(from.x + distance * step.x, from.y + distance * step.y);
        all &= next;
        any |= next;
        ++distance;
    }
    if (isPixel(all))
        std::copy(samples.begin(), samples.end(), out);
    else if (isPixel(any))
        std::transform(samples.begin(), samples.end(), out, out, laidOver);
}

template<typename Sample>
void layRunOver(QRgb* out, int count, RotationMap::Point from, RotationMap::Point step,
                const Sample& sample) {
    constexpr int Group = 4;
    for (; count >= Group; count -= Group, out += Group) {
        layOver<Group>(out, from, step, sample);
        from.x += Group * step.x;
        from.y += Group * step.y;
    }
    for (; count > 0; --count, ++out) {
        *out = laidOver(sample(from.x, from.y), *out);
        from.x += step.x;
        from.y += step.y;
    }
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
    , m_patch(skipped) {}

QRect RasterRotation::areaIn(QSize destination, QPoint centre) const {
    const Columns columns = reached(destination.width(), centre.x(), m_map.reach());
    const Columns rows = reached(destination.height(), centre.y(), m_map.reach());
    return QRect(QPoint(columns.first, rows.first), QPoint(columns.last, rows.last));
}

void RasterRotation::paint(Raster& destination, QPoint centre) {
    if (areaIn(destination.size(), centre).isEmpty())
        return;
    const int side = SourcePatch::Side - 2 * m_margin;
    for (int y = 0; y < m_source.height(); y += side)
        for (int x = 0; x < m_source.width(); x += side)
            paintPatch(destination, QRect(x, y, side, side) & m_source.rect(), centre);
    if (m_hasOwnAxes)
        paintAxes(destination, centre);
}

/// Paints the destination pixels that read an area of the source.
void RasterRotation::paintPatch(Raster& destination, const QRect& area, QPoint centre) {
    m_patch.load(m_source, area.adjusted(-m_margin, -m_margin, m_margin, m_margin));
    const QRect part = area & m_patch.inkedRows();
    if (part.isEmpty())
        return;
    const QRect box = m_map.offsetsOf(part).translated(centre) & areaIn(destination.size(), centre);
    const Columns columns{box.left() - centre.x(), box.right() - centre.x()};
    m_firstRow = box.top();
    m_rows.clear();
    for (int y = box.top(); y <= box.bottom(); ++y)
        m_rows.push_back(m_map.columnsOf(part, y - centre.y(), columns));
    destination.writeTiles(box, [&](Tile& tile, const QRect& place) { paintTile(tile, place, centre); });
}

/// Paints the runs of m_rows inside a place of a tile, but for axes that are painted apart.
void RasterRotation::paintTile(Tile& tile, const QRect& place, QPoint centre) const {
    QRgb* pixels = tile.pixels();
    for (int y = place.top(); y <= place.bottom(); ++y) {
        const Columns columns = m_rows[static_cast<std::size_t>(y - m_firstRow)];
        const int left = std::max(columns.first + centre.x(), place.left());
        const int right = std::min(columns.last + centre.x(), place.right());
        if (m_hasOwnAxes && y == centre.y())
            continue;
        QRgb* row = pixels + y % Raster::TileSide * tile.pixelsPerRow();
        const bool crossed = m_hasOwnAxes && left <= centre.x() && centre.x() <= right;
        paintRun(row, QPoint(left, y), (crossed ? centre.x() : right + 1) - left, centre);
        if (crossed)
            paintRun(row, QPoint(centre.x() + 1, y), right - centre.x(), centre);
    }
}

void RasterRotation::paintRun(QRgb* row, QPoint at, int count, QPoint centre) const {
    if (count <= 0)
        return;
    RotationMap::Point from = m_map.sourceOf(at - centre);
    from.x -= m_patch.area().left() * RotationMap::One;
    from.y -= m_patch.area().top() * RotationMap::One;
    const QRgb* pixels = m_patch.at(0, 0);
    const auto nearest = [pixels](Fixed x, Fixed y) {
        return pixels + (y >> RotationMap::FractionBits) * SourcePatch::Side +
               (x >> RotationMap::FractionBits);
    };
    QRgb* out = row + at.x() % Raster::TileSide;
    if (m_sampling == Sampling::Nearest)
        layRunOver(out, count, from, m_map.step(), [nearest](Fixed x, Fixed y) { return *nearest(x, y); });
    else
        layRunOver(out, count, from, m_map.step(), [nearest](Fixed x, Fixed y) {
            return mixedPixel(nearest(x, y), subpixelPart(x), subpixelPart(y));
        });
}

/// The row and the column of the centre, where coordinates lie exactly between two pixels, as at multiples of
/// 30 degrees, so that which one is read hangs on the last digits of the formula. The rule behind it fills
/// the plane in quarter turns from radius and angle, the column first and the row after it, so that each of
/// these pixels has two source points; the later one counts, or the earlier if nothing is to be copied from
/// that.
void RasterRotation::paintAxes(Raster& destination, QPoint centre) {
    const double angle = m_map.radians();
    const double quarterOn = angle + RotationMap::Pi / 2;
    QPoint direction(1, 0);
    QPointF later(std::cos(angle), std::sin(angle));
    QPointF earlier = quarterTurned(QPointF(std::cos(quarterOn), std::sin(quarterOn)));
    for (int turn = 0; turn < 4; ++turn) {
        paintAxis(destination, centre, direction, later, earlier);
        direction = quarterTurned(direction);
        later = quarterTurned(later);
        earlier = quarterTurned(earlier);
    }
}

/// One arm of the cross, from the centre on until its source points leave the picture.
void RasterRotation::paintAxis(Raster& destination, QPoint centre, QPoint direction, QPointF later,
                               QPointF earlier) {
    for (int radius = 0; radius <= m_map.reach(); ++radius) {
        const QPointF from = m_map.middle() + radius * later;
        const QPointF before = m_map.middle() + radius * earlier;
        if (!m_source.rect().contains(pixelAt(from)) && !m_source.rect().contains(pixelAt(before)))
            return;
        const QPoint at = centre + radius * direction;
        if (!paintPixel(destination, at, from))
            paintPixel(destination, at, before);
    }
}

/// Copies one pixel from a point of the source; tells whether there was one to copy.
bool RasterRotation::paintPixel(Raster& destination, QPoint at, QPointF from) {
    const QPoint pixel = pixelAt(from);
    m_patch.load(m_source, QRect(pixel, QSize(1, 1)).adjusted(-m_margin, -m_margin, m_margin, m_margin));
    const QRgb* nearest = m_patch.at(m_margin, m_margin);
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
