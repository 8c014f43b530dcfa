#include "platform/colourbox.h"

#include <QPainter>

namespace ovrano {

namespace {

/// Black or white, whichever stands out more from a colour.
QColor readableOn(Colour colour) {
    const int brightness = 299 * redOf(colour) + 587 * greenOf(colour) + 114 * blueOf(colour); // of 255,000
    return brightness < 128'000 ? Qt::white : Qt::black;
}

} // namespace

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

void ColourBox::keepCaptionReadable() {
    const auto show = [this](Colour colour) {
        QPalette captioned = palette();
        captioned.setColor(QPalette::WindowText, readableOn(colour));
        setPalette(captioned);
    };
    show(m_colour);
    connect(this, &ColourBox::BackColorChanged, this, show);
}

void ColourBox::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(this);
        QColor shown(redOf(m_colour), greenOf(m_colour), blueOf(m_colour));
        painter.setOpacity(isEnabled() ? 1 : 0.4);
        painter.fillRect(contentsRect(), shown);
    }
    paintCaption(event);
}

} // namespace ovrano
