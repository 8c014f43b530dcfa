#pragma once

#include "platform/raster.h"

#include <QByteArray>
#include <QSize>
#include <QString>

namespace ovrano {

/// Reads a picture file: BMP, GIF, JPEG or PNG, told by its content whatever its name says.
///
/// A photo comes upright as its orientation tag says, transparent pixels lie over white, of an animation the
/// first frame is taken. A file that ends before its picture does is refused: half a picture would be taken
/// for a whole one and saved over it.
///
/// Throws error::FileNotFound, error::PathNotFound, error::PathFileAccess (a folder or a device),
/// error::PermissionDenied, error::InvalidPicture (not a picture, empty, damaged or cut off) or
/// error::OutOfMemory (larger than MaxPicturePixels).
Raster LoadPicture(const QString& path);

/// The same for the content of such a file. Throws error::InvalidPicture or error::OutOfMemory.
Raster decodePicture(const QByteArray& content);

/// The size in pixels that such content announces, as it is stored and whatever follows; empty when it is no
/// such picture. Nothing is decoded.
QSize announcedPictureSize(const QByteArray& content);

/// Throws error::InvalidPicture when a size is empty, error::OutOfMemory when it is larger than what the
/// program can hold.
void requireAcceptable(QSize size);

/// The largest picture that is opened, 1 GB in memory: more than the scans that are in use, and just what the
/// BMP decoder takes, so that a picture that was opened as JPEG can be saved as BMP and opened again.
inline constexpr qint64 MaxPicturePixels = qint64{16'384} * 16'384;

} // namespace ovrano
