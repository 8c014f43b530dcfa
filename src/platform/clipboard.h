#pragma once

namespace ovrano {

/// The picture formats that a clipboard may offer, by the numbers the program knows them under. A desktop
/// offers raster pictures (2 and 8 alike) and vector pictures (3, SVG); a palette (9) it never offers.
enum class ClipboardFormat { Bitmap = 2, Metafile = 3, Dib = 8, Palette = 9 };

/// Whether the system clipboard offers a format now. Looks at what is announced only; reads no picture.
bool clipboardOffers(ClipboardFormat format);

/// Whether it offers any of the four.
bool clipboardOffersPicture();

} // namespace ovrano
