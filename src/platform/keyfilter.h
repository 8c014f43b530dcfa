#pragma once

#include <cstdint>

namespace ovrano {

/// Lets digits and Backspace (8) through and turns every other character code into 0, in place and as
/// the result.
std::int16_t FilterNumericKey(std::int16_t& keyAscii);

} // namespace ovrano
