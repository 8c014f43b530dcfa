#pragma once

#include "document/palette.h"

#include <QSize>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace ovrano {

/// A picture whose pixels are places in a palette, row by row from the top without gaps.
struct IndexedPicture {
    QSize size;
    Palette palette;
    std::vector<std::uint8_t> indices;

    std::uint8_t* row(int y) { return indices.data() + offset(y); }
    const std::uint8_t* row(int y) const { return indices.data() + offset(y); }

private:
    std::size_t offset(int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(size.width());
    }
};

} // namespace ovrano
