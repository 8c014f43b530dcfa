#pragma once

#include "document/colourhistogram.h"

#include <span>

namespace ovrano {

/// Moves the colours of a palette to where they serve the histogram's pixels best: each pass gives every bin
/// to its nearest colour and then moves each colour to the mean of its bins, which never makes the sum of
/// squared distances greater. Colours that serve no pixel stay where they are.
///
/// The k-means method of S. Lloyd, "Least squares quantization in PCM", IEEE Transactions on Information
/// Theory 28(2), 1982.
void refinePalette(std::span<const ColourBin> histogram, std::span<ColourPoint> palette, int passes);

/// Gives each palette colour that serves mostly one bin the mean of that bin alone, so that flat areas
/// (paper, plain letters) keep their colour to the last bit rather than one mixed with their smoothed edges.
void keepFlatColours(std::span<const ColourBin> histogram, std::span<ColourPoint> palette);

} // namespace ovrano
