#include "document/files.h"

#include "platform/disksync.h"
#include "platform/paths.h"
#include "platform/runtimeerror.h"

#include <QFileInfo>

#include <cerrno>

namespace ovrano {

namespace {

using std::filesystem::file_type;

void throwOn(const std::error_code& code) {
    if (code)
        throw RuntimeError::fromSystem(code);
}

/// not_found also when a folder on the way is missing. Throws when the system does not let us look.
file_type typeOf(const std::filesystem::path& path) {
    std::error_code code;
    const auto status = std::filesystem::status(path, code);
    if (status.type() == file_type::none)
        throw RuntimeError::fromSystem(code);
    return status.type();
}

void requireFolderOf(const std::filesystem::path& path) {
    if (path.has_parent_path() && typeOf(path.parent_path()) != file_type::directory)
        throw RuntimeError(error::PathNotFound);
}

} // namespace

std::filesystem::path nativePath(const QString& path) {
    try {
        return QFileInfo(path).filesystemFilePath();
    } catch (const std::system_error&) { // what was typed is no text that a file could be called
        throw RuntimeError(error::BadFileName);
    }
}

void openForReading(QFile& file) {
    const auto path = nativePath(file.fileName());
    const file_type type = typeOf(path);
    if (type == file_type::not_found) {
        requireFolderOf(path);
        throw RuntimeError(error::FileNotFound);
    }
    if (type != file_type::regular)
        throw RuntimeError(error::PathFileAccess);
    errno = 0;
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError::fromErrno(errno); // Qt keeps the system's words, the number is still there
}

void requireWritable(const QString& path) {
    const file_type type = typeOf(nativePath(path));
    if (type == file_type::not_found)
        requireFolderOf(nativePath(path));
    else if (type != file_type::regular)
        throw RuntimeError(error::PathFileAccess);
    else if (!QFileInfo(path).isWritable())
        throw RuntimeError(error::PermissionDenied);
}

QString behindLinks(const QString& path) {
    const QString file = QFileInfo(path).canonicalFilePath(); // empty when there is none
    return file.isEmpty() ? path : file;
}

void renameOver(const QString& from, const QString& to) {
    const QString target = behindLinks(to);
    if (FileExists(target)) {
        syncToDisk(from);
        QFile::setPermissions(from, QFileInfo(target).permissions());
    }
    std::error_code code;
    std::filesystem::rename(nativePath(from), nativePath(target), code);
    throwOn(code);
}

void deleteFile(const QString& path) {
    std::error_code code;
    std::filesystem::remove(nativePath(path), code);
    throwOn(code);
}

} // namespace ovrano
