#include "platform/disksync.h"

#include "platform/runtimeerror.h"

#include <QFile>

#include <cerrno>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <unistd.h>
#endif

namespace ovrano {

namespace {

int sync(int handle) {
#ifdef Q_OS_WIN
    return _commit(handle);
#else
    return fsync(handle);
#endif
}

} // namespace

void syncToDisk(const QString& path) {
    QFile file(path);
    errno = 0;
    if (!file.open(QIODevice::ReadWrite))
        throw RuntimeError::fromErrno(errno);
    if (sync(file.handle()) != 0 && errno != EINVAL)
        throw RuntimeError::fromErrno(errno);
}

} // namespace ovrano
