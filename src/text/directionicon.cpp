#include "text/directionicon.h"

#include "platform/screen.h"

#include <QPainter>
#include <QPixmap>

namespace ovrano {

namespace {

constexpr std::int16_t DepthPixels = 6;
constexpr int FaceSide = 9;

QColor between(const QColor& a, const QColor& b) {
    return QColor((a.red() + b.red()) / 2, (a.green() + b.green()) / 2, (a.blue() + b.blue()) / 2);
}

QPixmap drawn(Direction direction, const QPalette& palette, int devicePixelRatio) {
    QPixmap pixmap(QSize(DirectionIconSide, DirectionIconSide) * devicePixelRatio);
    pixmap.setDevicePixelRatio(devicePixelRatio);
    pixmap.fill(Qt::transparent);
    const QColor face = palette.color(QPalette::Text);
    const QColor side = between(face, palette.color(QPalette::Base));
    const auto layers = extrusionLayers(Black, extrusionDepth(DepthPixels), direction);
    QPainter painter(&pixmap);
    for (const TextLayer& layer : visibleLayers(layers)) {
        const QPoint corner(layer.x / TwipsPerPixelX, layer.y / TwipsPerPixelY);
        painter.fillRect(QRect(corner, QSize(FaceSide, FaceSide)), layer == layers.back() ? face : side);
    }
    return pixmap;
}

} // namespace

QIcon directionIcon(Direction direction, const QPalette& palette) {
    QIcon icon;
    for (const int devicePixelRatio : {1, 2, 3})
        icon.addPixmap(drawn(direction, palette, devicePixelRatio));
    return icon;
}

} // namespace ovrano
