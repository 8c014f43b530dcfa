#pragma once

#include "platform/surface.h"
#include "platform/yield.h"

namespace ovrano {

/// Every pixel of a surface that has the colour becomes white, so that composing lets it through.
/// Yields to pending window events during the scan.
void WhiteNonPaintArea(Surface& pic, Colour colour);

/// Every pixel of a surface that is not white becomes the colour: with black, the transparency mask.
/// Yields to pending window events during the scan.
void CreateMask(Surface& pic, Colour colour);

/// Draws a block through its mask in place: destination = (NOT mask OR destination) AND block. Both have
/// their upper-left corner at `to`; `size` of them is taken, clipped on every side. Yields, where asked to,
/// after each tile of the destination.
void composeMasked(Raster& destination, const Raster& block, const Raster& mask, QPoint to, QSize size,
                   EventYield* yield = nullptr);
/// The same on what surfaces show.
void composeMasked(Surface& destination, const Surface& block, const Surface& mask, QPoint to, QSize size);

} // namespace ovrano
