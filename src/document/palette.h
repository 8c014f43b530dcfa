#pragma once

#include "document/colourhistogram.h"
#include "document/colourtable.h"

#include <QRgb>

#include <vector>

namespace ovrano {

/// The colours that the indices of an indexed picture stand for, 1 to MaxColours of them, as 0xFFRRGGBB.
using Palette = std::vector<QRgb>;

inline constexpr int MaxColours = 256;

/// The palette of exactly the table's colours, in ascending order of their pixel values. Each colour's number
/// in the table becomes its index in the palette. At most MaxColours may be in the table.
Palette exactPalette(ColourTable& colours);

std::vector<ColourPoint> toPoints(const Palette& palette);

/// The nearest colours with whole channels.
Palette toPalette(const std::vector<ColourPoint>& points);

} // namespace ovrano
