#include "document/colourhistogram.h"

#include <algorithm>
#include <functional>
#include <span>

namespace ovrano {

namespace {

constexpr int CubeSide = 4;
constexpr std::size_t Cubes = std::size_t{1} << 18;
constexpr std::size_t BlockSize = 64;
constexpr int Group = 4; // pixels
constexpr std::uint32_t NoBlock = 0xFFFFFFFF;

/// The colour of a place in a cube.
std::array<int, 3> channelsOf(std::size_t cube, int place) {
    const auto corner = static_cast<int>(cube);
    return {(corner >> 12) * CubeSide + (place >> 4), (corner >> 6 & 63) * CubeSide + (place >> 2 & 3),
            (corner & 63) * CubeSide + (place & 3)};
}

/// Count of pixels and the sums of their channels.
struct Sums {
    std::uint64_t pixels = 0;
    std::array<std::uint64_t, 3> channels = {};

    void add(const std::array<int, 3>& colour, std::uint32_t count) {
        pixels += count;
        for (std::size_t i = 0; i < channels.size(); ++i)
            channels[i] += std::uint64_t{count} * static_cast<std::uint64_t>(colour[i]);
    }
    ColourBin bin() const {
        ColourBin bin;
        bin.pixels = static_cast<float>(pixels);
        for (std::size_t i = 0; i < channels.size(); ++i)
            bin.mean[i] = static_cast<float>(double(channels[i]) / double(pixels));
        return bin;
    }
};

/// Which of the smaller cubes of the given side has a place of a cube.
std::size_t partOf(int place, int side) {
    const int parts = CubeSide / side;
    const int part = ((place >> 4) / side * parts + (place >> 2 & 3) / side) * parts + (place & 3) / side;
    return static_cast<std::size_t>(part);
}

void appendBins(std::size_t cube, std::span<const std::uint32_t> counts, int side,
                ColourHistogram& histogram) {
    std::array<Sums, BlockSize> parts;
    for (int place = 0; place < int{BlockSize}; ++place)
        if (const std::uint32_t count = counts[static_cast<std::size_t>(place)])
            parts[partOf(place, side)].add(channelsOf(cube, place), count);
    for (const Sums& part : parts)
        if (part.pixels > 0)
            histogram.push_back(part.bin());
}

} // namespace

ColourCounts::ColourCounts()
    : m_blocks(Cubes, NoBlock) {}

void ColourCounts::add(const QRgb* row, int width) {
    int x = 0;
    for (; x + Group <= width; x += Group)
        addGroup(row + x);
    for (; x < width; ++x)
        ++countOf(row[x]);
}

/// Groups of one colour, as drawings have them, are counted at once; to find shorter runs in a photograph
/// would take longer than to count.
inline void ColourCounts::addGroup(const QRgb* pixels) {
    QRgb differing = 0;
    for (int i = 1; i < Group; ++i)
        differing |= pixels[i] ^ pixels[0];
    if (differing == 0)
        countOf(pixels[0]) += Group;
    else
        for (int i = 0; i < Group; ++i)
            ++countOf(pixels[i]);
}

inline std::uint32_t& ColourCounts::countOf(QRgb colour) {
    return blockOf(cubeOf(colour))[placeInCube(colour)];
}

inline std::uint32_t* ColourCounts::blockOf(std::size_t cube) {
    std::uint32_t& block = m_blocks[cube];
    if (block == NoBlock) {
        block = static_cast<std::uint32_t>(m_counts.size());
        m_counts.resize(m_counts.size() + BlockSize);
    }
    return m_counts.data() + block;
}

void ColourCounts::add(const ColourCounts& others) {
    for (std::size_t cube = 0; cube < Cubes; ++cube) {
        if (others.m_blocks[cube] == NoBlock)
            continue;
        std::uint32_t* own = blockOf(cube);
        const std::uint32_t* theirs = others.m_counts.data() + others.m_blocks[cube];
        std::transform(own, own + BlockSize, theirs, own, std::plus<>());
    }
}

std::size_t ColourCounts::size() const {
    return m_counts.size() - static_cast<std::size_t>(std::count(m_counts.begin(), m_counts.end(), 0U));
}

ColourHistogram ColourCounts::histogram(int side) const {
    ColourHistogram histogram;
    for (std::size_t cube = 0; cube < Cubes; ++cube)
        if (m_blocks[cube] != NoBlock)
            appendBins(cube, std::span(m_counts).subspan(m_blocks[cube], BlockSize), side, histogram);
    return histogram;
}

} // namespace ovrano
