#include "platform/colourbox.h"

#include <QPainter>

namespace ovrano {

ColourBox::ColourBox(const QString& name, Colour colour, QWidget* parent)
    : QLabel(parent)
    , m_colour(colour & White) {
    setObjectName(name);
    setFrameStyle(QFrame::Panel | QFrame::Sunken);
}

void ColourBox::setBackColor(Colour colour) {
    if (m_colour == (colour & White))
        return;
    m_colour = colour & White;
    update();
    Q_EMIT BackColorChanged(m_colour);
}

void ColourBox::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(this);
        QColor shown(redOf(m_colour), greenOf(m_colour), blueOf(m_colour));
        painter.setOpacity(isEnabled() ? 1 : 0.4);
        painter.fillRect(contentsRect(), shown);
    }
    QLabel::paintEvent(event);
}

} // namespace ovrano
