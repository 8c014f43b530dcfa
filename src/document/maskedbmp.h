#pragma once

#include "platform/yield.h"

#include <QIODevice>
#include <QImage>

#include <optional>

namespace ovrano::bmp {

/// Reads a BMP file whose pixels are numbers of 16 or 32 bits with so many bits for each channel, and any
/// with pixels of 24 bits behind a header that the toolkit does not know: as 32-bit RGB, or ARGB where it has
/// alpha. Nothing, and the device where it was, when it is another kind of file. Its size must be acceptable.
///
/// A channel's greatest value is 255, however many bits it has: the toolkit's reader would make a white of 5
/// bits grey and one of 10 bits black.
///
/// Throws error::InvalidPicture where rows are missing, error::OutOfMemory without memory.
std::optional<QImage> readMasked(QIODevice& device, EventYield& yield);

} // namespace ovrano::bmp
