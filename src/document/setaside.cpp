#include "document/setaside.h"

#include "document/files.h"

#include <QDir>
#include <QFileInfo>

namespace ovrano {

namespace {

/// Whether a name is taken, be it by a link that leads nowhere.
bool isTaken(const QString& path) {
    std::error_code code;
    const auto type = std::filesystem::symlink_status(nativePath(path), code).type();
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

QString freeNameBeside(const QString& path, const QString& target) {
    const QFileInfo file(path);
    for (int number = 1;; ++number) {
        const QString name =
            QStringLiteral("%1 (%2).%3").arg(file.completeBaseName(), QString::number(number), file.suffix());
        QString candidate = file.dir().filePath(name);
        if (!isTaken(candidate) && !mayBeSameName(candidate, target))
            return candidate;
    }
}

} // namespace

SetAside::SetAside(const QString& path, const QString& target)
    : m_path(path) {
    if (!isTaken(path) || isSameFile(path, target))
        return;
    const QString kept = freeNameBeside(path, target);
    renameOver(path, kept);
    m_kept = kept;
}

SetAside::~SetAside() {
    if (m_kept.isEmpty())
        return;
    // Should one of these fail there is nobody to tell; the user's file then stays under its other name.
    std::error_code code;
    std::filesystem::remove(nativePath(m_path), code);
    std::filesystem::rename(nativePath(m_kept), nativePath(m_path), code);
}

} // namespace ovrano
