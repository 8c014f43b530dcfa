#include "editing/keyboardpointer.h"

#include "platform/arrowkeys.h"
#include "platform/yield.h"

#include <QCursor>
#include <QGuiApplication>

#include <algorithm>

namespace ovrano {

namespace {

QPoint clamped(QPoint point, const QRect& into) {
    return {std::clamp(point.x(), into.left(), into.right()),
            std::clamp(point.y(), into.top(), into.bottom())};
}

} // namespace

KeyboardPointer::KeyboardPointer(PictureView& view, QObject* parent)
    : QObject(parent)
    , m_view(view) {
    view.picDisp->installEventFilter(this);
}

bool KeyboardPointer::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::ShortcutOverride: // no command starts inside a gesture
        if (m_pressed)
            event->accept();
        return m_pressed;
    case QEvent::KeyPress:
        return obey(*static_cast<QKeyEvent*>(event)) || m_pressed;
    case QEvent::MouseButtonPress:
    case QEvent::FocusOut:
        release();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

bool KeyboardPointer::obey(const QKeyEvent& press) {
    const bool nothingToPointAt = m_view.picDisp->rect().isEmpty();
    if (nothingToPointAt || QGuiApplication::mouseButtons() != Qt::NoButton || EventYield::isUnderWay())
        return false;
    const QPoint by = arrowStep(press);
    const bool isButton = press.key() == Qt::Key_Space && !press.isAutoRepeat();
    if (!by.isNull())
        move(by);
    else if (isButton)
        pressOrRelease();
    return isButton || !by.isNull();
}

QPoint KeyboardPointer::pointed() const {
    const QWidget& picture = *m_view.picDisp;
    const bool stillThere = QCursor::pos() == m_left && picture.mapToGlobal(m_at) == m_aimed;
    if (m_pressed || (stillThere && picture.rect().contains(m_at)))
        return m_at;
    const QRect visible = picture.visibleRegion().boundingRect();
    if (visible.isEmpty())
        return QPoint(0, 0);
    const QPoint pointer = picture.mapFromGlobal(QCursor::pos());
    return visible.contains(pointer) ? pointer : visible.center();
}

void KeyboardPointer::move(QPoint by) {
    PictureBox& picture = *m_view.picDisp;
    m_at = pointed() + by;
    if (!m_pressed) // an edge or a zone may be drawn beyond the picture
        m_at = clamped(m_at, picture.rect());
    for (const QPoint corner : {m_at, m_at + QPoint(1, 1)}) // the whole pixel
        m_view.scrollTowards(corner);
    m_aimed = picture.mapToGlobal(m_at);
    QCursor::setPos(m_aimed); // where the system allows it, the user sees it go
    m_left = QCursor::pos();
    picture.pointAt(m_at);
}

void KeyboardPointer::pressOrRelease() {
    if (m_pressed)
        return release();
    m_at = clamped(pointed(), m_view.picDisp->rect());
    m_pressed = true;
    m_view.picDisp->pointAt(m_at);
    m_view.picDisp->pressAt(m_at);
}

void KeyboardPointer::release() {
    if (!m_pressed)
        return;
    m_pressed = false;
    m_view.picDisp->releaseAt(m_at);
}

} // namespace ovrano
