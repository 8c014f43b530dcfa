#pragma once

#include <QFile>
#include <QString>

#include <cstddef>

namespace ovrano {

/// A file that takes its name only when it is written completely: until commit() the bytes go to a file
/// beside it, so that a full disk or a crash leaves what had the name before as it was. Without commit() the
/// file beside it is removed.
///
/// (Qt's own class for this does not tell a full disk from other failures and makes everybody wait for the
/// disk, also for a temporary file; see renameOver for when that is needed.)
class SafeFile {
public:
    /// Throws RuntimeError 76, 75 or 70 as requireWritable does, or what the system gives as the reason that
    /// no file can be made in the folder. A link is followed: the file that it leads to is replaced.
    explicit SafeFile(const QString& path);
    SafeFile(const SafeFile&) = delete;
    SafeFile& operator=(const SafeFile&) = delete;
    ~SafeFile();

    /// Throws RuntimeError 61 when the disk is full, 57 when it does not work.
    void write(const void* bytes, std::size_t count);

    void commit();

private:
    const QString m_path;
    QFile m_file; // the one beside
    bool m_committed = false;
};

} // namespace ovrano
