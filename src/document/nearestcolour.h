#pragma once

#include "document/colourhistogram.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace ovrano {

/// Finds the nearest of up to 256 colours, exactly, by the distance in red, green and blue.
///
/// Colour space is divided into cubes. For each cube that is asked about, the colours that can be the nearest
/// to one of its points are listed once, and only these are compared. (The idea is that of the locally sorted
/// search in P. Heckbert, "Color image quantization for frame buffer display", SIGGRAPH 1982.)
class NearestColour {
public:
    /// Places of colours, in ascending order.
    using Candidates = std::vector<std::uint8_t>;

    explicit NearestColour(std::span<const ColourPoint> colours);

    /// The place of the nearest colour; of equally near ones, the first.
    std::uint8_t operator()(const ColourPoint& point) { return nearestOf(candidatesNear(point), point); }

    /// The nearest of some of the colours.
    std::uint8_t nearestOf(const Candidates& candidates, const ColourPoint& point) const;

    /// The colours that can be the nearest to a point of the cube with the given lowest corner: those no
    /// farther from the cube than the colour whose greatest distance to the cube is least. The cube must not
    /// cross the borders of the cubes with sides of CubeSide.
    Candidates candidatesIn(const ColourPoint& corner, float side) {
        return narrowed(candidatesNear(corner), corner, side);
    }

    static constexpr float CubeSide = 16;

private:
    static constexpr std::size_t CubesPerSide = 16;

    const Candidates& candidatesNear(const ColourPoint& point);
    Candidates narrowed(const Candidates& candidates, const ColourPoint& corner, float side) const;

    std::vector<ColourPoint> m_colours;
    Candidates m_all;
    std::vector<Candidates> m_cubes; // empty until asked about
};

} // namespace ovrano
