#pragma once

#include <QRgb>

namespace ovrano {

/// Mixed pixels are taken at steps of 1/256 pixel.
inline constexpr int SubpixelBits = 8;

/// The colour of a point inside a pixel of a patch, by bilinear interpolation with the pixels around it.
/// `nearest` is the pixel that the point is in, `right` and `down` are the point's distance from the pixel's
/// middle in 1/256 pixel, half a pixel at most.
///
/// Neighbours that are SourcePatch::Nothing count as the nearest pixel: a skipped background must not show as
/// a pale seam, and the picture's edge keeps its colour. If the nearest pixel is Nothing, so is the result.
QRgb mixedPixel(const QRgb* nearest, int right, int down);

} // namespace ovrano
