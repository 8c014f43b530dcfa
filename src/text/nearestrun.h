#pragma once

#include "text/rotationmap.h"
#include "text/sourcepatch.h"

namespace ovrano {

/// Lays a run of pixels over `count` pixels at `out`: the nearest ones to points of a patch, the first point
/// `from`, in the patch's own coordinates, the others each `step` further. What is Nothing there leaves what
/// is below. All points must lie in the patch's area.
void layNearestOver(QRgb* out, int count, const SourcePatch& patch, RotationMap::Point from,
                    RotationMap::Point step);

/// A sample, or what is below where the sample is Nothing: the highest bit of a pixel is set, that of Nothing
/// is not. Without a branch: along ragged edges between ink and background it would be guessed wrong all the
/// time.
inline QRgb laidOver(QRgb sample, QRgb below) {
    const QRgb covers = 0U - (sample >> 31);
    return sample | (below & ~covers);
}

} // namespace ovrano
