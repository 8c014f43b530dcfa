#include "ui/outlines.h"

#include "ui/relief.h"

namespace ovrano {

void outlineWhereNeeded(QPainter& painter, const QRect& part, const QStyleOption& control) {
    constexpr int ShadePercent = 140; // what the styles ask for
    const QColor window = control.palette.color(QPalette::Window);
    if (canBeToldApart(window.darker(ShadePercent), window))
        return;
    const QColor outline = control.palette.color(QPalette::WindowText);
    drawEdge(painter, part, outline, outline);
}

} // namespace ovrano
