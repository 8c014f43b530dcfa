#include "document/picturereader.h"

#include "document/bmplayout.h"
#include "document/decodedpicture.h"
#include "document/decoderlog.h"
#include "document/files.h"
#include "document/gifframe.h"
#include "document/maskedbmp.h"
#include "document/pictureend.h"
#include "document/yieldingdevice.h"
#include "platform/runtimeerror.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>

#include <utility>

namespace ovrano {

namespace {

/// A header of a few bytes can announce any size. So beyond a size that costs nothing, a file must hold at
/// least one byte for so many pixels. No real file comes near that limit: the best packed one, a blank
/// black-and-white PNG, has one byte for 8256 pixels.
constexpr qint64 FreePixels = 16'000'000;
constexpr qint64 MaxPixelsPerByte = 10'000;

void requirePlausible(QSize size, qint64 fileBytes) {
    requireAcceptable(size);
    const qint64 pixels = qint64{size.width()} * size.height();
    if (pixels > FreePixels && pixels / MaxPixelsPerByte > fileBytes)
        throw RuntimeError(error::InvalidPicture);
}

/// The size in the file's header, read before anything else: the toolkit does not know all versions of a BMP
/// file, and for a GIF it may report the first frame's size.
QSize announcedSize(QIODevice& device, const QImageReader& reader) {
    if (reader.format() == "bmp")
        return bmp::layoutOf(device).size();
    const QSize screen = reader.format() == "gif" ? gifScreenSize(device) : QSize(0, 0);
    const QSize size = reader.size();
    return QSize(screen.width() > 0 ? screen.width() : size.width(),
                 screen.height() > 0 ? screen.height() : size.height());
}

/// The format of a device's content; empty when it is none that the program opens.
QByteArray formatOf(QIODevice& device) {
    const QByteArray format = QImageReader::imageFormat(&device);
    return QByteArrayList({"bmp", "gif", "jpeg", "png"}).contains(format) ? format : QByteArray();
}

/// The JPEG decoder writes all rows (grey where the data is damaged) or fails, so filling half a gigabyte
/// beforehand would be wasted.
QImage canvasFor(const QByteArray& format, QSize size, QImage::Format pixels, EventYield& yield) {
    return format == "jpeg" ? bareCanvas(size, pixels) : newCanvas(size, pixels, yield);
}

Raster decode(QIODevice& device) {
    const QByteArray format = formatOf(device);
    EventYield yield;
    YieldingDevice yielding(device, yield);
    if (format.isEmpty() || !holdsWholePicture(yielding, format))
        throw RuntimeError(error::InvalidPicture);
    yielding.seek(0);
    const DecoderLog log;
    QImageReader::setAllocationLimit(
        0); // the default of 128 MB would refuse an ordinary scan; requirePlausible checks instead
    QImageReader reader(&yielding, format);
    const QSize size = announcedSize(yielding, reader);
    requirePlausible(size, device.size());
    if (auto masked = format == "bmp" ? bmp::readMasked(yielding, yield) : std::nullopt)
        return toRaster(std::move(*masked), QImageIOHandler::TransformationNone, yield);
    QImage image; // a format that is not known beforehand is filled by its decoder
    if (reader.imageFormat() != QImage::Format_Invalid)
        image = canvasFor(format, size, reader.imageFormat(), yield);
    if (!reader.read(&image) || image.size() != size || log.tellsOfMissingData())
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
    return format.isEmpty() ? QSize() : announcedSize(buffer, QImageReader(&buffer, format));
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
