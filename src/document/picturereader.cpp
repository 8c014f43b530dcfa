#include "document/picturereader.h"

#include "document/files.h"
#include "document/pictureend.h"
#include "platform/runtimeerror.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>

#include <utility>

namespace ovrano {

namespace {

/// A header of a few bytes can announce any size, so what is set aside in memory is measured by the file:
/// beyond a size that costs nothing it must hold at least a byte for so many pixels. No format comes near:
/// the best packed one, a blank black-and-white PNG, needs one for 8256.
constexpr qint64 FreePixels = 16'000'000;
constexpr qint64 MaxPixelsPerByte = 10'000;

void requirePlausible(QSize size, qint64 fileBytes) {
    if (size.isEmpty())
        throw RuntimeError(error::InvalidPicture);
    const qint64 pixels = qint64{size.width()} * size.height();
    if (size.width() > Raster::MaxSide || size.height() > Raster::MaxSide || pixels > MaxPicturePixels)
        throw RuntimeError(error::OutOfMemory);
    if (pixels > FreePixels && pixels / MaxPixelsPerByte > fileBytes)
        throw RuntimeError(error::InvalidPicture);
}

/// A BMP file that is stored from the top down announces a negative height.
QSize announcedSize(const QImageReader& reader) {
    const QSize size = reader.size();
    return QSize(size.width(), qAbs(size.height()));
}

/// What the decoder is to write into: white, or the first colour of a palette, where a damaged file leaves
/// pixels out, and never what the memory happened to hold. Null for the formats whose decoders fill the
/// picture themselves.
QImage canvas(const QImageReader& reader) {
    if (reader.imageFormat() == QImage::Format_Invalid)
        return QImage();
    QImage image(announcedSize(reader), reader.imageFormat());
    if (image.isNull())
        throw RuntimeError(error::OutOfMemory);
    constexpr uint FirstColour = 0;
    constexpr uint AllBits = ~0U;
    image.fill(image.depth() <= 8 ? FirstColour : AllBits);
    return image;
}

/// Lays a picture over white.
QImage opaque(QImage image) {
    if (!image.hasAlphaChannel())
        return image;
    image = std::move(image).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        throw RuntimeError(error::OutOfMemory);
    for (int y = 0; y < image.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (QRgb* pixel = row; pixel < row + image.width(); ++pixel)
            *pixel += static_cast<QRgb>(255 - qAlpha(*pixel)) * 0x01010101U;
    }
    image.reinterpretAsFormat(QImage::Format_RGB32);
    return image;
}

QByteArray formatOf(QIODevice& device) {
    QByteArray format = QImageReader::imageFormat(&device);
    if (!QByteArrayList({"bmp", "gif", "jpeg", "png"}).contains(format))
        throw RuntimeError(error::InvalidPicture);
    return format;
}

Raster decode(QIODevice& device) {
    const QByteArray format = formatOf(device);
    if (!holdsWholePicture(device, format))
        throw RuntimeError(error::InvalidPicture);
    device.seek(0);
    QImageReader::setAllocationLimit(0); // 128 MB would refuse an ordinary scan; requirePlausible stands in
    QImageReader reader(&device, format);
    reader.setAutoTransform(true);
    requirePlausible(announcedSize(reader), device.size());
    QImage image = canvas(reader);
    if (!reader.read(&image) || image.isNull())
        throw RuntimeError(error::InvalidPicture);
    return Raster::fromImage(opaque(std::move(image)));
}

} // namespace

Raster loadPicture(const QString& path) {
    QFile file(path);
    openForReading(file);
    return decode(file);
}

Raster decodePicture(const QByteArray& content) {
    QBuffer buffer;
    buffer.setData(content);
    buffer.open(QIODevice::ReadOnly);
    return decode(buffer);
}

} // namespace ovrano
