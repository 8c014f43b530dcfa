#include "text/directionicon.h"

#include "platform/screen.h"
#include "text/textsample.h"

#include <QPainter>
#include <QPixmap>

#include <algorithm>

namespace ovrano {

namespace {

constexpr int FaceSide = 9;

QColor asQColor(Colour colour) {
    return QColor(toPixel(colour));
}

/// The upper-left corners of the layers, in pixels from that of the farthest or the front one.
QRect extentOf(const std::vector<TextLayer>& layers) {
    QRect extent;
    for (const TextLayer& layer : layers)
        extent |= QRect(layer.x / TwipsPerPixelX, layer.y / TwipsPerPixelY, FaceSide, FaceSide);
    return extent;
}

QPixmap drawn(const std::vector<TextLayer>& layers, Colour ground, int devicePixelRatio) {
    QPixmap pixmap(QSize(DirectionIconSide, DirectionIconSide) * devicePixelRatio);
    pixmap.setDevicePixelRatio(devicePixelRatio);
    pixmap.fill(asQColor(ground));
    QPainter painter(&pixmap);
    const QRect extent = extentOf(layers);
    const QPoint margin((DirectionIconSide - extent.width()) / 2, (DirectionIconSide - extent.height()) / 2);
    painter.translate(margin - extent.topLeft());
    for (const TextLayer& layer : layers) {
        const QPoint corner(layer.x / TwipsPerPixelX, layer.y / TwipsPerPixelY);
        painter.fillRect(QRect(corner, QSize(FaceSide, FaceSide)),
                         asQColor(std::min(layer.colour, BrightestLayer)));
    }
    return pixmap;
}

} // namespace

QIcon directionIcon(Direction direction, std::int16_t depthPixels, Colour colour) {
    const auto layers = visibleLayers(extrusionLayers(colour, extrusionDepth(depthPixels), direction));
    QIcon icon;
    for (const int devicePixelRatio : {1, 2, 3})
        icon.addPixmap(drawn(layers, sampleGround(colour), devicePixelRatio));
    return icon;
}

} // namespace ovrano
