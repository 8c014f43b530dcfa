#pragma once

#include <QFile>
#include <QString>

#include <filesystem>

namespace ovrano {

/// What is done with files as wholes. Failures are RuntimeErrors with the number that tells a user why.

/// A path in the form that the standard library's file functions take.
std::filesystem::path nativePath(const QString& path);

/// Opens an existing file. Throws error::FileNotFound, error::PathNotFound, error::PathFileAccess (a folder
/// or a device) or error::PermissionDenied.
void openForReading(QFile& file);

/// Opens a file without checking first what it is. A new file gets the permissions, if some are given. Throws
/// RuntimeError error::PathNotFound when the folder has gone, otherwise the system's reason.
void openOrThrow(QFile& file, QIODevice::OpenMode mode, QFile::Permissions permissions = {});

/// Checks that a file of this name can be written, over an existing one or as a new one. Throws
/// error::PathNotFound, error::PathFileAccess (there is a folder or a device of that name) or
/// error::PermissionDenied (the file that is there is write-protected).
void requireWritable(const QString& path);

/// The file that a path leads to through links; the path itself where there is none.
QString behindLinks(const QString& path);

/// A hidden name that cannot be guessed, in the folder of a path. It is short, since the file's own name may
/// be as long as the system allows.
QString hiddenNameBeside(const QString& path);

/// Renames a file on the same disk, in one step. It replaces whatever had that name; a link is replaced, not
/// followed.
void renameOver(const QString& from, const QString& to);

/// The same for a file that is finished: what had that name before is gone only when the new file is in its
/// place, and completely on the disk. (The name alone could get there first, and a power failure in between
/// would cost both. Where nothing is replaced nobody has to wait for the disk.) The new file takes the
/// permissions of the one that it replaces, otherwise those that any new file in that folder gets; until then
/// it may be its owner's alone.
void finishOver(const QString& from, const QString& to);

void deleteFile(const QString& path);

} // namespace ovrano
