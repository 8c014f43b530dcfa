#pragma once

#include "platform/surface.h"

#include <QStringList>

namespace ovrano {

/// The colours that a character of a readable grid stands for; '.' is white.
inline Colour gridColour(QChar c) {
    switch (c.unicode()) {
    case '.':
        return White;
    case '#':
        return Black;
    case 'r':
        return rgb(255, 0, 0);
    case 'g':
        return rgb(0, 255, 0);
    case 'b':
        return rgb(0, 0, 255);
    case 'y':
        return rgb(255, 255, 0);
    case 'm':
        return rgb(255, 0, 255);
    case 'c':
        return rgb(0, 255, 255);
    default:
        return rgb(128, 128, 128);
    }
}

/// A small picture written as rows of characters.
inline Raster grid(const QStringList& rows) {
    Raster raster(
        QSize(rows.isEmpty() ? 0 : static_cast<int>(rows.first().size()), static_cast<int>(rows.size())),
        White);
    for (int y = 0; y < raster.height(); ++y)
        for (int x = 0; x < raster.width(); ++x)
            raster.setPixel(x, y, gridColour(rows.at(y).at(x)));
    return raster;
}

/// The rows of a small picture; a colour without a letter of its own is '?'.
inline QStringList rowsOf(const Raster& raster) {
    QStringList rows;
    for (int y = 0; y < raster.height(); ++y) {
        QString row;
        for (int x = 0; x < raster.width(); ++x) {
            QChar letter = QLatin1Char('?');
            for (const char c : {'.', '#', 'r', 'g', 'b', 'y', 'm', 'c'})
                if (gridColour(QLatin1Char(c)) == raster.pixel(x, y))
                    letter = QLatin1Char(c);
            row += letter;
        }
        rows.append(row);
    }
    return rows;
}

} // namespace ovrano
