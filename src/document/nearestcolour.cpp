#include "document/nearestcolour.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace ovrano {

namespace {

/// Squared distances from a colour to the nearest and to the farthest point of a cube.
struct Reach {
    float least = 0;
    float greatest = 0;
};

Reach reachOf(const ColourPoint& colour, const ColourPoint& lowestCorner, float side) {
    Reach reach;
    const float half = side / 2;
    for (std::size_t i = 0; i < colour.size(); ++i) {
        const float fromMiddle = std::abs(colour[i] - (lowestCorner[i] + half));
        const float outside = std::max(0.0F, fromMiddle - half);
        const float across = fromMiddle + half;
        reach.least += outside * outside;
        reach.greatest += across * across;
    }
    return reach;
}

} // namespace

NearestColour::NearestColour(std::span<const ColourPoint> colours)
    : m_colours(colours.begin(), colours.end())
    , m_all(colours.size())
    , m_cubes(CubesPerSide * CubesPerSide * CubesPerSide) {
    std::iota(m_all.begin(), m_all.end(), std::uint8_t{0});
}

std::uint8_t NearestColour::operator()(const ColourPoint& point) {
    std::uint8_t nearest = 0;
    float least = std::numeric_limits<float>::max();
    for (const std::uint8_t candidate : candidatesNear(point)) {
        const float distance = squaredDistance(point, m_colours[candidate]);
        if (distance < least) {
            least = distance;
            nearest = candidate;
        }
    }
    return nearest;
}

const NearestColour::Candidates& NearestColour::candidatesIn(const ColourPoint& lowestCorner, float side) {
    narrow(candidatesNear(lowestCorner), lowestCorner, side, m_asked);
    return m_asked;
}

const NearestColour::Candidates& NearestColour::candidatesNear(const ColourPoint& point) {
    std::size_t place = 0;
    ColourPoint corner;
    for (std::size_t i = 0; i < point.size(); ++i) {
        const auto cube = static_cast<std::size_t>(point[i]) / CubeSide;
        place = place * CubesPerSide + cube;
        corner[i] = static_cast<float>(cube * CubeSide);
    }
    if (m_cubes[place].empty())
        narrow(m_all, corner, CubeSide, m_cubes[place]);
    return m_cubes[place];
}

void NearestColour::narrow(const Candidates& candidates, const ColourPoint& lowestCorner, float side,
                           Candidates& narrowed) const {
    std::array<float, 256> least;
    float bound = std::numeric_limits<float>::max();
    for (const std::uint8_t candidate : candidates) {
        const Reach reach = reachOf(m_colours[candidate], lowestCorner, side);
        least[candidate] = reach.least;
        bound = std::min(bound, reach.greatest);
    }
    narrowed.clear();
    for (const std::uint8_t candidate : candidates)
        if (least[candidate] <= bound)
            narrowed.push_back(candidate);
}

} // namespace ovrano
