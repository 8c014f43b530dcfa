#include "app/hintline.h"

#include <QStatusTipEvent>

namespace ovrano {

HintLine::HintLine(const QString& name, QWidget& window, QWidget* parent)
    : ElidedLabel(name, Qt::ElideRight, parent) {
    window.installEventFilter(this);
}

void HintLine::showNextStep(const QString& sentence) {
    m_nextStep = sentence;
    showMostUrgent();
}

void HintLine::showWorking(bool working) {
    m_working = working;
    showMostUrgent();
}

int HintLine::wantedWidth() const {
    constexpr int LongestSentence = 84; // characters
    return fontMetrics().averageCharWidth() * LongestSentence;
}

bool HintLine::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::StatusTip)
        return ElidedLabel::eventFilter(watched, event);
    m_statusTip = static_cast<QStatusTipEvent*>(event)->tip();
    showMostUrgent();
    return true;
}

void HintLine::showMostUrgent() {
    if (m_working)
        setText(QStringLiteral("Travail en cours, un instant…"));
    else
        setText(m_statusTip.isEmpty() ? m_nextStep : m_statusTip);
}

} // namespace ovrano
