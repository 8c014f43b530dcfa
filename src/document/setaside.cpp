#include "document/setaside.h"

#include "document/files.h"
#include "platform/freename.h"
#include "platform/runtimeerror.h"

#include <QDir>
#include <QFileInfo>

namespace ovrano {

namespace {

/// Whether a name is taken, be it by a link that leads nowhere. Throws when the system does not let us look.
bool isTaken(const QString& path) {
    std::error_code code;
    const auto type = std::filesystem::symlink_status(nativePath(path), code).type();
    if (type == std::filesystem::file_type::none)
        throw RuntimeError::fromSystem(code);
    return type != std::filesystem::file_type::not_found;
}

/// "Temp.jpg" and "temp.jpg" are one file on some disks and two on others.
bool mayBeSameName(const QString& a, const QString& b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

bool isSameFile(const QString& a, const QString& b) {
    std::error_code code;
    return a == b || (mayBeSameName(a, b) && std::filesystem::equivalent(nativePath(a), nativePath(b), code));
}

QString numbered(const QFileInfo& file, int number) {
    return file.dir().filePath(
        QStringLiteral("%1 (%2).%3").arg(file.completeBaseName(), QString::number(number), file.suffix()));
}

/// Renames a file to a free name in the same folder; a name that is taken in the meantime is not overwritten.
QString renameBeside(const QString& path, const QString& target) {
    for (int number = 1;; ++number) {
        QString candidate = numbered(QFileInfo(path), number);
        if (isTaken(candidate) || mayBeSameName(candidate, target))
            continue;
        const std::error_code code = renameToFree(nativePath(path), nativePath(candidate));
        if (!code)
            return candidate;
        if (code != std::errc::file_exists)
            throw RuntimeError::fromSystem(code);
    }
}

} // namespace

SetAside::SetAside(const QString& path, const QString& target)
    : m_path(path)
    , m_isTarget(isSameFile(path, target)) {
    if (!m_isTarget && isTaken(path))
        m_kept = renameBeside(path, target);
}

SetAside::~SetAside() {
    if (m_kept.isEmpty())
        return;
    // Should one of these fail there is nobody to tell; the user's file then stays under its other name.
    std::error_code code;
    std::filesystem::remove(nativePath(m_path), code);
    static_cast<void>(renameToFree(nativePath(m_kept), nativePath(m_path)));
}

} // namespace ovrano
