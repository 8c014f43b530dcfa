#include "document/files.h"

#include "platform/disksync.h"
#include "platform/paths.h"
#include "platform/runtimeerror.h"

#include <QFileInfo>
#include <QRandomGenerator>

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

/// Reports what the system gave as the reason. That a file is missing may come of its whole folder.
[[noreturn]] void fail(int code, const std::filesystem::path& path) {
    if (code == ENOENT)
        requireFolderOf(path);
    throw RuntimeError::fromErrno(code);
}

/// The permissions that the system gives a new file; the folder may have rules beside the user's. Nothing
/// when no file can be created there.
QFile::Permissions permissionsOfNewFile(const QString& path) {
    QFile probe(hiddenNameBeside(path));
    if (!probe.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        return {};
    const QFile::Permissions permissions = probe.permissions();
    probe.close(); // QFile's own remove() gives up when that fails
    QFile::remove(probe.fileName());
    return permissions;
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
    openOrThrow(file, QIODevice::ReadOnly);
}

void requireWritable(const QString& path) {
    const file_type type = typeOf(nativePath(path));
    if (type == file_type::not_found)
        requireFolderOf(nativePath(path));
    else if (type != file_type::regular)
        throw RuntimeError(error::PathFileAccess);
    else if (errno = 0; !QFileInfo(path).isWritable())
        fail(errno, nativePath(path));
}

void openOrThrow(QFile& file, QIODevice::OpenMode mode, QFile::Permissions permissions) {
    errno = 0; // Qt keeps the system's words of a failure, the number is still there
    if (!(permissions ? file.open(mode, permissions) : file.open(mode)))
        fail(errno, nativePath(file.fileName()));
}

QString behindLinks(const QString& path) {
    const QString file = QFileInfo(path).canonicalFilePath(); // empty when there is none
    return file.isEmpty() ? path : file;
}

QString hiddenNameBeside(const QString& path) {
    const quint32 number = QRandomGenerator::system()->generate();
    return QFileInfo(path).path() + QStringLiteral("/.ovrano-%1").arg(number, 8, 16, QLatin1Char('0'));
}

void renameOver(const QString& from, const QString& to) {
    std::error_code code;
    std::filesystem::rename(nativePath(from), nativePath(to), code);
    if (code)
        fail(code.value(), nativePath(to));
}

void finishOver(const QString& from, const QString& to) {
    QFile file(from);
    openOrThrow(file, QIODevice::ReadWrite | QIODevice::ExistingOnly);
    const bool replaces = FileExists(to);
    // Some disks know no permissions; the picture matters more.
    if (const auto wanted = replaces ? QFileInfo(to).permissions() : permissionsOfNewFile(to))
        file.setPermissions(wanted);
    if (replaces)
        syncToDisk(file);
    file.close();
    renameOver(from, to);
}

void deleteFile(const QString& path) {
    std::error_code code;
    std::filesystem::remove(nativePath(path), code);
    throwOn(code);
}

} // namespace ovrano
