#pragma once

#include "document/safefile.h"
#include "platform/raster.h"

#include <QString>

namespace ovrano {

/// Writes a picture as a 24-bit Windows BMP file. The file takes its name only when it is complete. Throws
/// error::InvalidPropertyValue when the picture is empty or larger than the format's 4 GB, error::DiskFull,
/// error::PermissionDenied, error::PathFileAccess (the path is a folder), error::PathNotFound.
void SavePicture(const Raster& picture, const QString& path,
                 SafeFile::Purpose purpose = SafeFile::Purpose::Result);

} // namespace ovrano
