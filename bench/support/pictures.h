#pragma once

#include "platform/raster.h"

#include <QImage>
#include <QSize>
#include <QString>

#include <string>

namespace ovrano::bench {

/// A picture of so many million pixels: a square, or 4:3 like a photograph's.
QSize squareOf(int megapixels);
inline constexpr QSize TwelveMegapixels = QSize(4000, 3000);
inline constexpr int GrowingMegapixels[] = {1, 4, 16, 64};

/// "rotation" and 16 give "rotation, 16 MP".
std::string named(const std::string& work, int megapixels);

/// A landscape with noise, like a photograph, of any size.
QImage photo(QSize size);

/// A face's soft shades.
QImage portrait(QSize size);
/// A cloudless sky.
QImage gradientSky(QSize size);
/// Flat areas, small letters, rules.
QImage screenshot(QSize size);

} // namespace ovrano::bench
