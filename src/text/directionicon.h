#pragma once

#include "text/extrusion.h"

#include <QIcon>

namespace ovrano {

/// A small extruded square that shows what an extrusion does: which way it runs, how deep it is (1 to 9
/// pixels) and how its colour brightens. It is drawn with the same layers as a text, on the ground of the
/// "Aa" sample.
QIcon directionIcon(Direction direction, std::int16_t depthPixels, Colour colour);

/// The side of the icon in logical pixels.
inline constexpr int DirectionIconSide = 22;

} // namespace ovrano
