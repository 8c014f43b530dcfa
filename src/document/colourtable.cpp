#include "document/colourtable.h"

#include <bit>

namespace ovrano {

// At most half of the slots are ever taken, so that chains of collisions stay short.
ColourTable::ColourTable(int limit)
    : m_limit(limit)
    , m_shift(31 - static_cast<int>(std::bit_width(static_cast<std::uint32_t>(limit))))
    , m_slots(std::size_t{1} << (32 - m_shift)) {}

inline std::size_t ColourTable::placeOf(QRgb colour) const {
    // Multiplicative hashing (Knuth, The Art of Computer Programming 3, 6.4) by 2^32 over the golden ratio.
    std::size_t place = (colour * 0x9E3779B1u) >> m_shift;
    while (m_slots[place].colour != colour && m_slots[place].colour != Free)
        place = (place + 1) & (m_slots.size() - 1);
    return place;
}

std::uint32_t* ColourTable::insert(QRgb colour) {
    Slot& slot = m_slots[placeOf(colour)];
    if (slot.colour == Free) {
        if (m_size == m_limit)
            return nullptr;
        ++m_size;
        slot.colour = colour;
    }
    return &slot.number;
}

void ColourTable::read(const QRgb* row, int width, std::uint8_t* indices) const {
    QRgb last = Free;
    std::uint8_t index = 0;
    for (int x = 0; x < width; ++x) {
        if (row[x] != last) {
            last = row[x];
            index = static_cast<std::uint8_t>(m_slots[placeOf(last)].number);
        }
        indices[x] = index;
    }
}

} // namespace ovrano
