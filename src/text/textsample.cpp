#include "text/textsample.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace ovrano {

QFont TextSample::shownFont() const {
    const QRect ink = fontMetrics().boundingRect(text());
    const QSize room = contentsRect().size();
    const double scale = std::min({1.0, double(room.width()) / std::max(1, ink.width()),
                                   double(room.height()) / std::max(1, ink.height())});
    QFont shown = font();
    if (scale < 1)
        shown.setPixelSize(std::max(1, static_cast<int>(std::floor(fontInfo().pixelSize() * scale))));
    return shown;
}

void TextSample::paintCaption(QPaintEvent*) {
    QPainter painter(this);
    painter.setFont(shownFont());
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(contentsRect(), Qt::AlignCenter, text());
}

} // namespace ovrano
