#include "platform/disksync.h"

#include "platform/runtimeerror.h"

#include <QFileDevice>

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

void syncToDisk(const QFileDevice& file) {
    int result = 0;
    do {
        result = sync(file.handle());
    } while (result != 0 && errno == EINTR);
    if (result != 0 && errno != EINVAL)
        throw RuntimeError::fromErrno(errno);
}

} // namespace ovrano
