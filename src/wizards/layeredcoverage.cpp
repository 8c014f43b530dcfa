#include "wizards/layeredcoverage.h"

#include "platform/runtimeerror.h"
#include "platform/vectorised.h"

#include <algorithm>

namespace ovrano {

namespace {

constexpr float Full = 255;
constexpr float FullToBeCut = Full + 0.5F; // so that cutting the fraction rounds

OVRANO_VECTORISED void coverRow(float* free, const uchar* mask, int count) {
    for (int x = 0; x < count; ++x)
        free[x] *= (Full - static_cast<float>(mask[x])) * (1 / Full);
}

OVRANO_VECTORISED void writeRow(uchar* coverage, const float* free, int count) {
    for (int x = 0; x < count; ++x)
        coverage[x] = static_cast<uchar>(static_cast<int>(FullToBeCut - Full * free[x]));
}

/// What all prints leave of one row of the area; `free` holds 1 for each of its pixels.
void coverByAll(std::vector<float>& free, const SmoothTextMask& mask, const std::vector<QPoint>& origins,
                const QRect& row) {
    for (const QPoint origin : origins) {
        const QRect ink = mask.ink().translated(origin);
        const QRect part = ink & row;
        if (!part.isEmpty())
            coverRow(free.data() + (part.left() - row.left()),
                     mask.coverage().constScanLine(row.top() - ink.top()) + (part.left() - ink.left()),
                     part.width());
    }
}

} // namespace

QImage layeredCoverage(const SmoothTextMask& mask, const std::vector<QPoint>& origins, const QRect& area) {
    if (area.isEmpty())
        return {};
    QImage coverage(area.size(), QImage::Format_Grayscale8);
    if (coverage.isNull())
        throw RuntimeError(error::OutOfMemory);
    std::vector<float> free(static_cast<std::size_t>(area.width()));
    for (int y = area.top(); y <= area.bottom(); ++y) {
        std::fill(free.begin(), free.end(), 1.0F);
        coverByAll(free, mask, origins, QRect(area.left(), y, area.width(), 1));
        writeRow(coverage.scanLine(y - area.top()), free.data(), area.width());
    }
    return coverage;
}

} // namespace ovrano
