#pragma once

#include "document/colourtable.h"
#include "document/pixelrows.h"

#include <array>
#include <vector>

namespace ovrano {

/// A point of colour space: red, green and blue from 0 to 255, not necessarily whole.
using ColourPoint = std::array<float, 3>;

inline ColourPoint toPoint(QRgb colour) {
    return {float(qRed(colour)), float(qGreen(colour)), float(qBlue(colour))};
}

inline float squaredDistance(const ColourPoint& a, const ColourPoint& b) {
    const float red = a[0] - b[0];
    const float green = a[1] - b[1];
    const float blue = a[2] - b[2];
    return red * red + green * green + blue * blue;
}

/// Pixels whose colours are equal or nearly so: their mean colour and how many they are.
struct ColourBin {
    ColourPoint mean;
    float pixels;
};

/// What colours a picture has and how often.
using ColourHistogram = std::vector<ColourBin>;

/// One bin for each colour of the table, whose numbers are counts of pixels.
ColourHistogram exactHistogram(const ColourTable& colours);

/// One bin for all the colours that share the upper six bits of each channel: at most 262144 bins, of which
/// a photograph fills some ten thousands. The means are exact.
ColourHistogram coarseHistogram(PixelRows& rows);

} // namespace ovrano
