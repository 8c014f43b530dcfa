#pragma once

#include "platform/raster.h"
#include "platform/yield.h"

#include <QImage>
#include <QImageIOHandler>

namespace ovrano {

/// What a decoder left, as the program's pixels: opaque, 32-bit, upright. All of it works through bands or
/// tiles and yields between them, so that the window repaints however large the picture is.

/// A picture to decode into: white, or the first colour of a palette, where a damaged file leaves pixels out,
/// and never what the memory happened to hold. Throws error::OutOfMemory without memory for it.
QImage newCanvas(QSize size, QImage::Format format, EventYield& yield);
/// The same for a decoder that writes every pixel or fails: not filled with anything.
QImage bareCanvas(QSize size, QImage::Format format);

/// Lays a picture over white and turns it as its orientation says. Throws error::OutOfMemory.
Raster toRaster(QImage image, QImageIOHandler::Transformations orientation, EventYield& yield);

} // namespace ovrano
