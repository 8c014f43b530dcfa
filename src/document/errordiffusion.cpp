#include "document/errordiffusion.h"

#include <algorithm>
#include <bit>
#include <cstddef>

namespace ovrano {

namespace {

using Bytes [[gnu::vector_size(4)]] = std::uint8_t;
using EightBytes [[gnu::vector_size(8)]] = std::uint8_t;

// Three quarters of the classic 7, 3, 5 and 1 sixteenths, in 64ths.
constexpr std::int16_t ToRight = 21;
constexpr std::int16_t ToLowerLeft = 9;
constexpr std::int16_t ToBelow = 15;
constexpr std::int16_t ToLowerRight = 3;

// So many pixels the lower of two rows is behind the upper one: what its next pixel gets from above is
// complete once the pixel on the upper right is mapped; with one more, neither waits for the other.
constexpr std::size_t Lag = 2;

} // namespace

ErrorDiffusion::ErrorDiffusion(const Palette& palette, int width)
    : m_palette(palette)
    , m_table(palette)
    , m_fromAbove(static_cast<std::size_t>(width) + 1) {
    for (const QRgb colour : palette)
        m_channels.push_back(toChannels(colour));
}

void ErrorDiffusion::map(const QRgb* row, std::uint8_t* indices) {
    Trail trail;
    mapPart(row, indices, 0, m_fromAbove.size() - 1, trail);
    passOn(Channels{}, m_fromAbove.back(), trail);
}

void ErrorDiffusion::map(const QRgb* upper, const QRgb* lower, std::uint8_t* upperIndices,
                         std::uint8_t* lowerIndices) {
    const std::size_t width = m_fromAbove.size() - 1;
    const std::size_t lag = std::min(Lag, width);
    Channels* const fromAbove = m_fromAbove.data();
    Trail upperTrail;
    Trail lowerTrail;
    mapPart(upper, upperIndices, 0, lag, upperTrail);
    for (std::size_t x = lag; x < width; ++x) {
        const std::size_t behind = x - lag;
        upperIndices[x] = mapPixel(upper[x], fromAbove[x + 1], fromAbove[x], upperTrail);
        lowerIndices[behind] = mapPixel(lower[behind], fromAbove[behind + 1], fromAbove[behind], lowerTrail);
    }
    passOn(Channels{}, fromAbove[width], upperTrail);
    mapPart(lower, lowerIndices, width - lag, width, lowerTrail);
    passOn(Channels{}, fromAbove[width], lowerTrail);
}

/// Maps the pixels from `begin` to before `end`.
inline void ErrorDiffusion::mapPart(const QRgb* row, std::uint8_t* indices, std::size_t begin,
                                    std::size_t end, Trail& trail) {
    for (std::size_t x = begin; x < end; ++x)
        indices[x] = mapPixel(row[x], m_fromAbove[x + 1], m_fromAbove[x], trail);
}

inline ErrorDiffusion::Channels ErrorDiffusion::toChannels(QRgb colour) {
    // A zero after each byte: one instruction, where converting four bytes would take the compiler ten.
    const auto bytes = std::bit_cast<EightBytes>(std::uint64_t{colour});
    return std::bit_cast<Channels>(__builtin_shufflevector(bytes, EightBytes{}, 0, 8, 1, 9, 2, 10, 3, 11));
}

inline QRgb ErrorDiffusion::toColour(Channels channels) {
    return std::bit_cast<QRgb>(__builtin_convertvector(channels, Bytes));
}

inline std::uint8_t ErrorDiffusion::mapPixel(QRgb pixel, const Channels& above, Channels& lowerLeft,
                                             Trail& trail) {
    Channels wanted = toChannels(pixel);
    std::uint8_t index = m_table(pixel);
    if (m_palette[index] != pixel) {
        // At most 255 * (64 + 48) + 32, which 16 bits hold.
        wanted = (wanted * 64 + 32 + above + ToRight * trail.last) >> 6;
        wanted = wanted < 0 ? Channels{} : wanted;
        wanted = wanted > 255 ? Channels{} + 255 : wanted;
        index = m_table(toColour(wanted));
    }
    passOn(wanted - m_channels[index], lowerLeft, trail);
    return index;
}

/// Completes what goes to the pixel on the lower left.
inline void ErrorDiffusion::passOn(Channels error, Channels& lowerLeft, Trail& trail) {
    lowerLeft = ToLowerLeft * error + ToBelow * trail.last + ToLowerRight * trail.beforeLast;
    trail = {error, trail.last};
}

} // namespace ovrano
