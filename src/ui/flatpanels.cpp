#include "ui/flatpanels.h"

#include "ui/relief.h"

#include <QStyle>

namespace ovrano {

namespace {

// How much of an edge's colour is in the face.
constexpr double UnderPointer = 0.3;
constexpr double Pressed = 0.25;

QRect within(const QRect& rect) {
    return rect.adjusted(1, 1, -1, -1);
}

void drawStaticEdge(QPainter& painter, const QRect& rect, const Relief& relief) {
    drawEdge(painter, rect, relief.shadow, relief.highlight);
}

void drawRing(QPainter& painter, const QRect& rect, const QColor& colour) {
    drawEdge(painter, rect, colour, colour);
}

bool isDefault(const QStyleOption& option) {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
    return button && button->features.testFlag(QStyleOptionButton::DefaultButton);
}

bool showsFocus(const QStyleOption& option) {
    return option.state.testFlag(QStyle::State_HasFocus) &&
           option.state.testFlag(QStyle::State_KeyboardFocusChange);
}

QColor faceOf(const Relief& relief, QStyle::State state, bool down) {
    if (down)
        return between(relief.face, relief.shadow, Pressed);
    const bool hot = state.testFlag(QStyle::State_MouseOver) && state.testFlag(QStyle::State_Enabled);
    return hot ? between(relief.face, relief.highlight, UnderPointer) : relief.face;
}

} // namespace

void drawFlatButton(QPainter& painter, const QStyleOption& button) {
    const Relief relief = reliefOf(button.palette);
    const bool down = button.state & (QStyle::State_Sunken | QStyle::State_On);
    const QRect inner = within(button.rect);
    drawStaticEdge(painter, button.rect, relief);
    painter.fillRect(inner, faceOf(relief, button.state, down));
    if (down)
        drawEdge(painter, inner, relief.shadow, relief.highlight);
    else if (button.state.testFlag(QStyle::State_Enabled))
        drawEdge(painter, inner, relief.highlight, relief.shadow);
    const QColor selection = button.palette.color(QPalette::Highlight);
    if (!down && (isDefault(button) || showsFocus(button)))
        drawRing(painter, inner, selection);
    if (showsFocus(button))
        drawRing(painter, within(inner), selection);
}

void drawFlatField(QPainter& painter, const QStyleOptionFrame& field) {
    painter.fillRect(within(field.rect), field.palette.brush(QPalette::Base));
    drawStaticEdge(painter, field.rect, reliefOf(field.palette));
    const QColor selection = field.palette.color(QPalette::Highlight);
    if (field.state.testFlag(QStyle::State_HasFocus))
        drawRing(painter, within(field.rect), selection);
}

void drawFlatListFrame(QPainter& painter, const QStyleOptionFrame& frame) {
    drawStaticEdge(painter, frame.rect, reliefOf(frame.palette));
    const QColor paper = frame.palette.color(QPalette::Base);
    QRect ring = frame.rect;
    for (int width = 1; width < frame.lineWidth; ++width) {
        ring = within(ring);
        drawRing(painter, ring, paper);
    }
}

} // namespace ovrano
