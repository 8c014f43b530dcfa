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

/// What the owner of the system clipboard announced when asked, once. By the time something is fetched the
/// owner may be gone, may give something else, or may be another one. Fetching yields.
class ClipboardOffer {
public:
    /// Asks now; yields while the owner does not answer.
    static ClipboardOffer now();

    /// Looks at the announced types and the names of copied files; reads no picture.
    bool includes(ClipboardFormat format) const;
    /// Whether it includes any of the four.
    bool includesPicture() const;

    /// The types under which a raster picture is offered, the best first: PNG, then BMP under its several
    /// names, then JPEG.
    QStringList rasterTypes() const;
    /// The type of a vector picture; empty when none is offered.
    QString vectorType() const;
    /// The path of a picture file that was copied in a file manager; empty when there is none. The file
    /// itself is not touched: it may be a pipe or lie on a network that does not answer.
    QString pictureFile() const;
    /// The picture of a system whose clipboard has no such types; null when there is none.
    QImage image() const;

private:
    explicit ClipboardOffer(QStringList types);

    QStringList m_types;
};

/// The bytes of a type; none when the owner does not give them. Yields.
QByteArray clipboardBytes(const QString& type);

/// The picture that this program itself put there, shared and not copied.
std::optional<Raster> ownClipboardPicture();

/// Offers a picture to every program, as PNG and as BMP. Its pixels are shared with the caller and encoded
/// when another program asks for them. An empty picture is not offered.
void putOnClipboard(const Raster& picture);

/// Takes away whatever the clipboard holds.
void clearClipboard();

} // namespace ovrano
