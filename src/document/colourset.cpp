#include "document/colourset.h"

#include <algorithm>

namespace ovrano {

ColourSet::ColourSet(std::span<const QRgb> colours)
    : m_slots(std::size_t{1} << SlotBits) {
    // Odd multiples of 2^32 over the golden ratio, which are spread evenly over the odd numbers.
    constexpr std::uint32_t Golden = 0x9E3779B1;
    for (m_factor = Golden; !place(colours); m_factor += 2 * Golden)
        ;
}

bool ColourSet::place(std::span<const QRgb> colours) {
    std::fill(m_slots.begin(), m_slots.end(), Free);
    for (const QRgb colour : colours) {
        QRgb& slot = m_slots[slotOf(colour)];
        if (slot != Free && slot != colour)
            return false;
        slot = colour;
    }
    return true;
}

} // namespace ovrano
