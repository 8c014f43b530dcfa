#include "monkey/watch.h"

#include <QMutex>
#include <QMutexLocker>

#include <ctime>

namespace ovrano::monkey {

namespace {

/// Milliseconds of processor time that this thread has taken.
double threadTime() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

QMutex noting;
QStringList noted;

void note(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtDebugMsg || type == QtInfoMsg)
        return;
    {
        const QMutexLocker lock(&noting);
        if (!noted.contains(text))
            noted.append(text);
    }
    if (type == QtFatalMsg)
        qt_assert("fatal", qPrintable(text), 0);
}

} // namespace

Watch::Watch() {
    noted.clear();
    qInstallMessageHandler(note);
    restart();
}

Watch::~Watch() {
    qInstallMessageHandler(nullptr);
}

void Watch::restart() {
    m_since = threadTime();
}

void Watch::alive(const char* next) {
    const double now = threadTime();
    if (now - m_since > m_longest) {
        m_longest = now - m_since;
        m_longestWas = m_doing;
    }
    m_since = now;
    m_doing = next;
}

QStringList Watch::messages() const {
    const QMutexLocker lock(&noting);
    return noted;
}

} // namespace ovrano::monkey
