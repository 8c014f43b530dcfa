#include "document/variancecut.h"

#include <queue>

#include <algorithm>
#include <span>

namespace ovrano {

namespace {

/// Count and colour sums of a set of pixels.
struct Moments {
    double pixels = 0;
    std::array<double, 3> sums = {};

    void add(const ColourBin& bin) {
        pixels += double(bin.pixels);
        for (std::size_t i = 0; i < sums.size(); ++i)
            sums[i] += double(bin.pixels) * double(bin.mean[i]);
    }
    void add(const Moments& other) {
        pixels += other.pixels;
        for (std::size_t i = 0; i < sums.size(); ++i)
            sums[i] += other.sums[i];
    }
    Moments without(const Moments& other) const {
        Moments rest = *this;
        rest.pixels -= other.pixels;
        for (std::size_t i = 0; i < sums.size(); ++i)
            rest.sums[i] -= other.sums[i];
        return rest;
    }
    /// What putting the mean in place of zero takes off the sum of squared distances.
    double gain() const { return (sums[0] * sums[0] + sums[1] * sums[1] + sums[2] * sums[2]) / pixels; }
    ColourPoint mean() const {
        return {float(sums[0] / pixels), float(sums[1] / pixels), float(sums[2] / pixels)};
    }
};

/// Between the bins whose `axis` channel rounds down to less than `level` and the others.
struct Cut {
    double gain = 0;
    std::size_t axis = 0;
    std::size_t level = 0;
};

struct Box {
    std::span<ColourBin> bins;
    Moments moments;
    Cut best;

    bool operator<(const Box& other) const { return best.gain < other.best.gain; }
};

std::size_t levelOf(const ColourBin& bin, std::size_t axis) {
    return static_cast<std::size_t>(bin.mean[axis]);
}

void tryAxis(Box& box, std::size_t axis) {
    std::array<Moments, 256> levels;
    for (const ColourBin& bin : box.bins)
        levels[levelOf(bin, axis)].add(bin);
    const double whole = box.moments.gain();
    Moments below;
    for (std::size_t level = 1; level < levels.size(); ++level) {
        if (levels[level - 1].pixels <= 0)
            continue;
        below.add(levels[level - 1]);
        const Moments above = box.moments.without(below);
        if (above.pixels <= 0)
            break;
        const double gain = below.gain() + above.gain() - whole;
        if (gain > box.best.gain)
            box.best = {gain, axis, level};
    }
}

Box makeBox(std::span<ColourBin> bins) {
    Box box{bins, {}, {}};
    for (const ColourBin& bin : bins)
        box.moments.add(bin);
    for (std::size_t axis = 0; axis < 3; ++axis)
        tryAxis(box, axis);
    return box;
}

} // namespace

std::vector<ColourPoint> varianceCut(ColourHistogram& histogram, std::size_t count) {
    std::priority_queue<Box> boxes;
    boxes.push(makeBox(histogram));
    while (boxes.size() < count && boxes.top().best.level > 0) {
        const Box box = boxes.top();
        boxes.pop();
        const auto above = std::partition(box.bins.begin(), box.bins.end(), [&](const ColourBin& bin) {
            return levelOf(bin, box.best.axis) < box.best.level;
        });
        boxes.push(makeBox({box.bins.begin(), above}));
        boxes.push(makeBox({above, box.bins.end()}));
    }
    std::vector<ColourPoint> means;
    for (; !boxes.empty(); boxes.pop())
        means.push_back(boxes.top().moments.mean());
    return means;
}

} // namespace ovrano
