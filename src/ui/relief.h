#pragma once

#include <QColor>
#include <QPainter>
#include <QPalette>
#include <QRect>

namespace ovrano {

/// The colours that a control's edges and its face are drawn in.
struct Relief {
    QColor face;      // "button face"
    QColor highlight; // "3D highlight"
    QColor shadow;    // "button shadow"
};

/// The relief of a palette's current colour group: Button, Light and Dark. Where neither edge can be told
/// from the face (palettes made from a black or a plain button colour), the edges are the button's text
/// colour and the colour half-way to it, the lighter one as the highlight.
Relief reliefOf(const QPalette& palette);

/// Whether two colours can be told apart on a screen.
bool canBeToldApart(const QColor& one, const QColor& other);

/// A colour between two others; share 0 is the first, 1 the second.
QColor between(const QColor& first, const QColor& second, double share);

/// Draws an edge of one logical pixel just inside a rectangle. The corners at the top right and the bottom
/// left belong to the bottom-right side.
void drawEdge(QPainter& painter, const QRect& rect, const QColor& topLeft, const QColor& bottomRight);

} // namespace ovrano
