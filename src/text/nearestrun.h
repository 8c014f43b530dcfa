#pragma once

#include "text/rotationmap.h"
#include "text/sourcepatch.h"

namespace ovrano {

/// Lays a run of pixels over `count` pixels at `out`: the nearest ones to points of a patch, the first point
/// `from`, in the patch's own coordinates, the others each `step` further. What is Nothing there leaves what
/// is below. All points must lie in the patch's area.
void layNearestOver(QRgb* out, int count, const SourcePatch& patch, RotationMap::Point from,
                    RotationMap::Point step);

} // namespace ovrano
