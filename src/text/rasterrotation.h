#pragma once

#include "platform/parallel.h"
#include "platform/raster.h"
#include "text/rotationmap.h"
#include "text/sourcepatch.h"

#include <QPointF>

#include <mutex>
#include <optional>
#include <vector>

namespace ovrano {

enum class Sampling { Nearest, Mixed };

/// Lays a picture over another one, turned about its middle (see RotationMap).
///
/// Every destination pixel takes its colour from the source. The source is processed patch by patch: each is
/// read once, in memory order, and painted while it is in the cache. A patch without anything to copy costs
/// only the reading. Each destination pixel reads one patch only, so several patches are painted in parallel.
class RasterRotation {
public:
    /// The source must outlive the rotation. Its pixels of the colour `skipped` are not copied. Throws as
    /// RotationMap does, and error::OutOfMemory without memory.
    RasterRotation(const Raster& source, double degrees, std::optional<Colour> skipped, Sampling sampling);

    /// The part of a destination of this size that may change: a square around the centre, clipped.
    QRect areaIn(QSize destination, QPoint centre) const;

    void paint(Raster& destination, QPoint centre);

private:
    /// A patch of the source and what of the destination reads it.
    struct Part {
        explicit Part(std::optional<Colour> skipped)
            : patch(skipped) {}

        SourcePatch patch;
        int firstRow = 0;                       // of the destination
        std::vector<RotationMap::Columns> rows; // from there on, the columns that read the patch
    };

    void paintPart(Raster& destination, Part& part, const QRect& area, QPoint centre);
    void paintTile(Tile& tile, const QRect& place, const Part& part, QPoint centre);
    QRgb* pixelsOf(Tile& tile);
    /// `row` is that of the tile in which the point `at` lies.
    void paintRun(QRgb* row, QPoint at, int count, const SourcePatch& patch, QPoint centre) const;

    void paintAxes(Raster& destination, SourcePatch& patch, QPoint centre);
    void paintAxis(Raster& destination, SourcePatch& patch, QPoint centre, QPoint direction, QPointF later,
                   QPointF earlier);
    bool paintPixel(Raster& destination, SourcePatch& patch, QPoint at, QPointF from);

    const Raster& m_source;
    RotationMap m_map;
    Sampling m_sampling;
    int m_margin;      // pixels needed around those that are read
    bool m_hasOwnAxes; // the row and the column of the centre are painted apart, see paintAxes()
    PerWorker<Part> m_parts;
    std::mutex m_tiles;
};

} // namespace ovrano
