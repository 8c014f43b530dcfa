#include "document/safefile.h"

#include "document/files.h"
#include "platform/runtimeerror.h"

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

} // namespace

SafeFile::SafeFile(const QString& path)
    : m_file(path) {
    requireWritable(path);
    require([this] { return m_file.open(QIODevice::WriteOnly); });
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
    require([this] { return m_file.commit(); });
}

} // namespace ovrano
