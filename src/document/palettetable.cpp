#include "document/palettetable.h"

namespace ovrano {

namespace {

constexpr std::size_t BlockSize = 64;

} // namespace

PaletteTable::PaletteTable(const Palette& palette)
    : m_nearest(toPoints(palette))
    , m_blocks(std::size_t{1} << 18, Unknown) {
    for (std::size_t index = 0; index < palette.size(); ++index)
        m_indices.insert(m_indices.end(), BlockSize, static_cast<std::uint8_t>(index));
}

std::uint32_t PaletteTable::blockOf(int red, int green, int blue) {
    const ColourPoint corner = {float(red), float(green), float(blue)};
    const NearestColour::Candidates candidates = m_nearest.candidatesIn(corner, 3);
    if (candidates.size() == 1)
        return candidates.front() * std::uint32_t{BlockSize};
    const std::size_t block = m_indices.size();
    for (std::size_t place = 0; place < BlockSize; ++place)
        m_indices.push_back(
            m_nearest.nearestOf(candidates, {corner[0] + float(place >> 4), corner[1] + float(place >> 2 & 3),
                                             corner[2] + float(place & 3)}));
    return static_cast<std::uint32_t>(block);
}

} // namespace ovrano
