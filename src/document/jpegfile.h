#pragma once

#include "document/safefile.h"

#include <QString>

namespace ovrano {

/// Makes a JPEG file of a 24-bit BMP file: same folder, same name, the extension "jpg". It takes its name
/// only when it is complete; the BMP file stays.
///
/// `ratio` is the quality from 1 to 100. From 90 on, colour is kept at full resolution (4:4:4), so that the
/// edges of small coloured letters stay sharp; below that it is halved both ways (4:2:0), which no photo
/// shows. The picture is read and written row by row. `flag` is always −1 and has no meaning.
///
/// Throws what BmpRows and SafeFile throw, and error::InvalidPropertyValue for a picture larger than the
/// format's 65500 pixels a side.
void ConvertBMPtoJPG(const QString& bmpPath, int ratio, int flag,
                     SafeFile::Purpose purpose = SafeFile::Purpose::Result);

} // namespace ovrano
