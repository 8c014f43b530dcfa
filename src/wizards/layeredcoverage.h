#pragma once

#include "platform/textmask.h"

#include <QImage>
#include <QPoint>
#include <QRect>

#include <vector>

namespace ovrano {

/// What a text that is printed several times in one colour covers all together, inside an area.
///
/// What each print leaves uncovered is multiplied, which is what printing them one after the other comes to:
/// blending the result once gives the same pixels but for the rounding in between.
///
/// `origins` are the upper-left corners of the text's cell, in the pixels of the area. The result is
/// Format_Grayscale8 of the area's size, from 0 (free) to 255 (covered). Throws error::OutOfMemory.
QImage layeredCoverage(const SmoothTextMask& mask, const std::vector<QPoint>& origins, const QRect& area);

} // namespace ovrano
