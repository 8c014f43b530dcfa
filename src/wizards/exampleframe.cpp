#include "wizards/exampleframe.h"

namespace ovrano {

namespace {

constexpr QSize SmallestPicture(160, 60);

} // namespace

ExampleFrame::ExampleFrame(const QString& name, Surface& surface, QWidget* parent)
    : QFrame(parent)
    , picture(new PictureBox(surface, this))
    , m_surface(surface) {
    setObjectName(name);
    setFrameStyle(QFrame::Panel | QFrame::Sunken);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    const int border = 2 * frameWidth();
    m_wanted = surface.innerSize() + QSize(border, border);
    picture->setFocusPolicy(Qt::NoFocus);
    picture->move(frameWidth(), frameWidth());
}

QSize ExampleFrame::minimumSizeHint() const {
    return SmallestPicture + QSize(2 * frameWidth(), 2 * frameWidth());
}

void ExampleFrame::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    const QSize inside = contentsRect().size();
    if (inside == m_surface.innerSize())
        return;
    m_surface.setInnerSize(inside);
    Q_EMIT pictureResized(inside);
}

} // namespace ovrano
