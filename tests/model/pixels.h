#pragma once

#include <cstdint>
#include <vector>

namespace ovrano::model {

/// 0xRRGGBB.
using Rgb = std::uint32_t;

inline constexpr Rgb WhitePixel = 0xFFFFFF;
inline constexpr Rgb BlackPixel = 0x000000;

/// A rectangle in pixels.
struct Box {
    int x = 0, y = 0, width = 0, height = 0;
};

/// A picture as a plain array, row by row.
struct Pixels {
    int width = 0, height = 0;
    std::vector<Rgb> colours;

    Pixels() = default;
    Pixels(int w, int h, Rgb colour)
        : width(w)
        , height(h)
        , colours(static_cast<std::size_t>(w) * static_cast<std::size_t>(h), colour) {}

    bool isEmpty() const { return colours.empty(); }
    bool has(int x, int y) const { return x >= 0 && y >= 0 && x < width && y < height; }
    Rgb get(int x, int y) const { return colours[index(x, y)]; }
    void set(int x, int y, Rgb colour) { colours[index(x, y)] = colour; }
    bool operator==(const Pixels& other) const = default;

private:
    std::size_t index(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x);
    }
};

} // namespace ovrano::model
