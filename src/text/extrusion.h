#pragma once

#include "platform/colour.h"
#include "platform/surface.h"

#include <QString>

#include <cstdint>
#include <vector>

namespace ovrano {

/// The four directions of an extruded text, numbered as their list shows them from 1. The upper two name the
/// side that the extrusion runs to; LowerLeft runs to the lower right and LowerRight to the lower left.
enum class Direction { UpperLeft = 1, UpperRight = 2, LowerLeft = 3, LowerRight = 4 };

/// One print of the text: the twips of its upper-left corner from that of the surface, and its colour.
struct TextLayer {
    std::int16_t x;
    std::int16_t y;
    Colour colour;

    bool operator==(const TextLayer&) const = default;
};

/// The brightest colour of a layer: white would become see-through in the mask that is cut later.
inline constexpr Colour BrightestLayer = 0xFFEEFF;

/// Prints a text at a place given in the surface's scale, in its font, in a colour of at most
/// BrightestLayer.
void PrintTextLayer(Surface& surface, float x, float y, Colour colour, const QString& text);

/// How many twips an extrusion of that many pixels moves. Throws error::Overflow beyond 16 bits.
std::int16_t extrusionDepth(std::int16_t pixels);

/// All depth + 1 layers from the farthest to the front, one per twip. Layer 0 has the colour as it is; the
/// others brighten by one step each, from a colour darkened where needed for the front to stay within 255.
/// Throws error::Overflow where a coordinate leaves 16 bits.
std::vector<TextLayer> extrusionLayers(Colour colour, std::int16_t depth, Direction direction);

/// The layers that stay visible, in the same order. Layers whose twips fall into the same pixel cover the
/// same pixels, so only the last of them counts.
std::vector<TextLayer> visibleLayers(const std::vector<TextLayer>& layers);

/// Prints the visible layers of a text on a surface whose scale is twips.
void printExtrusion(Surface& surface, const std::vector<TextLayer>& layers, const QString& text);

} // namespace ovrano
