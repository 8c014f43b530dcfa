#include "document/palette.h"

#include <algorithm>
#include <cmath>

namespace ovrano {

Palette exactPalette(ColourTable& colours) {
    Palette palette;
    colours.forEach([&](QRgb colour, std::uint32_t) { palette.push_back(colour); });
    std::sort(palette.begin(), palette.end());
    for (std::uint32_t index = 0; index < palette.size(); ++index)
        *colours.insert(palette[index]) = index;
    return palette;
}

std::vector<ColourPoint> toPoints(const Palette& palette) {
    std::vector<ColourPoint> points;
    for (const QRgb colour : palette)
        points.push_back(toPoint(colour));
    return points;
}

Palette toPalette(const std::vector<ColourPoint>& points) {
    Palette palette;
    for (const ColourPoint& point : points)
        palette.push_back(
            qRgb(int(std::lround(point[0])), int(std::lround(point[1])), int(std::lround(point[2]))));
    return palette;
}

} // namespace ovrano
