#pragma once

#include "platform/raster.h"

#include <QByteArray>
#include <QImage>
#include <QString>
#include <QStringList>

#include <optional>

namespace ovrano {

/// The picture formats that a clipboard may offer, by the numbers the program knows them under. A desktop
/// offers raster pictures (2 and 8 alike) and vector pictures (3, SVG); a palette (9) it never offers.
enum class ClipboardFormat { Bitmap = 2, Metafile = 3, Dib = 8, Palette = 9 };

/// Whether the system clipboard offers a format now. Looks at what is announced, and at the names of copied
/// files; reads no picture. Yields while it waits for the clipboard's owner.
bool clipboardOffers(ClipboardFormat format);

/// Whether it offers any of the four.
bool clipboardOffersPicture();

// What it holds now. Its owner may be gone, or give something else than it announced, or change while a
// picture is on its way: all of these yield.

/// The picture that this program itself put there, shared and not copied.
std::optional<Raster> ownClipboardPicture();

/// The types under which a raster picture is offered, the best first: PNG, then BMP under its several names,
/// then JPEG.
QStringList clipboardRasterTypes();
/// The type of a vector picture; empty when none is offered.
QString clipboardVectorType();
/// The bytes of a type; none when the owner does not give them.
QByteArray clipboardBytes(const QString& type);
/// The path of a picture file that was copied in a file manager; empty when there is none.
QString clipboardPictureFile();
/// The picture of a system whose clipboard has no such types; null when there is none.
QImage clipboardImage();

/// Puts a picture on the clipboard for every program, as PNG and as BMP. Its pixels are shared with the
/// caller and encoded when another program asks for them. An empty picture is not put there.
void putOnClipboard(const Raster& picture);

/// Takes away whatever the clipboard holds.
void clearClipboard();

} // namespace ovrano
