#include "document/picturereader.h"

#include "document/decodedpicture.h"
#include "document/files.h"
#include "document/pictureend.h"
#include "document/yieldingdevice.h"
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
    requireAcceptable(size);
    const qint64 pixels = qint64{size.width()} * size.height();
    if (pixels > FreePixels && pixels / MaxPixelsPerByte > fileBytes)
        throw RuntimeError(error::InvalidPicture);
}

/// A BMP file that is stored from the top down announces a negative height.
QSize announcedSize(const QImageReader& reader) {
    const QSize size = reader.size();
    return QSize(size.width(), qAbs(size.height()));
}

/// The format of a device's content; empty when it is none that the program opens.
QByteArray formatOf(QIODevice& device) {
    const QByteArray format = QImageReader::imageFormat(&device);
    return QByteArrayList({"bmp", "gif", "jpeg", "png"}).contains(format) ? format : QByteArray();
}

Raster decode(QIODevice& device) {
    const QByteArray format = formatOf(device);
    if (format.isEmpty() || !holdsWholePicture(device, format))
        throw RuntimeError(error::InvalidPicture);
    EventYield yield;
    YieldingDevice yielding(device, yield);
    QImageReader::setAllocationLimit(0); // 128 MB would refuse an ordinary scan; requirePlausible stands in
    QImageReader reader(&yielding, format);
    const QSize size = announcedSize(reader);
    requirePlausible(size, device.size());
    QImage image; // a format that is not known beforehand is filled by its decoder
    if (reader.imageFormat() != QImage::Format_Invalid)
        image = newCanvas(size, reader.imageFormat(), yield);
    if (!reader.read(&image) || image.isNull())
        throw RuntimeError(error::InvalidPicture);
    return toRaster(std::move(image), reader.transformation(), yield);
}

/// A buffer over bytes that outlive it.
void openOn(QBuffer& buffer, const QByteArray& content) {
    buffer.setData(content);
    buffer.open(QIODevice::ReadOnly);
}

} // namespace

void requireAcceptable(QSize size) {
    if (size.isEmpty())
        throw RuntimeError(error::InvalidPicture);
    const qint64 pixels = qint64{size.width()} * size.height();
    if (size.width() > Raster::MaxSide || size.height() > Raster::MaxSide || pixels > MaxPicturePixels)
        throw RuntimeError(error::OutOfMemory);
}

QSize announcedPictureSize(const QByteArray& content) {
    QBuffer buffer;
    openOn(buffer, content);
    const QByteArray format = formatOf(buffer);
    return format.isEmpty() ? QSize() : announcedSize(QImageReader(&buffer, format));
}

Raster LoadPicture(const QString& path) {
    QFile file(path);
    openForReading(file);
    return decode(file);
}

Raster decodePicture(const QByteArray& content) {
    QBuffer buffer;
    openOn(buffer, content);
    return decode(buffer);
}

} // namespace ovrano
