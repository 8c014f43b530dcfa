#include "platform/paths.h"

#include <QDir>
#include <QFileInfo>

namespace ovrano {

QString AddBackslash(const QString& path) {
    // Qt writes '/' on every system; a path typed with the system's own separator keeps it.
    const bool ends = path.endsWith(QLatin1Char('/')) || path.endsWith(QDir::separator());
    return ends ? path : path + QDir::separator();
}

bool FileExists(const QString& path) {
    return !path.isEmpty() && QFileInfo::exists(path);
}

} // namespace ovrano
