#include "support/guithread.h"

#include <QElapsedTimer>
#include <QTest>

namespace ovrano::testing {

bool waitUntil(const std::function<bool()>& condition, int milliseconds) {
    if (isGuiThread())
        return QTest::qWaitFor(condition, milliseconds);
    QElapsedTimer time;
    time.start();
    while (!inGui(condition)) {
        if (time.hasExpired(milliseconds))
            return false;
        QThread::msleep(5);
    }
    return true;
}

} // namespace ovrano::testing
