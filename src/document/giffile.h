#pragma once

#include <QString>

namespace ovrano {

/// Makes a GIF file with 256 colours of a 24-bit BMP file. It takes its name only when it is complete; the
/// BMP file stays.
///
/// A picture with at most 256 colours keeps every pixel as it is. Of others the colours are reduced to the
/// 256 that serve it best, and the error is diffused: that turns the bands of skies and skin into a fine
/// grain, while letters and flat areas stay clean (ErrorDiffusion). The picture is read row by row; what is
/// in memory is one byte a pixel.
///
/// Throws what BmpRows and SafeFile throw, and error::InvalidPropertyValue for a picture larger than the
/// format's 65535 pixels a side.
void ConvertBMPtoGIF(const QString& bmpPath, const QString& gifPath);

} // namespace ovrano
