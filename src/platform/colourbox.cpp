#include "platform/colourbox.h"

#include <QPainter>

namespace ovrano {

namespace {

/// Black or white, whichever stands out more from a colour.
QColor readableOn(Colour colour) {
    const int brightness = 299 * redOf(colour) + 587 * greenOf(colour) + 114 * blueOf(colour); // of 255,000
    return brightness < 128'000 ? Qt::white : Qt::black;
}

/// A colour for those who do not see it: "rouge 0, vert 64, bleu 128 (#004080)".
QString inWords(Colour colour) {
    return QStringLiteral("rouge %1, vert %2, bleu %3 (%4)")
        .arg(redOf(colour))
        .arg(greenOf(colour))
        .arg(blueOf(colour))
        .arg(QColor(toPixel(colour)).name().toUpper());
}

} // namespace

ColourBox::ColourBox(const QString& name, Colour colour, QWidget* parent)
    : QLabel(parent)
    , m_colour(colour & White) {
    setObjectName(name);
    setFrameStyle(QFrame::Panel | QFrame::Sunken);
    setAccessibleDescription(inWords(m_colour));
}

void ColourBox::setBackColor(Colour colour) {
    if (m_colour == (colour & White))
        return;
    m_colour = colour & White;
    setAccessibleDescription(inWords(m_colour));
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
