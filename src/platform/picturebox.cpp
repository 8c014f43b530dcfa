#include "platform/picturebox.h"

#include <QAccessibleWidget>
#include <QCoreApplication>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

#include <cmath>
#include <utility>

namespace ovrano {

namespace {

Qt::CursorShape shapeOf(MousePointer pointer) {
    switch (pointer) {
    case MousePointer::Cross:
        return Qt::CrossCursor;
    case MousePointer::SizeNS:
        return Qt::SizeVerCursor;
    case MousePointer::SizeWE:
        return Qt::SizeHorCursor;
    case MousePointer::Hourglass:
        return Qt::WaitCursor;
    case MousePointer::Move:
        return Qt::SizeAllCursor;
    case MousePointer::Default:
        break;
    }
    return Qt::ArrowCursor;
}

/// Tells assistive technology that a box is a picture; by default an unknown widget counts as a container.
QAccessibleInterface* accessiblePicture(const QString&, QObject* object) {
    auto* box = qobject_cast<PictureBox*>(object);
    return box ? new QAccessibleWidget(box, QAccessible::Graphic) : nullptr;
}

} // namespace

QPoint pixelUnderPointer(const QWidget& box, const QMouseEvent& event) {
    // Where the screen has several pixels to one of the picture, the toolkit has rounded the position in the
    // widget, which moves half of all points to a neighbour; that in the window is exact, but for events that
    // no pointer made.
    const QPointF exact = box.mapFrom(box.window(), event.scenePosition());
    const QPointF off = exact - event.position();
    const bool isPointers = std::abs(off.x()) <= 1 && std::abs(off.y()) <= 1;
    const QPointF at = isPointers ? exact : event.position();
    return QPoint(qFloor(at.x()), qFloor(at.y()));
}

PictureBox::PictureBox(Surface& surface, QWidget* parent)
    : QWidget(parent)
    , m_surface(surface) {
    QAccessible::installFactory(accessiblePicture); // again and again does no harm
    setObjectName(surface.objectName());
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setFixedSize(surface.innerSize());
    connect(&surface, &Surface::changed, this, [this](const QRegion& area) { update(area); });
    connect(&surface, &Surface::innerSizeChanged, this, [this](QSize size) { setFixedSize(size); });
    connect(&surface, &Surface::refreshed, this,
            [this] { QCoreApplication::sendPostedEvents(window(), QEvent::UpdateRequest); });
}

void PictureBox::setPointer(MousePointer pointer) {
    if (m_pointer == pointer)
        return;
    m_pointer = pointer;
    setCursor(shapeOf(pointer));
}

void PictureBox::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    for (const QRect& area : event->region())
        m_surface.readShown(area, [&](const QImage& pixels, const QRect& part, QPoint at) {
            painter.drawImage(at, pixels, part);
        });
}

void PictureBox::mousePressEvent(QMouseEvent* event) {
    m_held = event->button();
    Q_EMIT mouseDown(event->button(), pixelUnderPointer(*this, *event));
}

void PictureBox::mouseMoveEvent(QMouseEvent* event) {
    if (m_held != Qt::NoButton && !event->buttons().testFlag(m_held))
        Q_EMIT mouseUp(std::exchange(m_held, Qt::NoButton), pixelUnderPointer(*this, *event));
    Q_EMIT mouseMove(pixelUnderPointer(*this, *event));
}

void PictureBox::mouseReleaseEvent(QMouseEvent* event) {
    m_held = Qt::NoButton;
    Q_EMIT mouseUp(event->button(), pixelUnderPointer(*this, *event));
}

} // namespace ovrano
