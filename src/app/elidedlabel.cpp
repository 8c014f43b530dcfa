#include "app/elidedlabel.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

namespace ovrano {

ElidedLabel::ElidedLabel(const QString& name, Qt::TextElideMode mode, QWidget* parent)
    : QLabel(parent)
    , m_mode(mode) {
    setObjectName(name);
    setTextFormat(Qt::PlainText);
}

QString ElidedLabel::shownText() const {
    return fontMetrics().elidedText(text(), m_mode, contentsRect().width());
}

QSize ElidedLabel::minimumSizeHint() const {
    const QSize least = QLabel::minimumSizeHint();
    return QSize(std::min(least.width(), fontMetrics().horizontalAdvance(QChar(0x2026))), least.height());
}

bool ElidedLabel::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip || shownText() == text())
        return QLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
    return true;
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, shownText());
}

} // namespace ovrano
