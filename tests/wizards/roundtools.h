#pragma once

#include "platform/surface.h"
#include "platform/textmask.h"
#include "wizards/modroundtext.h"

#include <QRect>
#include <QString>

#include <memory>

namespace ovrano {

/// A white surface that prints black letters of a size in points.
inline std::unique_ptr<Surface> paper(QSize size = QSize(300, 300), double points = 18) {
    auto surface = std::make_unique<Surface>(QStringLiteral("paper"), size);
    surface->setFont(textFont(QStringLiteral("Liberation Sans"), points, false, false));
    return surface;
}

/// The box around everything that differs from a colour; empty where nothing does.
inline QRect inkBox(const Raster& picture, Colour background = White) {
    QRect box;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (picture.pixel(x, y) != background)
                box |= QRect(x, y, 1, 1);
    return box;
}

inline bool isBlank(const Raster& picture, Colour background = White) {
    return inkBox(picture, background).isEmpty();
}

/// A square picture turned counter-clockwise by quarter turns about the corner of its middle pixels.
inline Raster quarterTurned(const Raster& picture, int quarters) {
    Raster turned = picture;
    const int last = picture.width() - 1;
    for (; quarters > 0; --quarters) {
        const Raster before = turned;
        for (int y = 0; y <= last; ++y)
            for (int x = 0; x <= last; ++x)
                turned.setPixel(y, last - x, before.pixel(x, y));
    }
    return turned;
}

} // namespace ovrano
