#pragma once

#include <QByteArray>
#include <QSize>

#include <array>
#include <cstdio> // jpeglib.h needs it and does not say so
#include <functional>
#include <jpeglib.h>
#include <vector>

namespace ovrano::hostile {

/// A JPEG file of a given kind, written by the library.
struct JpegMaker {
    QSize size = QSize(48, 40);
    J_COLOR_SPACE given = JCS_RGB;        // what pixel() gives
    J_COLOR_SPACE stored = JCS_YCbCr;     // what it is turned into
    std::array<int, 2> sampling = {1, 1}; // of brightness against colour, across and down
    bool progressive = false;
    bool arithmetic = false;
    int restartBlocks = 0; // between restart marks, 0 for none
    int quality = 95;
    bool jfif = true;   // the mark of an ordinary file
    bool adobe = false; // the mark that tells the colours' meaning

    QByteArray bytes(const std::function<std::vector<int>(int x, int y)>& pixel) const;

private:
    void configure(jpeg_compress_struct& codec) const;
};

} // namespace ovrano::hostile
