#pragma once

#include <QPainter>
#include <QStyleOption>

namespace ovrano {

/// Draws an outline in the text's colour around the part of a control that shows a state or can be dragged
/// (a check box, the handle of a slider), in palettes of high contrast: the desktop's styles draw such
/// outlines in a darker shade of the window's colour, and there is none of black.
void outlineWhereNeeded(QPainter& painter, const QRect& part, const QStyleOption& control);

} // namespace ovrano
