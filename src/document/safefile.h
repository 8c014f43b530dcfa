#pragma once

#include <QFile>
#include <QString>

#include <cstddef>

namespace ovrano {

/// A file that takes its name only when it is complete. Until commit() the bytes go to a temporary file in
/// the same folder, readable by its owner alone, so that a full disk or a crash leaves the old file
/// untouched. Without commit() the temporary file is removed.
///
/// (Qt's own class for this does not tell a full disk from other failures and makes everybody wait for the
/// disk, also for a temporary file; see finishOver for when that is needed.)
class SafeFile {
public:
    enum class Purpose {
        /// What a user chose the name of. A link is followed: the file that it leads to is replaced.
        Result,
        /// Nothing that lasts, under a name of the program's choice. It stays its owner's alone, since the
        /// result may be; a link that somebody put there is replaced, never followed.
        Temporary,
    };

    /// Throws error::PathNotFound, error::PathFileAccess or error::PermissionDenied as requireWritable does,
    /// or what the system gives as the reason that no file can be made in the folder.
    explicit SafeFile(const QString& path, Purpose purpose = Purpose::Result);
    SafeFile(const SafeFile&) = delete;
    SafeFile& operator=(const SafeFile&) = delete;
    ~SafeFile();

    /// Throws error::DiskFull or error::DeviceIo.
    void write(const void* bytes, std::size_t count);

    void commit();

private:
    const Purpose m_purpose;
    const QString m_path;
    QFile m_file; // the one beside
    bool m_committed = false;
};

/// Gives a finished temporary file the name of a result, as a SafeFile of that name does when it is
/// committed. Where a link leads that to another folder, perhaps on another disk, the bytes are copied there.
void moveToResult(const QString& temporary, const QString& result);

} // namespace ovrano
