#pragma once

#include <QString>

namespace ovrano {

/// Keeps a user's own file safe while its name is needed for a temporary one.
///
/// A file (or folder) that has the name is renamed to a free one beside, "Temp.bmp" to "Temp (1).bmp", and
/// gets its name back at the end of the scope, where a temporary that was left under the name gives way.
/// Should the program die in between, the user's file is there under the other name.
class SetAside {
public:
    /// `target` is the file that is to be written in the end: when it is this very file nothing is set aside,
    /// since the user wants it replaced, and its name is not taken for another file. Throws
    /// error::PermissionDenied and the like when the file cannot be renamed.
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
