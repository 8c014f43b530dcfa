#include "document/safefile.h"

#include "document/files.h"
#include "platform/runtimeerror.h"

#include <QFileInfo>
#include <QRandomGenerator>

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

/// Short, since the name of the file itself may be as long as the system allows.
QString nameBeside(const QString& path) {
    const quint32 number = QRandomGenerator::system()->generate();
    return QFileInfo(path).path() + QStringLiteral("/.ovrano-%1").arg(number, 8, 16, QLatin1Char('0'));
}

} // namespace

SafeFile::SafeFile(const QString& path)
    : m_path(behindLinks(path))
    , m_file(nameBeside(m_path)) {
    requireWritable(m_path);
    require([this] { return m_file.open(QIODevice::WriteOnly | QIODevice::NewOnly); });
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
    renameOver(m_file.fileName(), m_path);
    m_committed = true;
}

} // namespace ovrano
