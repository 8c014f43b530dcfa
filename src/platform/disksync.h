#pragma once

class QFileDevice;

namespace ovrano {

/// Waits until what was written to an open file is on the disk itself. Throws the RuntimeError of a disk that
/// fails or fills up only now; a file system that cannot tell is believed.
void syncToDisk(const QFileDevice& file);

} // namespace ovrano
