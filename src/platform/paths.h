#pragma once

#include <QString>

namespace ovrano {

/// The path with the system's separator at its end, unless it ends in one already.
QString AddBackslash(const QString& path);

/// Whether a directory look-up of the path finds anything (a file or a folder).
bool FileExists(const QString& path);

} // namespace ovrano
