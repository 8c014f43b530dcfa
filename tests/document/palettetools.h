#pragma once

#include "document/imagerows.h"
#include "document/indexedpicture.h"

#include <QImage>
#include <QPainter>
#include <QRandomGenerator>

#include <cmath>
#include <functional>
#include <limits>

namespace ovrano {

/// A picture whose pixels are given by a function of their place.
inline QImage painted(QSize size, const std::function<QRgb(int x, int y)>& colourAt) {
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, colourAt(x, y));
    return image;
}

/// Colour number n of many that all differ: multiples of an odd number do, as long as 24 bits can tell.
inline QRgb distinctColour(int n) {
    return 0xFF000000U | ((static_cast<QRgb>(n) * 0x588B65U) & 0xFFFFFFU);
}

/// A picture with `count` colours strewn about; every one occurs if there are enough pixels.
inline QImage withColours(int count, QSize size) {
    return painted(size, [&](int x, int y) { return distinctColour((y * size.width() + x) * 7 % count); });
}

/// What a photograph has: smooth transitions in all channels and noise.
inline QImage photo(QSize size, int noise = 12) {
    QRandomGenerator random(1);
    const auto channel = [&](double value) {
        return qBound(0, static_cast<int>(std::lround(value)) + random.bounded(-noise / 2, noise / 2 + 1),
                      255);
    };
    return painted(size, [&](int x, int y) {
        const double u = double(x) / size.width();
        const double v = double(y) / size.height();
        const int red = channel(90 + 140 * v * u);
        const int green = channel(60 + 120 * v);
        return qRgb(red, green, channel(200 - 120 * v + 40 * std::sin(u * 6)));
    });
}

inline QImage toImage(const IndexedPicture& picture) {
    return painted(picture.size, [&](int x, int y) { return picture.palette.at(picture.row(y)[x]); });
}

inline int squaredDistance(QRgb a, QRgb b) {
    const int red = qRed(a) - qRed(b);
    const int green = qGreen(a) - qGreen(b);
    const int blue = qBlue(a) - qBlue(b);
    return red * red + green * green + blue * blue;
}

/// The nearest palette colour, the slow and obvious way; of equally near ones the first.
inline int slowNearest(const Palette& palette, QRgb colour) {
    int nearest = 0;
    int least = std::numeric_limits<int>::max();
    for (std::size_t index = 0; index < palette.size(); ++index) {
        const int distance = squaredDistance(palette[index], colour);
        if (distance < least) {
            least = distance;
            nearest = static_cast<int>(index);
        }
    }
    return nearest;
}

/// Peak signal to noise ratio in decibels.
inline double psnr(const QImage& a, const QImage& b) {
    double sum = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            sum += squaredDistance(a.pixel(x, y), b.pixel(x, y));
    return 10 * std::log10(255.0 * 255.0 * 3 * a.width() * a.height() / sum);
}

} // namespace ovrano
