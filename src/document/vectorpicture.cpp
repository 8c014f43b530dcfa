#include "document/vectorpicture.h"

#include "document/decodedpicture.h"
#include "document/drawingbudget.h"
#include "document/picturereader.h"
#include "document/selfcontainedsvg.h"
#include "document/yieldingdevice.h"
#include "platform/runtimeerror.h"
#include "platform/yield.h"

#include <QBuffer>
#include <QPainter>
#include <QSvgRenderer>
#include <QXmlStreamReader>

#include <algorithm>

namespace ovrano {

namespace {

/// Drawn at once; a larger picture is drawn in bands, so that the window repaints in between. A band of many
/// rows takes long, too, however narrow it is: see DrawingBudget::costOf().
constexpr int BandPixels = 1 << 21;
constexpr int BandRows = 2048;

void drawBand(QSvgRenderer& renderer, QImage& picture, int top, int rows) {
    QImage band(picture.scanLine(top), picture.width(), rows, picture.bytesPerLine(), picture.format());
    QPainter painter(&band);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(0, -top);
    renderer.render(&painter, QRectF(QPointF(0, 0), QSizeF(picture.size())));
}

/// Gives the number of elements that one drawing goes through.
qint64 loadDrawing(QSvgRenderer& renderer, const QByteArray& svg, EventYield& yield) {
    SelfContainedSvg drawing = selfContainedSvg(svg, yield);
    QBuffer buffer(&drawing.svg);
    buffer.open(QIODevice::ReadOnly);
    YieldingDevice yielding(buffer, yield);
    QXmlStreamReader reader(&yielding);
    if (!renderer.load(&reader))
        throw RuntimeError(error::InvalidPicture);
    return drawing.drawnElements;
}

} // namespace

Raster renderVectorPicture(const QByteArray& svg) {
    EventYield yield;
    QSvgRenderer renderer;
    const qint64 elements = loadDrawing(renderer, svg, yield);
    const QSize size = renderer.defaultSize();
    requireAcceptable(size);
    DrawingBudget::requireAffordable(elements, DrawingBudget::costOf(size));
    const int rows = std::clamp(BandPixels / size.width(), 1, BandRows);
    QImage picture = newCanvas(size, QImage::Format_RGB32, yield);
    for (int top = 0; top < size.height(); top += rows) {
        drawBand(renderer, picture, top, std::min(rows, size.height() - top));
        yield();
    }
    return Raster::fromImage(picture);
}

} // namespace ovrano
