#pragma once

#include "platform/yield.h"

#include <QRgb>
#include <QSize>

#include <type_traits>

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
};

/// Calls visit(y, row) for each row, from the top, and lets the window repaint meanwhile. A visit that gives
/// false ends it; whether it came to the last row is told.
template<typename Visit>
bool forEachRow(PixelRows& rows, Visit&& visit) {
    EventYield yield;
    for (int y = 0; y < rows.size().height(); ++y) {
        if constexpr (std::is_void_v<decltype(visit(y, rows.row(y)))>)
            visit(y, rows.row(y));
        else if (!visit(y, rows.row(y)))
            return false;
        yield();
    }
    return true;
}

} // namespace ovrano
