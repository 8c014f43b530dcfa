#include "document/errordiffusion.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <utility>

namespace ovrano {

namespace {

// Three quarters of the classic 7, 3, 5 and 1 sixteenths, in 64ths.
constexpr std::int16_t ToRight = 21;
constexpr std::int16_t ToLowerLeft = 9;
constexpr std::int16_t ToBelow = 15;
constexpr std::int16_t ToLowerRight = 3;

// So many pixels a row is behind the one above it: what its next pixel gets from above is complete once the
// pixel on the upper right is mapped; with one more, neither waits for the other.
constexpr std::size_t Lag = 2;

} // namespace

ErrorDiffusion::ErrorDiffusion(const Palette& palette, int width)
    : m_paletteColours(palette)
    , m_table(palette)
    , m_fromAbove(static_cast<std::size_t>(width) + 1) {
    for (const QRgb colour : palette)
        m_channels.push_back(toChannels(colour));
}

void ErrorDiffusion::map(const QRgb* row, std::uint8_t* indices) {
    mapTogether(std::array{row}, std::array{indices});
}

void ErrorDiffusion::map(const std::array<const QRgb*, RowsAtOnce>& rows,
                         const std::array<std::uint8_t*, RowsAtOnce>& indices) {
    mapTogether(rows, indices);
}

template<std::size_t Count>
void ErrorDiffusion::mapTogether(const std::array<const QRgb*, Count>& rows,
                                 const std::array<std::uint8_t*, Count>& indices) {
    const std::size_t width = m_fromAbove.size() - 1;
    constexpr std::size_t LastLag = Lag * (Count - 1);
    std::array<Trail, Count> trails;
    const auto mapOne = [&](std::size_t i, std::size_t x) {
        indices[i][x] = mapPixel(rows[i][x], m_fromAbove[x + 1], m_fromAbove[x], trails[i]);
    };
    const auto mapAll = [&]<std::size_t... I>(std::size_t step, std::index_sequence<I...>) {
        (mapOne(I, step - I * Lag), ...);
    };
    // At the beginning and the end not all rows have a pixel; after its last one, each completes what goes
    // to the pixel below that.
    const auto mapThoseThere = [&](std::size_t step) {
        for (std::size_t i = 0; i < Count && step >= i * Lag; ++i) {
            const std::size_t x = step - i * Lag;
            if (x < width)
                mapOne(i, x);
            else if (x == width)
                passOn(Channels{}, m_fromAbove[width], trails[i]);
        }
    };
    std::size_t step = 0;
    for (; step < LastLag; ++step)
        mapThoseThere(step);
    for (; step < width; ++step)
        mapAll(step, std::make_index_sequence<Count>());
    for (; step <= width + LastLag; ++step)
        mapThoseThere(step);
}

inline ErrorDiffusion::Channels ErrorDiffusion::toChannels(QRgb colour) {
    const auto bytes = std::bit_cast<Vector<std::uint8_t, 8>>(std::uint64_t{colour});
    return std::bit_cast<Channels>(spreadByZeros(bytes));
}

inline QRgb ErrorDiffusion::toColour(Channels channels) {
    return std::bit_cast<QRgb>(lowestBytes<std::int16_t>(channels));
}

inline std::uint8_t ErrorDiffusion::mapPixel(QRgb pixel, const Channels& above, Channels& lowerLeft,
                                             Trail& trail) {
    const Channels plain = toChannels(pixel);
    // At most 255 * (64 + 48) + 32, which 16 bits hold.
    Channels wanted = (plain * 64 + 32 + above + ToRight * trail.last) >> 6;
    wanted = wanted < 0 ? Channels{} : wanted;
    wanted = wanted > 255 ? Channels{} + 255 : wanted;
    // Without a branch: in skies and portraits, where some pixels are palette colours, it is often guessed
    // wrong.
    const Channels isKept = Channels{} + static_cast<std::int16_t>(-int{m_paletteColours.contains(pixel)});
    wanted = (wanted & ~isKept) | (plain & isKept);
    const std::uint8_t index = m_table(toColour(wanted));
    passOn(wanted - m_channels[index], lowerLeft, trail);
    return index;
}

/// Completes what goes to the pixel on the lower left.
inline void ErrorDiffusion::passOn(Channels error, Channels& lowerLeft, Trail& trail) {
    lowerLeft = ToLowerLeft * error + ToBelow * trail.last + ToLowerRight * trail.beforeLast;
    trail = {error, trail.last};
}

} // namespace ovrano
