#include "platform/picturebox.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

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

QPoint pixelAt(const QMouseEvent& event) {
    const QPointF at = event.position();
    return QPoint(qFloor(at.x()), qFloor(at.y()));
}

} // namespace

PictureBox::PictureBox(Surface& surface, QWidget* parent)
    : QWidget(parent)
    , m_surface(surface) {
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
        m_surface.Image().readTiles(area, [&](const QImage& tile, const QRect& place) {
            const QPoint inTile(place.left() % Raster::TileSide, place.top() % Raster::TileSide);
            painter.drawImage(place.topLeft(), tile, QRect(inTile, place.size()));
        });
}

void PictureBox::mousePressEvent(QMouseEvent* event) {
    m_held = event->button();
    Q_EMIT mouseDown(event->button(), pixelAt(*event));
}

void PictureBox::mouseMoveEvent(QMouseEvent* event) {
    if (m_held != Qt::NoButton && !event->buttons().testFlag(m_held))
        Q_EMIT mouseUp(std::exchange(m_held, Qt::NoButton), pixelAt(*event));
    Q_EMIT mouseMove(pixelAt(*event));
}

void PictureBox::mouseReleaseEvent(QMouseEvent* event) {
    m_held = Qt::NoButton;
    Q_EMIT mouseUp(event->button(), pixelAt(*event));
}

} // namespace ovrano
