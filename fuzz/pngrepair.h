#pragma once

#include <cstddef>
#include <cstdint>

namespace ovrano::fuzz {

/// The checksum of a PNG chunk's name and content.
std::uint32_t pngChecksum(const std::uint8_t* bytes, std::size_t count);

/// Gives the chunks of a PNG file right checksums, and a length that fits to the one that reaches beyond the
/// end. Anything else stays.
void repairPng(std::uint8_t* bytes, std::size_t count);

} // namespace ovrano::fuzz
