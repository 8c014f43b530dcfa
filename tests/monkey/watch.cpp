#include "monkey/watch.h"

#include <QMutex>
#include <QMutexLocker>

namespace ovrano::monkey {

namespace {

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
    m_since.restart();
}

void Watch::alive(const char* next) {
    if (const double took = m_since.milliseconds(); took > m_longest) {
        m_longest = took;
        m_longestWas = m_doing;
    }
    m_since.restart();
    m_doing = next;
}

QStringList Watch::messages() const {
    const QMutexLocker lock(&noting);
    return noted;
}

} // namespace ovrano::monkey
