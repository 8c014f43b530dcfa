#include "platform/keyfilter.h"

namespace ovrano {

std::int16_t FilterNumericKey(std::int16_t& keyAscii) {
    constexpr std::int16_t Backspace = 8;
    if ((keyAscii < '0' || keyAscii > '9') && keyAscii != Backspace)
        keyAscii = 0;
    return keyAscii;
}

} // namespace ovrano
