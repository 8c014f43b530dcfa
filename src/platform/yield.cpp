#include "platform/yield.h"

#include <QCoreApplication>
#include <QEventLoop>

namespace ovrano {

void EventYield::operator()() {
    constexpr int FrameMilliseconds = 16;
    if (m_sinceLast.elapsed() < FrameMilliseconds)
        return;
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    m_sinceLast.start();
}

} // namespace ovrano
