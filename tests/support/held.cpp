#include "support/held.h"

#include "platform/parallel.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QThreadPool>

#include <malloc.h>
#include <unistd.h>

namespace ovrano::testing {

namespace {

int entriesOf(const QString& folder) {
    return static_cast<int>(
        QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::System).size());
}

} // namespace

Held Held::now() {
    // A helper that was called and came too late may still be opening its descriptor.
    helperThreads().waitForDone();
    Held held;
    const struct mallinfo2 heaps = mallinfo2();
    held.allocated = heaps.uordblks + heaps.hblkhd;
    QFile sizes(QStringLiteral("/proc/self/statm")); // pages: all, in memory, ...
    if (sizes.open(QIODevice::ReadOnly)) {
        const QList<QByteArray> numbers = sizes.readAll().split(' ');
        held.resident = numbers.value(1).toULongLong() * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    }
    held.threads = entriesOf(QStringLiteral("/proc/self/task"));
    held.descriptors = entriesOf(QStringLiteral("/proc/self/fd")) - held.threads;
    held.widgets = static_cast<int>(QApplication::allWidgets().size());
    return held;
}

int threadsOfPools() {
    return helperThreads().maxThreadCount() + QThreadPool::globalInstance()->maxThreadCount();
}

} // namespace ovrano::testing
