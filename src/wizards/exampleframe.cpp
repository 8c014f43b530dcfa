#include "wizards/exampleframe.h"

#include "platform/runtimeerror.h"

#include <QStyle>

namespace ovrano {

namespace {

constexpr QSize SmallestPicture(160, 60);

} // namespace

ExampleFrame::ExampleFrame(const QString& name, Surface& surface, QWidget* parent)
    : QFrame(parent)
    , picture(new PictureBox(surface, this))
    , m_surface(surface)
    , m_first(surface.innerSize())
    , m_beside(0, 0) {
    setObjectName(name);
    setFrameStyle(QFrame::Panel | QFrame::Sunken);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    picture->setFocusPolicy(Qt::NoFocus);
}

QSize ExampleFrame::minimumSizeHint() const {
    return SmallestPicture + m_beside + borders();
}

void ExampleFrame::settle() {
    m_settled = true;
    m_beside = (inside() - m_surface.innerSize()).expandedTo(QSize(0, 0));
    updateGeometry();
}

void ExampleFrame::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    const QSize wanted = m_settled ? inside() - m_beside : inside().boundedTo(m_first);
    const QSize shown = wanted.expandedTo(QSize(1, 1));
    const QRect framed =
        QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, shown + borders(), QRect(QPoint(0, 0), size()));
    setFrameRect(framed);
    picture->move(framed.topLeft() + QPoint(frameWidth(), frameWidth()));
    if (shown != m_surface.innerSize() && skipOnError([&] { m_surface.setInnerSize(shown); }))
        Q_EMIT pictureResized(shown);
}

} // namespace ovrano
