#pragma once

#include "platform/yield.h"

#include <QRgb>
#include <QSize>

#include <algorithm>
#include <functional>
#include <memory>

namespace ovrano {

/// The rows of a picture, readable in any order and as often as needed, so that what works through a picture
/// need not hold it in memory.
class PixelRows {
public:
    PixelRows() = default;
    PixelRows(const PixelRows&) = delete;
    PixelRows& operator=(const PixelRows&) = delete;
    virtual ~PixelRows() = default;

    virtual QSize size() const = 0;

    /// Row y, counted from the top, as size().width() pixels 0xFFRRGGBB. It stays valid until the next call.
    virtual const QRgb* row(int y) = 0;

    /// Another reader of the same picture: rows are read by one thread from each reader. Several threads may
    /// ask for one at a time.
    virtual std::unique_ptr<PixelRows> anotherReader() const = 0;

    /// How many rows one reader had better read one after the other, from a multiple of that number on: as
    /// many as are fetched at once.
    int bandHeight() const {
        constexpr int BandPixels = 65'536; // enough to make the cost of a call vanish, but kept in the cache
        return std::max(1, BandPixels / std::max(1, size().width()));
    }
};

/// Calls visit(worker, y, row) for each row, in several threads at a time (see inParallel()), and lets the
/// window repaint in between.
void forEachRowInParallel(PixelRows& rows,
                          const std::function<void(int worker, int y, const QRgb* row)>& visit);

/// Calls visit(y, row) for each row, from the top, and lets the window repaint meanwhile.
template<typename Visit>
void forEachRow(PixelRows& rows, Visit&& visit) {
    EventYield yield;
    for (int y = 0; y < rows.size().height(); ++y) {
        visit(y, rows.row(y));
        yield();
    }
}

} // namespace ovrano
