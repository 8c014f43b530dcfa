#include "document/safefile.h"

#include "document/files.h"
#include "platform/runtimeerror.h"

#include <QFileInfo>

#include <algorithm>
#include <cerrno>

namespace ovrano {

namespace {

/// Runs a file operation that gives false when it fails. Qt keeps the system's words of a failure, but the
/// number that tells a full disk from a broken one is only in errno.
template<typename Operation>
void require(Operation&& operation) {
    errno = 0;
    if (!operation())
        throw RuntimeError::fromErrno(errno);
}

QString folderOf(const QString& path) {
    return QFileInfo(QFileInfo(path).path()).canonicalFilePath();
}

void copyAll(QFile& source, SafeFile& copy) {
    constexpr qint64 ChunkBytes = 262'144;
    for (qint64 left = source.size(); left > 0;) {
        const QByteArray chunk = source.read(std::min(left, ChunkBytes));
        if (chunk.isEmpty())
            throw RuntimeError(error::DeviceIo);
        copy.write(chunk.constData(), static_cast<std::size_t>(chunk.size()));
        left -= chunk.size();
    }
}

constexpr QFile::Permissions OwnersAlone = QFile::ReadOwner | QFile::WriteOwner;

} // namespace

SafeFile::SafeFile(const QString& path, Purpose purpose)
    : m_purpose(purpose)
    , m_path(purpose == Purpose::Result ? behindLinks(path) : path)
    , m_file(hiddenNameBeside(m_path)) {
    if (purpose == Purpose::Result)
        requireWritable(m_path);
    openOrThrow(m_file, QIODevice::WriteOnly | QIODevice::NewOnly, OwnersAlone);
}

SafeFile::~SafeFile() {
    if (m_committed)
        return;
    m_file.close(); // QFile's own remove() gives up when what is left of the buffer cannot be written
    QFile::remove(m_file.fileName());
}

void SafeFile::write(const void* bytes, std::size_t count) {
    const auto* next = static_cast<const char*>(bytes);
    const char* const end = next + count;
    while (next < end) {
        qint64 written = 0;
        // A disk that fills up takes a part first; the reason comes with the next attempt.
        require([&] { return (written = m_file.write(next, end - next)) > 0; });
        next += written;
    }
}

void SafeFile::commit() {
    require([this] { return m_file.flush(); });
    require([this] { return m_file.close(), m_file.error() == QFileDevice::NoError; });
    if (m_purpose == Purpose::Result)
        finishOver(m_file.fileName(), m_path);
    else
        renameOver(m_file.fileName(), m_path);
    m_committed = true;
}

void moveToResult(const QString& temporary, const QString& result) {
    const QString target = behindLinks(result);
    if (folderOf(target) == folderOf(temporary))
        return finishOver(temporary, target);
    QFile source(temporary);
    openForReading(source);
    SafeFile copy(target);
    copyAll(source, copy);
    copy.commit();
    source.close();
    deleteFile(temporary);
}

} // namespace ovrano
