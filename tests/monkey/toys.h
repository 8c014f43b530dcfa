#pragma once

#include <QMimeData>
#include <QPalette>
#include <QRandomGenerator>
#include <QString>

#include <memory>

namespace ovrano::monkey {

/// Fills a folder with pictures of all formats and sizes, one of them large, and with files that are none or
/// only begin as one.
void layOut(const QString& folder);
/// Writes `knownPicture()` into that folder again, since anybody may have saved over it, and gives its path.
QString knownFile(const QString& folder);
QImage knownPicture();

/// Something for the clipboard: a picture, a text, bytes that are no picture, files, or nothing.
std::unique_ptr<QMimeData> anyClipboard(QRandomGenerator& chance, const QString& folder);

/// Light, dark, high contrast, or any colours at all.
QPalette anyPalette(QRandomGenerator& chance);

} // namespace ovrano::monkey
