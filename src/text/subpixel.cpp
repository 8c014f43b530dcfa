#include "text/subpixel.h"

#include "text/sourcepatch.h"

#include <array>

namespace ovrano {

namespace {

constexpr unsigned Whole = 1U << SubpixelBits;

/// Adds the channels of four pixels, each with its weight.
QRgb weightedSum(const std::array<QRgb, 4>& pixels, const std::array<unsigned, 4>& weights) {
    constexpr int Shift = 2 * SubpixelBits;
    unsigned red = Whole * Whole / 2;
    unsigned green = red;
    unsigned blue = red;
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        red += weights[i] * ((pixels[i] >> 16) & 0xFF);
        green += weights[i] * ((pixels[i] >> 8) & 0xFF);
        blue += weights[i] * (pixels[i] & 0xFF);
    }
    return 0xFF000000U | (red >> Shift) << 16 | (green >> Shift) << 8 | blue >> Shift;
}

} // namespace

QRgb mixedPixel(const QRgb* nearest, int right, int down) {
    if (*nearest == SourcePatch::Nothing)
        return SourcePatch::Nothing;
    // The point lies between four pixels, of which the nearest may be any.
    const QRgb* corner = nearest - (right < 0 ? 1 : 0) - (down < 0 ? SourcePatch::Side : 0);
    const auto pixelAt = [&](std::ptrdiff_t place) {
        return corner[place] == SourcePatch::Nothing ? *nearest : corner[place];
    };
    const unsigned x = static_cast<unsigned>(right) % Whole;
    const unsigned y = static_cast<unsigned>(down) % Whole;
    return weightedSum({pixelAt(0), pixelAt(1), pixelAt(SourcePatch::Side), pixelAt(SourcePatch::Side + 1)},
                       {(Whole - x) * (Whole - y), x * (Whole - y), (Whole - x) * y, x * y});
}

} // namespace ovrano
