#include "support/held.h"

#include "platform/parallel.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QThread>
#include <QThreadPool>

#include <malloc.h>
#include <unistd.h>
#include <utility>

namespace ovrano::testing {

namespace {

int entriesOf(const QString& folder) {
    return static_cast<int>(
        QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::System).size());
}

struct Tasks {
    int threads;
    int descriptors;
    bool operator==(const Tasks&) const = default;
};

/// A thread that has just ended may still be listed without its descriptor, and one that has just begun may
/// not have opened it: counted again and again until nothing changes.
Tasks settledTasks() {
    constexpr int Moment = 20; // milliseconds
    const auto count = [] {
        return Tasks{entriesOf(QStringLiteral("/proc/self/task")),
                     entriesOf(QStringLiteral("/proc/self/fd"))};
    };
    Tasks last{};
    Tasks now = count();
    while (now != last) {
        QThread::msleep(Moment);
        last = std::exchange(now, count());
    }
    return now;
}

} // namespace

Held Held::now() {
    helperThreads().waitForDone();
    Held held;
    const struct mallinfo2 heaps = mallinfo2();
    held.allocated = heaps.uordblks + heaps.hblkhd;
    QFile sizes(QStringLiteral("/proc/self/statm")); // pages: all, in memory, ...
    if (sizes.open(QIODevice::ReadOnly)) {
        const QList<QByteArray> numbers = sizes.readAll().split(' ');
        held.resident = numbers.value(1).toULongLong() * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    }
    const Tasks tasks = settledTasks();
    held.threads = tasks.threads;
    held.descriptors = tasks.descriptors - tasks.threads;
    held.widgets = static_cast<int>(QApplication::allWidgets().size());
    return held;
}

int threadsOfPools() {
    return helperThreads().maxThreadCount() + QThreadPool::globalInstance()->maxThreadCount();
}

} // namespace ovrano::testing
