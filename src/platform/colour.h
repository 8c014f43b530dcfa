#pragma once

#include <QRgb>

#include <cstdint>

namespace ovrano {

/// A colour as the whole program carries it: 0x00BBGGRR, red in the low byte.
/// InvalidColour (−1) is what reading outside a surface gives; it equals no colour.
using Colour = std::int32_t;

inline constexpr Colour White = 0xFFFFFF;
inline constexpr Colour Black = 0;
inline constexpr Colour InvalidColour = -1;

/// Each channel is taken from 0 to 255: what is larger counts as 255, what is negative as 0.
constexpr Colour rgb(int red, int green, int blue) {
    const auto clamp = [](int channel) { return channel < 0 ? 0 : channel > 255 ? 255 : channel; };
    return clamp(red) | (clamp(green) << 8) | (clamp(blue) << 16);
}

constexpr int redOf(Colour colour) {
    return colour & 0xFF;
}
constexpr int greenOf(Colour colour) {
    return (colour >> 8) & 0xFF;
}
constexpr int blueOf(Colour colour) {
    return (colour >> 16) & 0xFF;
}

/// The pixel value that stands for a colour in a Format_RGB32 raster: 0xFFRRGGBB.
constexpr QRgb toPixel(Colour colour) {
    return qRgb(redOf(colour), greenOf(colour), blueOf(colour));
}

constexpr Colour fromPixel(QRgb pixel) {
    return rgb(qRed(pixel), qGreen(pixel), qBlue(pixel));
}

} // namespace ovrano
