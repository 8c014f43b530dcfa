#pragma once

#include "document/safefile.h"
#include "platform/raster.h"

#include <QString>

namespace ovrano {

/// Writes a picture as a 24-bit Windows BMP file. The file takes its name only when it is complete.
/// Throws RuntimeError 380 when the picture is empty or larger than the format's 4 GB, 61 (disk full),
/// 70 (not allowed), 75 (the path is a folder), 76 (no such folder).
void SavePicture(const Raster& picture, const QString& path,
                 SafeFile::Purpose purpose = SafeFile::Purpose::Result);

} // namespace ovrano
