#include "document/colourhistogram.h"

#include <cstddef>
#include <cstdint>

namespace ovrano {

namespace {

constexpr std::size_t Levels = 64;

/// Count of pixels and the sums of what the bin's place leaves of red, green and blue. A sum grows by at
/// most 3 a pixel, and a picture file of 24 bits a pixel and less than 4 GB cannot make it overflow.
using Sums = std::array<std::uint32_t, 4>;

std::size_t binOf(QRgb pixel) {
    return (pixel >> 6 & 0x3F000) | (pixel >> 4 & 0xFC0) | (pixel >> 2 & 0x3F);
}

/// What a pixel adds to its bin, by the lower two bits of its channels.
std::array<Sums, 64> makeAdditions() {
    std::array<Sums, 64> additions;
    for (std::uint32_t bits = 0; bits < 64; ++bits)
        additions[bits] = {1, bits >> 4, bits >> 2 & 3, bits & 3};
    return additions;
}

void addRow(const QRgb* row, int width, std::vector<Sums>& bins) {
    static const std::array<Sums, 64> additions = makeAdditions();
    for (int x = 0; x < width; ++x) {
        const QRgb pixel = row[x];
        const Sums& addition = additions[(pixel >> 12 & 0x30) | (pixel >> 6 & 0xC) | (pixel & 3)];
        Sums& sums = bins[binOf(pixel)];
        for (std::size_t i = 0; i < sums.size(); ++i)
            sums[i] += addition[i];
    }
}

ColourBin toBin(std::size_t place, const Sums& sums) {
    const std::array<std::size_t, 3> levels = {place / (Levels * Levels), place / Levels % Levels,
                                               place % Levels};
    ColourBin bin;
    bin.pixels = static_cast<float>(sums[0]);
    for (std::size_t i = 0; i < levels.size(); ++i)
        bin.mean[i] = static_cast<float>(levels[i] * 4) + static_cast<float>(double(sums[i + 1]) / sums[0]);
    return bin;
}

} // namespace

ColourHistogram exactHistogram(const ColourTable& colours) {
    ColourHistogram histogram;
    histogram.reserve(static_cast<std::size_t>(colours.size()));
    colours.forEach([&](QRgb colour, std::uint32_t pixels) {
        histogram.push_back({toPoint(colour), static_cast<float>(pixels)});
    });
    return histogram;
}

ColourHistogram coarseHistogram(PixelRows& rows) {
    std::vector<Sums> bins(Levels * Levels * Levels);
    forEachRow(rows, [&](int, const QRgb* row) { addRow(row, rows.size().width(), bins); });
    ColourHistogram histogram;
    for (std::size_t place = 0; place < bins.size(); ++place)
        if (bins[place][0] > 0)
            histogram.push_back(toBin(place, bins[place]));
    return histogram;
}

} // namespace ovrano
