#pragma once

#include "platform/raster.h"
#include "text/rotationmap.h"
#include "text/sourcepatch.h"

#include <QPointF>

#include <optional>
#include <vector>

namespace ovrano {

enum class Sampling { Nearest, Mixed };

/// A picture about to be laid over another one, turned about its middle (see RotationMap).
///
/// Every destination pixel fetches its colour from the source. The source is gone through patch by patch,
/// each read once in the order of memory and painted while it is in the cache; a patch without anything to
/// copy costs no more than that reading. What is written are the runs of destination pixels that read the
/// patch.
class RasterRotation {
public:
    /// The source must outlive the rotation. Its pixels of the colour `skipped` are not copied.
    /// Throws as RotationMap does.
    RasterRotation(const Raster& source, double degrees, std::optional<Colour> skipped, Sampling sampling);

    /// The part of a destination of this size that may change: a square around the centre, clipped.
    QRect areaIn(QSize destination, QPoint centre) const;

    void paint(Raster& destination, QPoint centre);

private:
    void paintPatch(Raster& destination, const QRect& area, QPoint centre);
    void paintTile(Tile& tile, const QRect& place, QPoint centre) const;
    /// `row` is that of the tile in which the point `at` lies.
    void paintRun(QRgb* row, QPoint at, int count, QPoint centre) const;

    void paintAxes(Raster& destination, QPoint centre);
    void paintAxis(Raster& destination, QPoint centre, QPoint direction, QPointF later, QPointF earlier);
    bool paintPixel(Raster& destination, QPoint at, QPointF from);

    const Raster& m_source;
    RotationMap m_map;
    Sampling m_sampling;
    int m_margin;      // pixels needed around those that are read
    bool m_hasOwnAxes; // the row and the column of the centre are painted apart, see paintAxes()
    SourcePatch m_patch;
    int m_firstRow = 0;                       // of the destination
    std::vector<RotationMap::Columns> m_rows; // from there on, the columns that read the patch
};

} // namespace ovrano
