#include "platform/arrowkeys.h"

namespace ovrano {

namespace {

QPoint directionOf(int key) {
    switch (key) {
    case Qt::Key_Left:
        return QPoint(-1, 0);
    case Qt::Key_Right:
        return QPoint(1, 0);
    case Qt::Key_Up:
        return QPoint(0, -1);
    case Qt::Key_Down:
        return QPoint(0, 1);
    default:
        return QPoint();
    }
}

} // namespace

QPoint arrowStep(const QKeyEvent& press) {
    constexpr int Step = 1;
    constexpr int LongStep = 10;
    if (press.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return QPoint();
    return directionOf(press.key()) * (press.modifiers().testFlag(Qt::ShiftModifier) ? LongStep : Step);
}

} // namespace ovrano
