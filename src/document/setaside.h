#pragma once

#include <QString>

namespace ovrano {

/// Keeps a user's own file safe while its name is needed for a temporary one.
///
/// A file (or folder) of that name is renamed to a free name in the same folder, "Temp.bmp" to "Temp
/// (1).bmp". At the end of the scope it gets its name back, and replaces a temporary file that was left under
/// it. If the program dies in between, the user's file is still there under the other name.
class SetAside {
public:
    /// `target` is the file that is written in the end. If it is this very file, nothing is set aside: the
    /// user wants it replaced. Throws error::PermissionDenied and the like when the file cannot be renamed.
    SetAside(const QString& path, const QString& target);
    SetAside(const SetAside&) = delete;
    SetAside& operator=(const SetAside&) = delete;
    ~SetAside();

    /// Whether the file is the very one that is to be written in the end.
    bool isTarget() const { return m_isTarget; }

private:
    QString m_path;
    bool m_isTarget;
    QString m_kept; // empty: nothing was there
};

} // namespace ovrano
