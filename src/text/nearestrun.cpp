#include "text/nearestrun.h"

#include "platform/vectorised.h"

#include <bit>
#include <cstdint>
#include <cstring>

namespace ovrano {

namespace {

constexpr int Group = 4;
constexpr int PlaceBits = std::bit_width(static_cast<unsigned>(SourcePatch::Side - 1));
static_assert(SourcePatch::Side == 1 << PlaceBits);

using Point = RotationMap::Point;
using Pixels = Vector<QRgb, Group>;

/// Where in a patch the pixel nearest to a point is.
std::size_t placeOf(Point point) {
    return static_cast<std::size_t>((point.y >> RotationMap::FractionBits << PlaceBits) +
                                    (point.x >> RotationMap::FractionBits));
}

/// The places of four points that follow each other, and of the next four, and so on. Its functions are to be
/// part of the loops that they are called in, since these are compiled for several kinds of processors.
class Places {
public:
    OVRANO_INLINED Places(Point from, Point step)
        : m_x{at(from.x), at(from.x + step.x), at(from.x + 2 * step.x), at(from.x + 3 * step.x)}
        , m_y{at(from.y), at(from.y + step.y), at(from.y + 2 * step.y), at(from.y + 3 * step.y)}
        , m_stepX(Coordinates{} + at(Group * step.x))
        , m_stepY(Coordinates{} + at(Group * step.y)) {
        find();
    }

    OVRANO_INLINED std::uint64_t operator[](int k) const { return m_places[k]; }

    OVRANO_INLINED void next() {
        m_x += m_stepX;
        m_y += m_stepY;
        find();
    }

private:
    // Unsigned, because not every processor can shift signed vectors; inside a patch no coordinate is
    // negative.
    using Coordinates = Vector<std::uint64_t, Group>;

    OVRANO_INLINED static std::uint64_t at(RotationMap::Fixed coordinate) {
        return static_cast<std::uint64_t>(coordinate);
    }

    OVRANO_INLINED void find() {
        m_places = (m_y >> RotationMap::FractionBits << PlaceBits) + (m_x >> RotationMap::FractionBits);
    }

    Coordinates m_x;
    Coordinates m_y;
    Coordinates m_stepX;
    Coordinates m_stepY;
    Coordinates m_places;
};

/// Of a patch without Nothing.
OVRANO_VECTORISED void copyGroups(QRgb* out, int count, const QRgb* patch, Point from, Point step) {
    Places places(from, step);
    for (int i = 0; i < count; i += Group, places.next())
        for (int k = 0; k < Group; ++k)
            out[i + k] = patch[places[k]];
}

/// Where there is nothing to copy, the destination is neither read nor written: most of the time is spent
/// waiting for its memory.
OVRANO_VECTORISED void layGroupsOver(QRgb* out, int count, const QRgb* patch, Point from, Point step) {
    Places places(from, step);
    for (int i = 0; i < count; i += Group, places.next()) {
        const Pixels samples = {patch[places[0]], patch[places[1]], patch[places[2]], patch[places[3]]};
        // The highest bit of a pixel is set, that of Nothing is not.
        if (((samples[0] | samples[1] | samples[2] | samples[3]) >> 31) == 0)
            continue;
        Pixels below;
        std::memcpy(&below, out + i, sizeof below);
        const Pixels covers = 0U - (samples >> 31);
        below = samples | (below & ~covers);
        std::memcpy(out + i, &below, sizeof below);
    }
}

} // namespace

void layNearestOver(QRgb* out, int count, const SourcePatch& patch, RotationMap::Point from,
                    RotationMap::Point step) {
    const int inGroups = count / Group * Group;
    const QRgb* pixels = patch.at(0, 0);
    const auto lay = patch.isWhole() ? copyGroups : layGroupsOver;
    lay(out, inGroups, pixels, from, step);
    // The rest one by one: starting another group takes longer.
    for (int i = inGroups; i < count; ++i) {
        const QRgb sample = pixels[placeOf({from.x + i * step.x, from.y + i * step.y})];
        if (sample != SourcePatch::Nothing)
            out[i] = sample;
    }
}

} // namespace ovrano
