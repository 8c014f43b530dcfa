#include "platform/surface.h"

#include "platform/numbers.h"
#include "platform/runtimeerror.h"
#include "platform/screen.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace ovrano {

namespace {

/// Pixels on and pixels off of a dotted line.
constexpr int DotLength = 3;
/// Beyond this many rectangles the drawn area is kept as its bounding box.
constexpr int MaxDrawnRects = 64;

/// A whole number of pixels, cut to what coordinates of any surface can be.
int toInt(double value) {
    constexpr double Limit = 1 << 28;
    return std::isnan(value) ? 0 : static_cast<int>(std::clamp(value, -Limit, Limit));
}

int checkedSide(double value) {
    if (!(value >= 0))
        throw RuntimeError(error::InvalidPropertyValue);
    return toInt(value);
}

/// The outline of a box as rectangles that do not overlap, also when it is a line or a point.
std::array<QRect, 4> outlineOf(const QRect& box) {
    const int inner = std::max(0, box.height() - 2);
    return {QRect(box.topLeft(), QSize(box.width(), 1)),
            QRect(box.bottomLeft(), QSize(box.height() > 1 ? box.width() : 0, 1)),
            QRect(box.left(), box.top() + 1, 1, inner),
            QRect(box.right(), box.top() + 1, box.width() > 1 ? 1 : 0, inner)};
}

struct Pen {
    QPoint start; // dots are counted from here
    Colour colour;
    DrawMode mode;
    DrawStyle style;

    bool covers(int x, int y) const {
        return style == DrawStyle::Solid || ((x - start.x()) + (y - start.y())) / DotLength % 2 == 0;
    }
    QRgb over(QRgb pixel) const { return mode == DrawMode::Invert ? pixel ^ 0x00FFFFFFU : toPixel(colour); }
};

void draw(Raster& raster, const QRect& area, const Pen& pen) {
    if (pen.mode == DrawMode::CopyPen && pen.style == DrawStyle::Solid) {
        raster.fill(area, pen.colour);
        return;
    }
    raster.writeTiles(area, [&](Tile& tile, const QRect& place) {
        QRgb* pixels = tile.pixels();
        for (int y = place.top(); y <= place.bottom(); ++y) {
            QRgb* row = pixels + y % Raster::TileSide * tile.pixelsPerRow();
            for (int x = place.left(); x <= place.right(); ++x) {
                QRgb& pixel = row[x % Raster::TileSide];
                if (pen.covers(x, y))
                    pixel = pen.over(pixel);
            }
        }
    });
}

/// What an area of a raster would be with something drawn over it.
Raster drawnOver(const Raster& raster, const QRect& area, Pen pen) {
    Raster strip(area.size(), White);
    strip.copyFrom(raster, area, QPoint(0, 0));
    pen.start -= area.topLeft();
    draw(strip, strip.rect(), pen);
    return strip;
}

} // namespace

Surface::Surface(const QString& name, QSize innerSize, QObject* parent)
    : QObject(parent)
    , m_base(innerSize, White)
    , m_image(m_base) {
    setObjectName(name);
}

double Surface::ScaleWidth() const {
    return m_image.width() * (m_scaleMode == ovrano::ScaleMode::Twips ? TwipsPerPixelX : 1);
}

double Surface::ScaleHeight() const {
    return m_image.height() * (m_scaleMode == ovrano::ScaleMode::Twips ? TwipsPerPixelY : 1);
}

void Surface::setWidth(double width) {
    setInnerSize(QSize(std::max(0, checkedSide(roundHalfEven(width)) - 2 * m_border), m_image.height()));
}

void Surface::setHeight(double height) {
    setInnerSize(QSize(m_image.width(), std::max(0, checkedSide(roundHalfEven(height)) - 2 * m_border)));
}

void Surface::setInnerSize(QSize size) {
    if (size.width() < 0 || size.height() < 0)
        throw RuntimeError(error::InvalidPropertyValue);
    if (size == m_image.size())
        return;
    rebuild(m_picture, size, true);
}

void Surface::setBorder(int border) {
    m_border = std::max(0, border);
}

void Surface::setAutoSize(bool on) {
    m_autoSize = on;
    if (on && !m_picture.isEmpty())
        setInnerSize(m_picture.size());
}

void Surface::setPicture(const Raster& picture) {
    rebuild(picture, m_autoSize && !picture.isEmpty() ? picture.size() : m_image.size(), false);
}

void Surface::rebuild(const Raster& picture, QSize size, bool keepDrawn) {
    if (keepDrawn)
        settle();
    Raster base = picture.size() == size ? picture : Raster(size, m_backColor);
    if (picture.size() != size)
        base.copyFrom(picture, picture.rect());
    Raster image = base;
    if (keepDrawn)
        for (const QRect& area : m_drawn)
            image.copyFrom(m_image, area);
    const bool otherSize = size != m_image.size();
    m_picture = picture;
    m_base = base;
    m_image = image;
    m_outline.clear();
    m_drawn = keepDrawn ? m_drawn & m_image.rect() : QRegion();
    if (otherSize)
        Q_EMIT innerSizeChanged(size);
    Q_EMIT changed(m_image.rect());
}

const Raster& Surface::Image() const {
    settle();
    return m_image;
}

void Surface::settle() const {
    for (const Strip& strip : m_outline)
        m_image.copyFrom(strip.pixels, strip.pixels.rect(), strip.corner);
    m_outline.clear();
}

void Surface::Cls() {
    m_currentX = m_currentY = 0;
    if (m_drawn.isEmpty())
        return;
    m_image = m_base;
    m_outline.clear();
    const QRegion area = m_drawn;
    m_drawn = QRegion();
    Q_EMIT changed(area);
}

void Surface::commit() {
    settle();
    m_picture = m_image;
    m_base = m_image;
    m_drawn = QRegion();
}

Surface::Contents Surface::contents() const {
    Contents contents;
    contents.picture = m_picture;
    contents.base = m_base;
    contents.image = m_image;
    contents.outline = m_outline;
    contents.drawn = m_drawn;
    contents.scaleMode = m_scaleMode;
    return contents;
}

void Surface::putBack(const Contents& contents) {
    const QSize size = m_image.size();
    m_picture = contents.picture;
    m_base = contents.base;
    m_image = contents.image;
    m_outline = contents.outline;
    m_drawn = contents.drawn;
    m_scaleMode = contents.scaleMode;
    if (m_image.size() != size)
        Q_EMIT innerSizeChanged(m_image.size());
    Q_EMIT changed(m_image.rect());
}

void Surface::setBackColor(Colour colour) {
    m_backColor = colour & White;
    rebuild(m_picture, m_image.size(), false);
}

QPoint Surface::pixelAt(double x, double y) const {
    if (m_scaleMode == ovrano::ScaleMode::Twips)
        return QPoint(toInt(std::floor(x / TwipsPerPixelX)), toInt(std::floor(y / TwipsPerPixelY)));
    return QPoint(toInt(roundHalfEven(x)), toInt(roundHalfEven(y)));
}

Colour Surface::Point(double x, double y) const {
    const QPoint at = pixelAt(x, y);
    return Image().pixel(at.x(), at.y());
}

void Surface::Line(QPointF from, QPointF to, Colour colour, BoxStyle style) {
    const QPoint a = pixelAt(from.x(), from.y());
    const QPoint b = pixelAt(to.x(), to.y());
    const QRect box(QPoint(std::min(a.x(), b.x()), std::min(a.y(), b.y())),
                    QPoint(std::max(a.x(), b.x()), std::max(a.y(), b.y())));
    const Pen pen{box.topLeft(), colour, m_drawMode, m_drawStyle};
    if (style == BoxStyle::Filled) {
        editImage(box, [&](Raster& image, const QRect&) { draw(image, box, pen); });
        return;
    }
    settle();
    QRegion touched;
    for (const QRect& part : outlineOf(box)) {
        const QRect inside = part & m_image.rect();
        if (inside.isEmpty())
            continue;
        m_outline += {inside.topLeft(), drawnOver(m_image, inside, pen)};
        touched += inside;
    }
    drawn(touched);
}

void Surface::Print(const QString& text) {
    const QPoint origin = pixelAt(m_currentX, m_currentY);
    const TextMask& mask = m_textCache.mask(m_font, text, m_image.rect().translated(-origin));
    editImage(mask.ink().translated(origin),
              [&](Raster& image, const QRect&) { mask.paint(image, origin, m_foreColor); });
    m_currentX = 0;
    m_currentY += TextHeight(text);
}

double Surface::TextWidth(const QString& text) const {
    return textExtent(m_font, text).width() * (m_scaleMode == ovrano::ScaleMode::Twips ? TwipsPerPixelX : 1);
}

double Surface::TextHeight(const QString& text) const {
    return textExtent(m_font, text).height() * (m_scaleMode == ovrano::ScaleMode::Twips ? TwipsPerPixelY : 1);
}

void Surface::copyFrom(const Surface& source, const QRect& from, QPoint to) {
    const QRect area = (from & source.m_image.rect()).translated(to - from.topLeft());
    editImage(area, [&](Raster& image, const QRect&) { image.copyFrom(source.Image(), from, to); });
}

void Surface::drawn(const QRegion& area) {
    if (area.isEmpty())
        return;
    m_drawn += area;
    if (m_drawn.rectCount() > MaxDrawnRects)
        m_drawn = m_drawn.boundingRect();
    Q_EMIT changed(area);
}

} // namespace ovrano
