#pragma once

#include <QRgb>

#include <array>
#include <cstddef>
#include <cstdint>
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

/// Which of the 64 × 64 × 64 cubes of 4 × 4 × 4 colours a colour is in, by the upper six bits of its
/// channels.
inline std::size_t cubeOf(QRgb colour) {
    return (colour >> 6 & 0x3F000) | (colour >> 4 & 0xFC0) | (colour >> 2 & 0x3F);
}

/// Where in its cube a colour is, by the lower two bits of its channels: 0 to 63.
inline std::size_t placeInCube(QRgb colour) {
    return (colour >> 12 & 0x30) | (colour >> 6 & 0xC) | (colour & 3);
}

/// Counts the pixels of each of the 16777216 colours.
///
/// A cube gets its block of 64 counts when its first pixel comes: the few thousand cubes that a photograph
/// fills fit into the processor's cache. All cubes together take 64 MB.
class ColourCounts {
public:
    ColourCounts();

    void add(const QRgb* row, int width);
    /// What others have counted.
    void add(const ColourCounts& others);

    /// How many colours there are.
    std::size_t size() const;

    /// One bin for all the colours that share a cube of the given side: 1, which tells all colours apart, 2
    /// or 4. The means are exact. The order is the same for the same picture.
    ColourHistogram histogram(int side) const;

private:
    void addGroup(const QRgb* pixels);
    std::uint32_t& countOf(QRgb colour);
    std::uint32_t* blockOf(std::size_t cube);

    std::vector<std::uint32_t> m_blocks; // where a cube's block begins in the counts
    std::vector<std::uint32_t> m_counts;
};

} // namespace ovrano
