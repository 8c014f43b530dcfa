#pragma once

#include "platform/colour.h"
#include "platform/surface.h"

#include <QImage>
#include <QPoint>

namespace ovrano {

/// Lays a colour over what a surface shows, through a mask that says for each pixel how much of it: from 0
/// (nothing) to 255 (all). `mask` is Format_Grayscale8; its upper-left corner comes to `at`, in pixels, and
/// what reaches beyond the surface is cut.
/// Each channel becomes (old × (255 − m) + new × m) / 255, rounded to the nearest.
void blendCoverage(Surface& surface, const QImage& mask, QPoint at, Colour colour);

} // namespace ovrano
