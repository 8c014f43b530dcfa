#pragma once

#include <QByteArray>
#include <QString>

#include <sys/mman.h>
#include <unistd.h>

namespace ovrano::fuzz {

/// A file that is in memory only, with a path to open it by.
class MemoryFile {
public:
    explicit MemoryFile(const QByteArray& content)
        : m_descriptor(memfd_create("picture", MFD_CLOEXEC)) {
        if (m_descriptor < 0 ||
            write(m_descriptor, content.constData(), static_cast<std::size_t>(content.size())) !=
                static_cast<ssize_t>(content.size()))
            qFatal("no file in memory");
    }
    Q_DISABLE_COPY_MOVE(MemoryFile)
    ~MemoryFile() { close(m_descriptor); }

    QString path() const { return QStringLiteral("/proc/self/fd/%1").arg(m_descriptor); }

private:
    const int m_descriptor;
};

} // namespace ovrano::fuzz
