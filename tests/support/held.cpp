#include "support/held.h"

#include <QApplication>
#include <QDir>
#include <QFile>

#include <unistd.h>

namespace ovrano::testing {

Held Held::now() {
    Held held;
    QFile sizes(QStringLiteral("/proc/self/statm")); // pages: all, in memory, ...
    if (sizes.open(QIODevice::ReadOnly)) {
        const QList<QByteArray> numbers = sizes.readAll().split(' ');
        held.memory = numbers.value(1).toULongLong() * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    }
    held.descriptors = static_cast<int>(QDir(QStringLiteral("/proc/self/fd"))
                                            .entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::System)
                                            .size());
    held.widgets = static_cast<int>(QApplication::allWidgets().size());
    return held;
}

} // namespace ovrano::testing
