#pragma once

#include "platform/raster.h"

#include <QByteArray>

namespace ovrano {

/// Draws a vector picture (SVG) at its natural size, a pixel to a unit, over white. Nothing outside the data
/// is loaded: a picture that it refers to by a path or an address is left out. Throws error::InvalidPicture
/// (no such picture, damaged, without a size, beyond a DrawingBudget) or error::OutOfMemory (too large).
Raster renderVectorPicture(const QByteArray& svg);

} // namespace ovrano
