#pragma once

#include "platform/colour.h"

#include <QString>

namespace ovrano {

/// The caption that describes the text colour: "RVB(0, 64, 128)  Hex: #004080". A channel of 10 to 15 gives
/// a single letter in the hexadecimal part, which is then shorter than six characters.
QString colourCaption(Colour colour);

/// The colour that the last six characters of a caption stand for, a pair of hexadecimal digits each for
/// red, green and blue. A pair that does not start with a digit counts as 0, so a caption with a shortened
/// hexadecimal part gives another colour than the one it was built from.
Colour colourFromCaption(const QString& caption);

} // namespace ovrano
