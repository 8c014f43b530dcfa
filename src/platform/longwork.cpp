#include "platform/longwork.h"

#include "platform/yield.h"

#include <utility>

namespace ovrano {

LongWork::LongWork(QObject* parent)
    : QObject(parent) {
    m_idle.setInterval(0);
    connect(&m_idle, &QTimer::timeout, this, &LongWork::look);
    EventYield::setListener(this);
}

LongWork::~LongWork() {
    EventYield::setListener(nullptr);
}

void LongWork::goesOn() {
    if (!m_idle.isActive()) {
        m_sinceFirstYield.start();
        m_idle.start();
    } else if (!m_told && m_sinceFirstYield.elapsed() >= MomentMilliseconds) {
        m_told = true;
        Q_EMIT begun();
    }
}

void LongWork::look() {
    if (EventYield::isUnderWay())
        return; // this is one of the loops inside the command
    m_idle.stop();
    if (std::exchange(m_told, false))
        Q_EMIT ended();
}

} // namespace ovrano
