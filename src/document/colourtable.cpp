#include "document/colourtable.h"

#include <bit>

namespace ovrano {

// At most half of the slots are ever taken, so that chains of collisions stay short.
ColourTable::ColourTable(int limit)
    : m_limit(limit)
    , m_shift(31 - static_cast<int>(std::bit_width(static_cast<std::uint32_t>(limit))))
    , m_slots(std::size_t{1} << (32 - m_shift)) {}

std::uint32_t* ColourTable::insert(QRgb colour) {
    // Multiplicative hashing (Knuth, The Art of Computer Programming 3, 6.4) by 2^32 over the golden ratio.
    std::size_t place = (colour * 0x9E3779B1u) >> m_shift;
    while (m_slots[place].colour != colour) {
        if (m_slots[place].colour == Free) {
            if (m_size == m_limit)
                return nullptr;
            ++m_size;
            m_slots[place].colour = colour;
            break;
        }
        place = (place + 1) & (m_slots.size() - 1);
    }
    return &m_slots[place].number;
}

void ColourTable::read(const QRgb* row, int width, std::uint8_t* indices) {
    QRgb last = Free;
    std::uint8_t index = 0;
    for (int x = 0; x < width; ++x) {
        if (row[x] != last) {
            last = row[x];
            index = static_cast<std::uint8_t>(*insert(last));
        }
        indices[x] = index;
    }
}

} // namespace ovrano
