#include "ui/flatcombo.h"

#include "ui/relief.h"

#include <QPainterPath>

namespace ovrano {

namespace {

constexpr QSizeF ArrowSize(7, 4); // pixels

struct Edge {
    QColor topLeft;
    QColor bottomRight;
};

Edge edgeOf(const Relief& relief, FlatState state) {
    switch (state) {
    case FlatState::Hot:
        return {relief.highlight, relief.shadow};
    case FlatState::Down:
        return {relief.shadow, relief.highlight};
    case FlatState::Normal:
    case FlatState::Disabled:
        break;
    }
    return {relief.face, relief.face};
}

QRect inset(const QRect& rect, int pixels) {
    return rect.adjusted(pixels, pixels, -pixels, -pixels);
}

/// The paper that the text stands on, beside the drop-down button.
QRect paperOf(const QRect& box, const QRect& button) {
    QRect paper = inset(box, FlatComboFrame);
    if (button.left() > paper.left())
        paper.setRight(button.left() - 1);
    else
        paper.setLeft(button.right() + 1);
    return paper;
}

void drawPaper(QPainter& painter, const QPalette& palette, const QRect& paper) {
    const QColor colour = palette.color(QPalette::Base);
    painter.fillRect(paper, colour);
    if (canBeToldApart(colour, palette.color(QPalette::Button)))
        return;
    const QColor outline = between(colour, palette.color(QPalette::Text), 0.5);
    drawEdge(painter, paper, outline, outline);
}

void drawArrow(QPainter& painter, const QRect& button, const QColor& colour, bool down) {
    QPointF top = QRectF(button).center() - QPointF(ArrowSize.width() / 2, ArrowSize.height() / 2);
    top = QPointF(qRound(top.x()), qRound(top.y())) + (down ? QPointF(1, 1) : QPointF());
    QPainterPath arrow(top);
    arrow.lineTo(top + QPointF(ArrowSize.width(), 0));
    arrow.lineTo(top + QPointF(ArrowSize.width() / 2, ArrowSize.height()));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(arrow, colour);
    painter.restore();
}

} // namespace

QRect flatComboButton(const QRect& box, const QRect& arrow) {
    const QRect interior = inset(box, FlatComboFrame);
    return QRect(arrow.left(), interior.top(), arrow.width(), interior.height()) & interior;
}

QRect flatComboArrow(const QRect& box, const QRect& arrow) {
    QRect pressed(arrow.left(), box.top(), arrow.width(), box.height());
    if (arrow.center().x() > box.center().x())
        pressed.setRight(box.right());
    else
        pressed.setLeft(box.left());
    return pressed;
}

QRect flatComboField(const QStyleOptionComboBox& box, const QRect& button, const QRect& field) {
    // A pixel of paper around the text, above and below only where there is room for it.
    const QRect paper = paperOf(box.rect, button);
    const int above = paper.height() - 2 >= box.fontMetrics.height() ? 1 : 0;
    return field & paper.adjusted(1, above, -1, -above);
}

QStyleOptionComboBox flatComboLabel(const QStyleOptionComboBox& box) {
    QStyleOptionComboBox label = box;
    label.state.setFlag(QStyle::State_HasFocus, false); // some styles would write as on a selection
    // A placeholder comes with a colour of its own.
    if (box.palette.color(QPalette::ButtonText) != box.palette.color(QPalette::PlaceholderText))
        label.palette.setBrush(QPalette::ButtonText, box.palette.brush(QPalette::Text));
    return label;
}

void drawFlatCombo(QPainter& painter, const QStyleOptionComboBox& box, const QRect& button, FlatState state) {
    const Relief relief = reliefOf(box.palette);
    const auto [topLeft, bottomRight] = edgeOf(relief, state);
    drawEdge(painter, box.rect, topLeft, bottomRight);
    for (int ring = 1; ring < FlatComboFrame; ++ring)
        drawEdge(painter, inset(box.rect, ring), relief.face, relief.face);
    drawPaper(painter, box.palette, paperOf(box.rect, button));
    painter.fillRect(button, relief.face);
    drawEdge(painter, button, topLeft, bottomRight);
    drawArrow(painter, button, box.palette.color(QPalette::ButtonText), state == FlatState::Down);
}

} // namespace ovrano
