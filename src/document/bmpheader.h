#pragma once

#include <QByteArray>
#include <QSize>

#include <optional>

/// The 54 bytes that lead a 24-bit Windows BMP file (a file header and a BITMAPINFOHEADER), and the layout
/// of what follows: rows of 3 bytes a pixel in the order blue, green, red, each filled up to a multiple of
/// four bytes, the lowest row first.
namespace ovrano::bmp {

inline constexpr int HeaderBytes = 54;

/// Bytes of a row with its filling.
constexpr qint64 stride(int width) {
    return (qint64{width} * 3 + 3) / 4 * 4;
}

/// Length of the whole file.
constexpr qint64 fileBytes(QSize size) {
    return HeaderBytes + stride(size.width()) * size.height();
}

/// The header for a size that is not empty, at 96 dots per inch.
QByteArray header(QSize size);

/// The size that such a header announces; nothing when it is the header of another kind of file.
std::optional<QSize> announcedSize(const QByteArray& header);

} // namespace ovrano::bmp
