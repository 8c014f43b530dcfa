#include "document/edgepixelmouse.h"

#include "platform/picturebox.h"

#include <QCoreApplication>
#include <QMouseEvent>

#include <utility>

namespace ovrano {

EdgePixelMouse::EdgePixelMouse(QWidget& viewport, QWidget& picture, QObject* parent)
    : QObject(parent)
    , m_viewport(viewport)
    , m_picture(picture) {
    viewport.setMouseTracking(true);
    viewport.installEventFilter(this);
}

bool EdgePixelMouse::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return press(*static_cast<QMouseEvent*>(event));
    case QEvent::MouseMove:
        return move(*static_cast<QMouseEvent*>(event));
    case QEvent::MouseButtonRelease:
        return release(*static_cast<QMouseEvent*>(event));
    default:
        return QObject::eventFilter(watched, event);
    }
}

bool EdgePixelMouse::press(const QMouseEvent& event) {
    // The release of the gesture before may have gone to a window that has opened in between.
    const bool goesOn = m_pressed && event.buttons() != event.button();
    m_pressed = goesOn || isOnPicture(event);
    if (!m_pressed)
        return false;
    m_picture.setFocus(Qt::MouseFocusReason);
    pass(event);
    return true;
}

bool EdgePixelMouse::move(const QMouseEvent& event) {
    const bool nothingHeld = event.buttons() == Qt::NoButton;
    // A release that went to a window that has opened in between is told by the next move.
    const bool ours = std::exchange(m_pressed, m_pressed && !nothingHeld);
    if (ours || (nothingHeld && isOnPicture(event))) {
        pass(event);
        m_viewport.setCursor(m_picture.cursor());
        return true;
    }
    m_viewport.unsetCursor();
    return false;
}

bool EdgePixelMouse::release(const QMouseEvent& event) {
    if (!std::exchange(m_pressed, m_pressed && event.buttons() != Qt::NoButton))
        return false;
    pass(event);
    return true;
}

bool EdgePixelMouse::isOnPicture(const QMouseEvent& event) const {
    return m_picture.rect().contains(pixelUnderPointer(m_picture, forPicture(event)));
}

/// The same event as the picture would get it.
QMouseEvent EdgePixelMouse::forPicture(const QMouseEvent& event) const {
    return {event.type(),          m_picture.mapFrom(&m_viewport, event.position()),
            event.scenePosition(), event.globalPosition(),
            event.button(),        event.buttons(),
            event.modifiers()};
}

void EdgePixelMouse::pass(const QMouseEvent& event) {
    QMouseEvent passed = forPicture(event);
    QCoreApplication::sendEvent(&m_picture, &passed);
}

} // namespace ovrano
