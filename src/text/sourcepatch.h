#pragma once

#include "platform/raster.h"

#include <cstddef>
#include <optional>

namespace ovrano {

/// A square part of a raster, copied out for random access.
///
/// A pixel that is not to be copied is Nothing: what lies outside the raster and, if wanted, what has one
/// particular colour. No picture pixel has that value, their highest byte is always 0xFF.
class SourcePatch {
public:
    /// Pixels in a row; as large as a tile, whose memory is read from start to end when the patch is one.
    static constexpr int Side = Raster::TileSide;
    static constexpr QRgb Nothing = 0;

    /// Pixels of the colour `skipped` are taken for Nothing. Throws error::OutOfMemory without memory.
    explicit SourcePatch(std::optional<Colour> skipped);
    SourcePatch(const SourcePatch&) = delete;
    SourcePatch& operator=(const SourcePatch&) = delete;
    ~SourcePatch() = default;

    /// Copies an area of at most Side × Side pixels, any part of which may lie outside the raster.
    void load(const Raster& raster, const QRect& area);

    const QRect& area() const { return m_area; }
    /// Whether none of the area's pixels is Nothing.
    bool isWhole() const { return m_isWhole; }
    /// The rows of the area between the first and the last with a pixel that is not Nothing.
    const QRect& inkedRows() const { return m_inkedRows; }

    /// The pixel at a place of the area; the pixel below it is Side further on.
    const QRgb* at(int x, int y) const { return m_pixels + std::ptrdiff_t{y} * Side + x; }

private:
    void copyTile(const QImage& tile, const QRect& place);

    QRgb m_skipped;
    QRect m_area;
    QRect m_inkedRows;
    bool m_isWhole = false;
    Tile m_memory; // kept for the next patch when this one goes
    QRgb* m_pixels;
};

} // namespace ovrano
