#include "document/errordiffusion.h"

#include <algorithm>
#include <cstddef>

namespace ovrano {

namespace {

// Three quarters of the classic 7, 3, 5 and 1 sixteenths, in 64ths.
constexpr int ToRight = 21;
constexpr int ToLowerLeft = 9;
constexpr int ToBelow = 15;
constexpr int ToLowerRight = 3;

int corrected(int channel, int above, int left) {
    return std::clamp(channel + ((above + ToRight * left + 32) >> 6), 0, 255);
}

int passedOn(int own, int last, int beforeLast) {
    return ToLowerLeft * own + ToBelow * last + ToLowerRight * beforeLast;
}

} // namespace

ErrorDiffusion::ErrorDiffusion(const Palette& palette, int width)
    : m_palette(palette)
    , m_table(palette)
    , m_fromAbove(static_cast<std::size_t>(width) + 1) {}

void ErrorDiffusion::map(const QRgb* row, std::uint8_t* indices) {
    Trail trail;
    Channels* const fromAbove = m_fromAbove.data();
    const std::size_t width = m_fromAbove.size() - 1;
    for (std::size_t x = 0; x < width; ++x)
        indices[x] = mapPixel(row[x], fromAbove[x + 1], fromAbove[x], trail);
    passOn({}, fromAbove[width], trail);
}

inline std::uint8_t ErrorDiffusion::mapPixel(QRgb pixel, const Channels& above, Channels& lowerLeft,
                                             Trail& trail) {
    Channels wanted = {qRed(pixel), qGreen(pixel), qBlue(pixel)};
    std::uint8_t index = m_table(wanted.red, wanted.green, wanted.blue);
    if (m_palette[index] != pixel) {
        wanted = {corrected(wanted.red, above.red, trail.last.red),
                  corrected(wanted.green, above.green, trail.last.green),
                  corrected(wanted.blue, above.blue, trail.last.blue)};
        index = m_table(wanted.red, wanted.green, wanted.blue);
    }
    const QRgb got = m_palette[index];
    passOn({wanted.red - qRed(got), wanted.green - qGreen(got), wanted.blue - qBlue(got)}, lowerLeft, trail);
    return index;
}

/// Completes what goes to the pixel on the lower left.
inline void ErrorDiffusion::passOn(const Channels& error, Channels& lowerLeft, Trail& trail) {
    lowerLeft = {passedOn(error.red, trail.last.red, trail.beforeLast.red),
                 passedOn(error.green, trail.last.green, trail.beforeLast.green),
                 passedOn(error.blue, trail.last.blue, trail.beforeLast.blue)};
    trail = {error, trail.last};
}

} // namespace ovrano
