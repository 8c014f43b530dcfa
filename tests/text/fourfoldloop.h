#pragma once

#include "platform/numbers.h"
#include "platform/surface.h"
#include "text/rotation.h"

#include <array>
#include <cmath>
#include <set>
#include <utility>

namespace ovrano {

inline constexpr Colour Ground = rgb(200, 210, 220); // what a destination shows before

/// What one rotation is to do, besides its source.
struct RotationOrder {
    double angle = 0;
    bool skipBackground = false;
    Colour background = White;
    bool mixed = false;
    QPoint centre = QPoint(0, 0);
};

inline void rotate(const Surface& source, Surface& destination, const RotationOrder& order) {
    RotatePicture(source, destination, order.angle, order.skipBackground, order.background, order.mixed,
                  order.centre.x(), order.centre.y());
}

/// A surface of one colour.
inline void prepare(Surface& surface, QSize size, Colour colour) {
    surface.setBackColor(colour);
    surface.setInnerSize(size);
}

/// Every pixel another colour, but for every third, which is white.
inline Raster motley(QSize size) {
    Raster picture(size, White);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            if ((x + 2 * y) % 3 != 1)
                picture.setPixel(x, y, rgb((x * 37 + y * 11) % 250, (x * 5 + y * 71) % 250, (x ^ y) % 250));
    return picture;
}

inline void show(Surface& surface, const Raster& picture) {
    surface.setInnerSize(picture.size());
    surface.setPicture(picture);
}

/// The side of a square that holds a picture at every angle.
inline int squareFor(QSize size) {
    return static_cast<int>(std::sqrt(size.width() * size.width() + size.height() * size.height()) + 3);
}

/// The rotation as a plain loop over a quarter of the plane with four pixels a step: slow and obvious.
class FourfoldLoop {
public:
    using Pixel = std::pair<int, int>;

    FourfoldLoop(const Raster& source, const Raster& destination, const RotationOrder& order)
        : m_source(source)
        , m_destination(destination)
        , m_order(order)
        , m_side(sideOf(source)) {
        if (m_order.centre.x() == 0)
            m_order.centre.setX(destination.width() / 2);
        if (m_order.centre.y() == 0)
            m_order.centre.setY(destination.height() / 2);
    }

    const Raster& run() {
        for (double o = 0; o <= m_side / 2.0; ++o)
            for (double i = 0; i <= m_side / 2.0; ++i)
                step(o, i);
        return m_destination;
    }

    /// Only the row and the column of the centre, of which a large picture has few enough.
    const Raster& runAxes() {
        for (double i = 0; i <= m_side / 2.0; ++i)
            step(0, i);
        for (double o = 1; o <= m_side / 2.0; ++o)
            step(o, 0);
        return m_destination;
    }

    QPoint centre() const { return m_order.centre; }

    /// Pixels beside the axes that a tiny error may give another colour.
    const std::set<Pixel>& doubtful() const { return m_doubtful; }

private:
    static constexpr double Pi = 3.14159265359;

    static std::int16_t sideOf(const Raster& source) {
        const double w = source.width();
        const double h = source.height();
        return toInteger16(std::sqrt(w * w + h * h) + 2);
    }

    void step(double o, double i) {
        const double sx = m_source.width() / 2;
        const double sy = m_source.height() / 2;
        const double theta = (m_order.angle / 360) * 2 * Pi;
        const double a = o == 0 ? Pi / 2 : std::atan(i / o);
        const double r = std::sqrt(o * o + i * i);
        const double c = r * std::cos(theta + a);
        const double s = r * std::sin(theta + a);
        copy(sx + c, sy + s, o, i);
        copy(sx - c, sy - s, -o, -i);
        copy(sx + s, sy - c, i, -o);
        copy(sx - s, sy + c, -i, o);
    }

    static bool nearHalf(double value) { return std::abs(value - std::floor(value) - 0.5) < 1e-9; }

    void copy(double x, double y, double dx, double dy) {
        const Pixel to(m_order.centre.x() + static_cast<int>(dx), m_order.centre.y() + static_cast<int>(dy));
        if (dx != 0 && dy != 0 && (nearHalf(x) || nearHalf(y)))
            m_doubtful.insert(to);
        const Colour colour =
            m_source.pixel(static_cast<int>(roundHalfEven(x)), static_cast<int>(roundHalfEven(y)));
        if (colour == InvalidColour || (m_order.skipBackground && colour == m_order.background))
            return;
        m_destination.setPixel(to.first, to.second, m_order.mixed ? mixed(x, y, colour) : colour);
    }

    /// Bilinear; what is outside or left out counts as the nearest pixel.
    Colour mixed(double x, double y, Colour nearest) const {
        const double left = std::floor(x);
        const double top = std::floor(y);
        std::array<double, 3> sum{};
        for (int corner = 0; corner < 4; ++corner) {
            const double px = left + corner % 2;
            const double py = top + corner / 2;
            Colour colour = m_source.pixel(static_cast<int>(px), static_cast<int>(py));
            if (colour == InvalidColour || (m_order.skipBackground && colour == m_order.background))
                colour = nearest;
            const double weight = (1 - std::abs(x - px)) * (1 - std::abs(y - py));
            sum[0] += weight * redOf(colour);
            sum[1] += weight * greenOf(colour);
            sum[2] += weight * blueOf(colour);
        }
        return rgb(qRound(sum[0]), qRound(sum[1]), qRound(sum[2]));
    }

    const Raster& m_source;
    Raster m_destination;
    RotationOrder m_order;
    std::int16_t m_side;
    std::set<Pixel> m_doubtful;
};

} // namespace ovrano
