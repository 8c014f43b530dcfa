#pragma once

#include "platform/coverage.h"
#include "platform/surface.h"
#include "platform/textmask.h"

namespace ovrano {

/// Prints a text once with soft edges, the upper-left corner of its cell at a pixel.
inline void printSmooth(Surface& surface, const QFont& font, const QString& text, QPoint at, Colour colour) {
    const SmoothTextMask mask(font, text, surface.Image().rect().translated(-at) & inkBounds(font, text));
    blendCoverage(surface, mask.coverage(), at + mask.ink().topLeft(), colour);
}

} // namespace ovrano
