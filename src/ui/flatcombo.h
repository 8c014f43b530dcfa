#pragma once

#include "ui/ccontrolflater.h"

#include <QPainter>
#include <QStyleOption>

namespace ovrano {

/// The frame of a flat combo box is three pixels wide: the outer edge and two rings of button face.
inline constexpr int FlatComboFrame = 3;

/// Where the drop-down button is drawn in a box; `arrow` is the room that the desktop's style gives it.
QRect flatComboButton(const QRect& box, const QRect& arrow);

/// Where a press opens the list: that room, and the frame beside it.
QRect flatComboArrow(const QRect& box, const QRect& arrow);

/// Where the text stands, beside that button; `field` is the room that the desktop's style gives it.
QRect flatComboField(const QStyleOptionComboBox& box, const QRect& button, const QRect& field);

/// What the desktop's style needs to know to write the text of a box that cannot be edited on paper instead
/// of a button.
QStyleOptionComboBox flatComboLabel(const QStyleOptionComboBox& box);

/// Draws all of a box but its text and its focus.
void drawFlatCombo(QPainter& painter, const QStyleOptionComboBox& box, const QRect& button, FlatState state);

} // namespace ovrano
