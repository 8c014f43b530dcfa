#include "document/decodedpicture.h"

#include "platform/largememory.h"
#include "platform/runtimeerror.h"
#include "platform/vectorised.h"

#include <QColorSpace>
#include <QTransform>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace ovrano {

namespace {

/// Pixels of a band: a few milliseconds of work for the slowest conversion.
constexpr int BandPixels = 1 << 19;

/// Calls work(first row, rows) for one band after the other.
template<typename Work>
void inBands(QSize size, EventYield& yield, Work&& work) {
    const int rows = std::max(1, BandPixels / std::max(1, size.width()));
    for (int y = 0; y < size.height(); y += rows) {
        work(y, std::min(rows, size.height() - y));
        yield();
    }
}

/// A view of some rows of an image, which must outlive it.
QImage bandOf(const QImage& image, int y, int rows) {
    QImage band(image.constScanLine(y), image.width(), rows, image.bytesPerLine(), image.format());
    band.setColorTable(image.colorTable());
    band.setColorSpace(image.colorSpace());
    return band;
}

/// Lays a premultiplied row over white.
OVRANO_VECTORISED void overWhite(QRgb* out, const QRgb* row, int count) {
    for (int x = 0; x < count; ++x)
        out[x] = row[x] + (255U - (row[x] >> 24)) * 0x01010101U;
}

/// The image in the program's own format.
QImage opaque(const QImage& image, EventYield& yield) {
    if (image.format() == QImage::Format_RGB32)
        return image;
    QImage opaque = bareCanvas(image.size(), QImage::Format_RGB32);
    uchar* bits = opaque.bits();
    const qsizetype stride = opaque.bytesPerLine();
    inBands(image.size(), yield, [&](int first, int rows) {
        const QImage band = bandOf(image, first, rows).convertToFormat(QImage::Format_ARGB32_Premultiplied);
        if (band.isNull())
            throw RuntimeError(error::OutOfMemory);
        for (int y = 0; y < rows; ++y)
            overWhite(reinterpret_cast<QRgb*>(bits + (first + y) * stride),
                      reinterpret_cast<const QRgb*>(band.constScanLine(y)), band.width());
    });
    return opaque;
}

/// Which part of a stored picture comes to `place` once it has been mirrored and then turned.
QRect storedPart(const QRect& place, QSize stored, QImageIOHandler::Transformations orientation) {
    QRect part = place;
    if (orientation & QImageIOHandler::TransformationRotate90)
        part = QRect(place.top(), stored.height() - 1 - place.right(), place.height(), place.width());
    if (orientation & QImageIOHandler::TransformationMirror)
        part.moveLeft(stored.width() - 1 - part.right());
    if (orientation & QImageIOHandler::TransformationFlip)
        part.moveTop(stored.height() - 1 - part.bottom());
    return part;
}

Raster upright(const QImage& image, QImageIOHandler::Transformations orientation, EventYield& yield) {
    const bool turned = orientation & QImageIOHandler::TransformationRotate90;
    Raster raster(turned ? image.size().transposed() : image.size(), White);
    raster.writeTiles(raster.rect(), [&](Tile& tile, const QRect& place) {
        QImage part = image.copy(storedPart(place, image.size(), orientation))
                          .mirrored(orientation & QImageIOHandler::TransformationMirror,
                                    orientation & QImageIOHandler::TransformationFlip);
        if (turned)
            part = part.transformed(QTransform().rotate(90));
        if (part.isNull())
            throw RuntimeError(error::OutOfMemory);
        part = std::move(part).convertToFormat(QImage::Format_RGB32);
        tile = Tile::viewOf(part, part.rect());
        yield();
    });
    return raster;
}

} // namespace

QImage bareCanvas(QSize size, QImage::Format format) {
    QImage image(size, format);
    if (image.isNull())
        throw RuntimeError(error::OutOfMemory);
    willBeWritten(image.bits(), static_cast<std::size_t>(image.sizeInBytes()));
    return image;
}

QImage newCanvas(QSize size, QImage::Format format, EventYield& yield) {
    QImage image = bareCanvas(size, format);
    uchar* bits = image.bits();
    const qsizetype stride = image.bytesPerLine();
    const uchar white = image.depth() <= 8 ? 0 : 0xFF;
    inBands(size, yield,
            [&](int first, int rows) { std::fill_n(bits + first * stride, rows * stride, white); });
    return image;
}

Raster toRaster(QImage image, QImageIOHandler::Transformations orientation, EventYield& yield) {
    image = opaque(image, yield);
    yield(); // giving half a gigabyte back takes its time, too
    if (orientation == QImageIOHandler::TransformationNone)
        return Raster::fromImage(image);
    return upright(image, orientation, yield);
}

} // namespace ovrano
