#pragma once

#include "platform/raster.h"

#include <QString>

namespace ovrano {

/// A picture as it came back from a file, and the path that the file had.
struct StoredPicture {
    Raster picture;
    QString path;
};

/// Writes a picture to "Temp.bmp" in a folder, reads it back and deletes the file. A user's own file of that
/// name is kept. Where nothing can be written there, a private folder is used that is made beside the
/// system's other temporary files and goes with the file. Throws RuntimeErrors as SavePicture and LoadPicture
/// do where that does not work either.
StoredPicture throughTemporaryBmp(const Raster& picture, const QString& folder);

} // namespace ovrano
