#pragma once

#include <QPainter>
#include <QStyleOption>

namespace ovrano {

/// A button: the static edge, and within it a face that rises, or sinks while the button is pressed or on.
/// The face of the default button is framed in the highlight colour.
void drawFlatButton(QPainter& painter, const QStyleOption& button);

/// A text box: the static edge around the paper; while it has the keyboard, the paper is framed in the
/// highlight colour.
void drawFlatField(QPainter& painter, const QStyleOptionFrame& field);

/// The static edge of a list, and paper between it and the rows.
void drawFlatListFrame(QPainter& painter, const QStyleOptionFrame& frame);

} // namespace ovrano
