#pragma once

#include "document/colourhistogram.h"

namespace ovrano {

/// Parts the colours into at most `count` boxes and gives the boxes' mean colours. It starts with one box and
/// repeatedly makes the cut, in any box, that reduces the sum of squared distances to the means most.
/// Reorders the histogram so that the bins of a box are neighbours.
///
/// After X. Wu, "Color quantization by dynamic programming and principal analysis", ACM Transactions on
/// Graphics 11(4), 1992, and his "Efficient statistical computations for optimal color quantization",
/// Graphics Gems II, 1991: planes at right angles to an axis, chosen by variance. The cut to be made next
/// is chosen by what it gains rather than by the variance of its box.
std::vector<ColourPoint> varianceCut(ColourHistogram& histogram, std::size_t count);

} // namespace ovrano
