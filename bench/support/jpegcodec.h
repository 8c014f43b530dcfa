#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

namespace ovrano::bench {

/// The JPEG library used directly, without anything around it: what the machine can do.

/// Reads a file into fresh memory as 32-bit pixels.
QImage decodeJpeg(const QString& path);

/// Compresses 24-bit pixels (blue, green, red; rows bottom-up as a BMP file has them), with halved colour.
QByteArray encodeJpeg(const uchar* bottomUpRows, QSize size, int quality);

} // namespace ovrano::bench
