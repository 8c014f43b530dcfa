#pragma once

#include "platform/colour.h"

#include <QString>

#include <cstdint>

namespace ovrano {

/// What the text dialogs remember between two openings, as long as the program runs.
struct WizardMemory {
    QString TwoColourText;           // the text last applied, by either dialog
    std::int16_t Cancelled = 0;      // 1 after a dialog was left without applying it
    Colour Colour3D = Black;         // of outline and extrusion
    Colour TextColour = Black;       // of the letters' face
    std::int32_t ExtrusionDepth = 0; // layers
    double ExtrusionAngle = 0;       // radians
};

} // namespace ovrano
