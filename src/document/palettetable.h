#pragma once

#include "document/nearestcolour.h"
#include "document/palette.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace ovrano {

/// The index of the palette colour nearest to a colour at the cost of two looks into tables, without a
/// comparison and exactly.
///
/// The upper six bits of the channels name a cube of 4 × 4 × 4 colours, the lower two a place in it. A cube
/// that is asked about for the first time gets a block of 64 indices; where one palette colour is the nearest
/// to all its colours, as is often the case, it shares the block of that palette colour.
class PaletteTable {
public:
    /// The palette must outlive the object.
    explicit PaletteTable(const Palette& palette);

    std::uint8_t operator()(QRgb colour) {
        std::uint32_t& block = m_blocks[cubeOf(colour)];
        if (block == Unknown)
            block = blockOf(qRed(colour) & 0xFC, qGreen(colour) & 0xFC, qBlue(colour) & 0xFC);
        return m_indices[block + placeInCube(colour)];
    }

    /// Maps a row of pixels.
    void map(const QRgb* row, int width, std::uint8_t* indices);

private:
    static constexpr std::uint32_t Unknown = 0xFFFFFFFF;

    std::uint32_t blockOf(int red, int green, int blue);

    const Palette& m_palette;
    NearestColour m_nearest;
    std::vector<std::uint32_t> m_blocks; // where a cube's block begins
    std::vector<std::uint8_t> m_indices; // the blocks, first one for each palette colour
};

} // namespace ovrano
