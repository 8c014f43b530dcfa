#include "document/palettetable.h"

#include <array>
#include <limits>

namespace ovrano {

namespace {

constexpr std::size_t BlockSize = 64;

/// Distances and indices of the nearest palette colours so far, for the 64 colours of a cube.
struct Nearest {
    std::array<int, BlockSize> distances;
    std::array<int, BlockSize> indices;
};

/// Squared distances from a channel of a colour to the four levels from `level` on.
std::array<int, 4> squaredSteps(int channel, int level) {
    std::array<int, 4> steps;
    for (int i = 0; i < 4; ++i)
        steps[static_cast<std::size_t>(i)] = (channel - level - i) * (channel - level - i);
    return steps;
}

void compare(Nearest& nearest, QRgb colour, int index, int red, int green, int blue) {
    const auto reds = squaredSteps(qRed(colour), red);
    const auto greens = squaredSteps(qGreen(colour), green);
    const auto blues = squaredSteps(qBlue(colour), blue);
    for (std::size_t place = 0; place < BlockSize; place += 4) {
        const int redGreen = reds[place >> 4] + greens[place >> 2 & 3];
        for (std::size_t i = 0; i < 4; ++i) {
            const int distance = redGreen + blues[i];
            const bool nearer = distance < nearest.distances[place + i];
            nearest.distances[place + i] = nearer ? distance : nearest.distances[place + i];
            nearest.indices[place + i] = nearer ? index : nearest.indices[place + i];
        }
    }
}

} // namespace

PaletteTable::PaletteTable(const Palette& palette)
    : m_palette(palette)
    , m_nearest(toPoints(palette))
    , m_blocks(std::size_t{1} << 18, Unknown) {
    for (std::size_t index = 0; index < palette.size(); ++index)
        m_indices.insert(m_indices.end(), BlockSize, static_cast<std::uint8_t>(index));
}

void PaletteTable::map(const QRgb* row, int width, std::uint8_t* indices) {
    // Of runs of a colour, as drawings have them, only the first pixel is looked up.
    QRgb last = ~row[0];
    std::uint8_t index = 0;
    for (int x = 0; x < width; ++x) {
        const QRgb pixel = row[x];
        if (pixel != last) {
            last = pixel;
            index = (*this)(pixel);
        }
        indices[x] = index;
    }
}

std::uint32_t PaletteTable::blockOf(int red, int green, int blue) {
    const auto& candidates = m_nearest.candidatesIn({float(red), float(green), float(blue)}, 3);
    if (candidates.size() == 1)
        return candidates.front() * std::uint32_t{BlockSize};
    Nearest nearest;
    nearest.distances.fill(std::numeric_limits<int>::max());
    for (const std::uint8_t candidate : candidates)
        compare(nearest, m_palette[candidate], candidate, red, green, blue);
    const auto block = static_cast<std::uint32_t>(m_indices.size());
    for (const int index : nearest.indices)
        m_indices.push_back(static_cast<std::uint8_t>(index));
    return block;
}

} // namespace ovrano
