#include "document/paletterefinement.h"

#include "document/nearestcolour.h"

namespace ovrano {

namespace {

struct Sums {
    double pixels = 0;
    std::array<double, 3> channels = {};
};

void refineOnce(std::span<const ColourBin> histogram, std::span<ColourPoint> palette) {
    std::vector<Sums> sums(palette.size());
    NearestColour nearest(palette);
    for (const ColourBin& bin : histogram) {
        Sums& own = sums[nearest(bin.mean)];
        own.pixels += double(bin.pixels);
        for (std::size_t i = 0; i < bin.mean.size(); ++i)
            own.channels[i] += double(bin.pixels) * double(bin.mean[i]);
    }
    for (std::size_t colour = 0; colour < palette.size(); ++colour)
        if (sums[colour].pixels > 0)
            for (std::size_t i = 0; i < palette[colour].size(); ++i)
                palette[colour][i] = static_cast<float>(sums[colour].channels[i] / sums[colour].pixels);
}

} // namespace

void refinePalette(std::span<const ColourBin> histogram, std::span<ColourPoint> palette, int passes) {
    for (int pass = 0; pass < passes; ++pass)
        refineOnce(histogram, palette);
}

void keepFlatColours(std::span<const ColourBin> histogram, std::span<ColourPoint> palette) {
    struct Share {
        double whole = 0;
        const ColourBin* greatest = nullptr;
    };
    std::vector<Share> shares(palette.size());
    NearestColour nearest(palette);
    for (const ColourBin& bin : histogram) {
        Share& own = shares[nearest(bin.mean)];
        own.whole += double(bin.pixels);
        if (!own.greatest || bin.pixels > own.greatest->pixels)
            own.greatest = &bin;
    }
    for (std::size_t colour = 0; colour < palette.size(); ++colour)
        if (shares[colour].greatest && double(shares[colour].greatest->pixels) > shares[colour].whole / 2)
            palette[colour] = shares[colour].greatest->mean;
}

} // namespace ovrano
