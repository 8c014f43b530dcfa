#include "document/pixelrows.h"

#include "platform/parallel.h"

namespace ovrano {

void forEachRowInParallel(PixelRows& rows,
                          const std::function<void(int worker, int y, const QRgb* row)>& visit) {
    constexpr int PortionPixels = 2'000'000; // between two repaintings
    const int height = rows.size().height();
    const int bandHeight = rows.bandHeight();
    const int bandsAtATime = std::max(1, PortionPixels / (bandHeight * rows.size().width()));
    const int bands = (height + bandHeight - 1) / bandHeight;
    PerWorker<PixelRows> readers([&rows] { return rows.anotherReader(); });
    EventYield yield;
    for (int portion = 0; portion < bands; portion += bandsAtATime) {
        inParallel(std::min(bandsAtATime, bands - portion), [&](int worker, int item) {
            PixelRows& reader = readers.of(worker);
            const int first = (portion + item) * bandHeight;
            for (int y = first; y < std::min(first + bandHeight, height); ++y)
                visit(worker, y, reader.row(y));
        });
        yield();
    }
}

} // namespace ovrano
