#pragma once

#include <cstddef>

namespace ovrano {

/// Rows of pixels, or of a mask's values, that need not lie close to each other.
template<typename Value>
struct Rows {
    Value* first;
    std::ptrdiff_t perRow; // from the beginning of a row to that of the next
};

} // namespace ovrano
