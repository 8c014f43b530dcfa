#include "support/held.h"

#include "platform/parallel.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QThread>
#include <QThreadPool>

#include <algorithm>
#include <cstdlib> // tells which C library there is
#include <unistd.h>
#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace ovrano::testing {

namespace {

QStringList entriesOf(const QString& folder) {
    return QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::System);
}

/// The names of this process's threads.
QStringList threadNames() {
    const QString tasks = QStringLiteral("/proc/self/task/");
    QStringList names;
    for (const QString& task : entriesOf(tasks)) {
        QFile name(tasks + task + QStringLiteral("/comm"));
        if (name.open(QIODevice::ReadOnly)) // it may have ended just now
            names.append(QString::fromUtf8(name.readAll()).trimmed());
    }
    return names;
}

const QString Pooled = QStringLiteral("Thread (pooled)");

/// Ends the threads of the pools, which keep memory and a descriptor each, and start when all others are at
/// work: by chance. Gives the names of the threads that are left.
QStringList withoutPooledThreads() {
    helperThreads().waitForDone();
    QThreadPool::globalInstance()->waitForDone();
    // One that has ended is listed a little longer.
    const QDeadlineTimer patience(5000); // ms
    QStringList names = threadNames();
    while (names.contains(Pooled) && !patience.hasExpired()) {
        QThread::msleep(5);
        names = threadNames();
    }
    return names;
}

/// Bytes that were asked for and not given back; those that threads keep for themselves among them.
std::size_t allocatedBytes() {
#ifdef __GLIBC__
    const struct mallinfo2 heaps = mallinfo2();
    return heaps.uordblks + heaps.hblkhd;
#else
    return 0;
#endif
}

} // namespace

Held Held::now() {
    Held held;
    held.threads = static_cast<int>(withoutPooledThreads().size());
    held.allocated = allocatedBytes();
    QFile sizes(QStringLiteral("/proc/self/statm")); // pages: all, in memory, ...
    if (sizes.open(QIODevice::ReadOnly)) {
        const QList<QByteArray> numbers = sizes.readAll().split(' ');
        held.resident = numbers.value(1).toULongLong() * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    }
    held.descriptors = static_cast<int>(entriesOf(QStringLiteral("/proc/self/fd")).size());
    held.widgets = static_cast<int>(QApplication::allWidgets().size());
    return held;
}

} // namespace ovrano::testing
