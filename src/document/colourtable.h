#pragma once

#include <QRgb>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace ovrano {

/// A number for each of a limited count of colours: a hash table with open addressing that never grows.
class ColourTable {
public:
    /// `limit` is the count of colours that it can take.
    explicit ColourTable(int limit);

    int size() const { return m_size; }

    /// The number of an opaque colour, 0 when the colour is new. Null when it is new and the table is full.
    std::uint32_t* insert(QRgb colour);

    /// Reads the numbers of the pixels of a row, whose colours must all be there, as indices.
    void read(const QRgb* row, int width, std::uint8_t* indices) const;

    /// Calls visit(colour, number) for each colour, in an order that is the same for the same picture.
    template<typename Visit>
    void forEach(Visit&& visit) const {
        for (const Slot& slot : m_slots)
            if (slot.colour != Free)
                visit(slot.colour, slot.number);
    }

private:
    // Opaque colours are never 0.
    static constexpr QRgb Free = 0;

    struct Slot {
        QRgb colour = Free;
        std::uint32_t number = 0;
    };

    /// The slot that has a colour, or else the one where it would come.
    std::size_t placeOf(QRgb colour) const;

    int m_limit;
    int m_size = 0;
    int m_shift;
    std::vector<Slot> m_slots;
};

} // namespace ovrano
