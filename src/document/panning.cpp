#include "document/panning.h"

#include <QMouseEvent>

namespace ovrano {

Panning::Panning(QWidget& viewport, QWidget& picture, QScrollBar& horizontal, QScrollBar& vertical,
                 QObject* parent)
    : QObject(parent)
    , m_picture(picture)
    , m_horizontal(horizontal)
    , m_vertical(vertical) {
    viewport.installEventFilter(this);
    picture.installEventFilter(this);
}

bool Panning::eventFilter(QObject* watched, QEvent* event) {
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

bool Panning::press(const QMouseEvent& event) {
    // A gesture of another button goes on; one that starts while panning has to wait for the next press.
    if (event.button() == Qt::MiddleButton && event.buttons() == Qt::MiddleButton) {
        m_hand = event.globalPosition().toPoint();
        showHand(true);
    }
    return m_panning || event.button() == Qt::MiddleButton;
}

bool Panning::move(const QMouseEvent& event) {
    if (m_panning && !event.buttons().testFlag(Qt::MiddleButton))
        showHand(false); // its release went to a window that has opened in between
    if (!m_panning)
        return false;
    const QPoint now = event.globalPosition().toPoint();
    m_horizontal.setValue(m_horizontal.value() - (now - m_hand).x());
    m_vertical.setValue(m_vertical.value() - (now - m_hand).y());
    m_hand = now;
    return true;
}

bool Panning::release(const QMouseEvent& event) {
    const bool ours = m_panning || event.button() == Qt::MiddleButton;
    if (event.button() == Qt::MiddleButton)
        showHand(false);
    return ours;
}

void Panning::showHand(bool shown) {
    if (shown == m_panning)
        return;
    m_panning = shown;
    if (shown)
        m_before = m_picture.cursor();
    m_picture.setCursor(shown ? QCursor(Qt::ClosedHandCursor) : m_before);
}

} // namespace ovrano
