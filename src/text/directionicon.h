#pragma once

#include "text/extrusion.h"

#include <QIcon>
#include <QPalette>

namespace ovrano {

/// A small extruded square that shows which way an extrusion runs. It is drawn with the layers that texts
/// are drawn with, in the colours of a palette, so that it stands out on dark lists as well.
QIcon directionIcon(Direction direction, const QPalette& palette);

/// The side of the icon in logical pixels.
inline constexpr int DirectionIconSide = 16;

} // namespace ovrano
