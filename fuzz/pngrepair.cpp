#include "pngrepair.h"

#include <QtEndian>

#include <algorithm>
#include <cstring>

namespace ovrano::fuzz {

std::uint32_t pngChecksum(const std::uint8_t* bytes, std::size_t count) {
    constexpr std::uint32_t Polynomial = 0xEDB88320;
    std::uint32_t sum = 0xFFFFFFFF;
    for (std::size_t i = 0; i < count; ++i) {
        sum ^= bytes[i];
        for (int bit = 0; bit < 8; ++bit)
            sum = sum >> 1U ^ (sum & 1U ? Polynomial : 0U);
    }
    return ~sum;
}

void repairPng(std::uint8_t* bytes, std::size_t count) {
    constexpr std::size_t SignatureBytes = 8;
    constexpr std::size_t AroundContent = 12; // length, name, checksum
    if (count < SignatureBytes || std::memcmp(bytes, "\x89PNG\r\n\x1A\n", SignatureBytes) != 0)
        return;
    for (std::size_t at = SignatureBytes; at + AroundContent <= count;) {
        const std::size_t longest = count - at - AroundContent;
        const std::size_t length = std::min<std::size_t>(qFromBigEndian<quint32>(bytes + at), longest);
        qToBigEndian(static_cast<quint32>(length), bytes + at);
        qToBigEndian(pngChecksum(bytes + at + 4, length + 4), bytes + at + 8 + length);
        at += AroundContent + length;
    }
}

} // namespace ovrano::fuzz
