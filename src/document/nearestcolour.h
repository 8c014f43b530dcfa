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
    std::uint8_t operator()(const ColourPoint& point);

    /// The colours that can be the nearest to a point of a cube that crosses no multiple of CubeSide: those
    /// no farther from it than the colour whose greatest distance to it is least. They stay valid until the
    /// next call.
    const Candidates& candidatesIn(const ColourPoint& lowestCorner, float side);

    static constexpr int CubeSide = 16;

private:
    static constexpr std::size_t CubesPerSide = 256 / CubeSide;

    const Candidates& candidatesNear(const ColourPoint& point);
    void narrow(const Candidates& candidates, const ColourPoint& lowestCorner, float side,
                Candidates& narrowed) const;

    std::vector<ColourPoint> m_colours;
    Candidates m_all;
    std::vector<Candidates> m_cubes; // empty until asked about
    Candidates m_asked;
};

} // namespace ovrano
