#pragma once

#include "platform/colour.h"
#include "platform/surface.h"

#include <QString>

#include <cstdint>
#include <vector>

namespace ovrano {

/// Where the face of the text stands: the upper-left corner of its cell, in pixels of the surface.
inline constexpr int TextOriginX = 15;
inline constexpr int TextOriginY = 15;

/// One print of the whole text: the upper-left corner of its cell in pixels, and its colour.
struct TextPrint {
    float x;
    float y;
    Colour colour;

    bool operator==(const TextPrint&) const = default;
};

/// What lies behind a text that looks embossed: four white prints up to a pixel to the upper left, then four
/// black ones to the lower right.
std::vector<TextPrint> reliefPrints();

/// The nine prints of an outline of one pixel, the centre included.
std::vector<TextPrint> outlinePrints(Colour colour);

/// One print for each of `depth` pixels away from the face, the nearest first. `angle` is in radians, from
/// the right towards the bottom.
std::vector<TextPrint> extrusionPrints(Colour colour, std::int32_t depth, double angle);

/// The face itself.
TextPrint facePrint(Colour colour);

/// The radians of an angle of more than 0 whole degrees: just above 0 extrudes downwards, 90 to the left, 180
/// upwards and 270 to the right, but for the four decimals of π that the formula knows.
double extrusionAngle(double degrees);

/// Whether a text holds nothing but the digits 0 to 9. The empty one does.
bool isDigitsOnly(const QString& text);

/// The text of an angle below 360: a number of at least 360 becomes what is left after taking 360 away as
/// often as it goes, any other text stays. Takes digits only, as many as there may be, and loses none of
/// them.
QString withoutFullTurns(const QString& digits);

/// Prints a text in the surface's font in this order; the surface's scale is pixels. Prints of one colour
/// that follow each other are laid down in one go, which differs from single prints by rounding alone. Throws
/// error::OutOfMemory when memory does not suffice.
void printTextLayers(Surface& surface, const QString& text, const std::vector<TextPrint>& prints);

} // namespace ovrano
