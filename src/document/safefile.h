#pragma once

#include <QSaveFile>
#include <QString>

#include <cstddef>

namespace ovrano {

/// A file that takes its name only when it is written completely: until commit() the bytes go to a file
/// beside it, so that a full disk or a crash leaves what had the name before as it was. Without commit() the
/// file beside it is removed.
class SafeFile {
public:
    /// Throws RuntimeError 76, 75 or 70 as requireWritable does, or what the system gives as the reason that
    /// no file can be made in the folder.
    explicit SafeFile(const QString& path);

    /// Throws RuntimeError 61 when the disk is full, 57 when it does not work.
    void write(const void* bytes, std::size_t count);

    void commit();

private:
    QSaveFile m_file;
};

} // namespace ovrano
