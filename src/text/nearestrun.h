#pragma once

#include "text/rotationmap.h"
#include "text/sourcepatch.h"

namespace ovrano {

/// Paints `count` pixels at `out`: each takes the nearest pixel to a point of a patch. The first point is
/// `from`, in the patch's coordinates, each following one is `step` further. Where the patch has Nothing, the
/// pixel is left as it is. All points must lie in the patch's area.
void layNearestOver(QRgb* out, int count, const SourcePatch& patch, RotationMap::Point from,
                    RotationMap::Point step);

} // namespace ovrano
