#pragma once

#include "platform/surface.h"

#include <cstdint>

namespace ovrano {

/// Side in pixels of a square that holds the surface at every angle: its diagonal and a little more.
std::int32_t SizeToRotateRegion(const Surface& surface);

/// Copies what source shows into destination, turned by `angle` degrees (counter-clockwise when positive)
/// about the middle of source, which comes to (centreX, centreY) of destination; a 0 there stands for the
/// middle of destination. Both surfaces are in the pixel scale.
///
/// Pixels without a counterpart in source keep what they show, and so do those whose counterpart has the
/// background colour when skipBackground is set. With sampleBetweenPixels, neighbouring source pixels are
/// mixed. Throws error::Overflow when the diagonal of source does not fit 16 bits.
void RotatePicture(const Surface& source, Surface& destination, double angle, bool skipBackground,
                   Colour backgroundColour, bool sampleBetweenPixels, std::int32_t centreX,
                   std::int32_t centreY);

} // namespace ovrano
