#pragma once

#include <QString>

namespace ovrano {

/// Waits until what was written to a file is on the disk itself. Throws the RuntimeError of a disk that fails
/// or fills up only now; a file system that cannot tell is believed.
void syncToDisk(const QString& path);

} // namespace ovrano
