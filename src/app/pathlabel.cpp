#include "app/pathlabel.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace ovrano {

PathLabel::PathLabel(const QString& name, QWidget* parent)
    : QLabel(parent) {
    setObjectName(name);
    setTextFormat(Qt::PlainText);
}

QString PathLabel::shownText() const {
    return fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width());
}

bool PathLabel::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip || shownText() == text())
        return QLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
    return true;
}

void PathLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, shownText());
}

} // namespace ovrano
