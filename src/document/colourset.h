#pragma once

#include <QRgb>

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace ovrano {

/// A set of up to 256 opaque colours that tells with one look, and without a branch, whether a colour is in
/// it.
///
/// Multiplicative hashing (Knuth, The Art of Computer Programming 3, 6.4) into a table so large that a factor
/// by which no two of the colours meet is found after some sixty trials.
class ColourSet {
public:
    explicit ColourSet(std::span<const QRgb> colours);

    /// To be asked about opaque colours.
    bool contains(QRgb colour) const { return m_slots[slotOf(colour)] == colour; }

private:
    static constexpr int SlotBits = 13;
    static constexpr QRgb Free = 0; // not opaque

    std::size_t slotOf(QRgb colour) const { return (colour * m_factor) >> (32 - SlotBits); }
    /// False when two of the colours meet.
    bool place(std::span<const QRgb> colours);

    std::uint32_t m_factor = 0;
    std::vector<QRgb> m_slots;
};

} // namespace ovrano
