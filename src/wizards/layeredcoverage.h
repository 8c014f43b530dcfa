#pragma once

#include "platform/textmask.h"

#include <QImage>
#include <QPoint>
#include <QRect>

#include <vector>

namespace ovrano {

/// The total coverage of a text printed several times in one colour, inside an area.
///
/// The uncovered shares of the prints are multiplied. Blending the result once equals printing one after the
/// other, except for the rounding in between.
///
/// `origins` are the upper-left corners of the text's cell, in the pixels of the area. The result is
/// Format_Grayscale8 of the area's size, from 0 (free) to 255 (covered). Throws error::OutOfMemory.
QImage layeredCoverage(const SmoothTextMask& mask, const std::vector<QPoint>& origins, const QRect& area);

} // namespace ovrano
