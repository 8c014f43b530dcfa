#pragma once

class QFileDevice;

namespace ovrano {

/// Waits until the bytes written to an open file are on the disk. Throws the RuntimeError of a disk that
/// fails or fills up only now. Where the file system does not support this, nothing is done.
void syncToDisk(const QFileDevice& file);

} // namespace ovrano
