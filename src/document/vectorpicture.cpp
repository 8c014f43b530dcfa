#include "document/vectorpicture.h"

#include "document/decodedpicture.h"
#include "document/picturereader.h"
#include "document/selfcontainedsvg.h"
#include "platform/runtimeerror.h"
#include "platform/yield.h"

#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>

namespace ovrano {

namespace {

/// Drawn at once; a larger picture is drawn in bands, so that the window repaints in between.
constexpr int BandPixels = 1 << 21;

void drawBand(QSvgRenderer& renderer, QImage& picture, int top, int rows) {
    QImage band(picture.scanLine(top), picture.width(), rows, picture.bytesPerLine(), picture.format());
    QPainter painter(&band);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(0, -top);
    renderer.render(&painter, QRectF(QPointF(0, 0), QSizeF(picture.size())));
}

} // namespace

Raster renderVectorPicture(const QByteArray& svg) {
    QSvgRenderer renderer;
    if (!renderer.load(selfContainedSvg(svg)))
        throw RuntimeError(error::InvalidPicture);
    const QSize size = renderer.defaultSize();
    requireAcceptable(size);
    EventYield yield;
    QImage picture = newCanvas(size, QImage::Format_RGB32, yield);
    const int rows = std::max(1, BandPixels / size.width());
    for (int top = 0; top < size.height(); top += rows) {
        drawBand(renderer, picture, top, std::min(rows, size.height() - top));
        yield();
    }
    return Raster::fromImage(picture);
}

} // namespace ovrano
