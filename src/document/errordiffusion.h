#pragma once

#include "document/colourset.h"
#include "document/palette.h"
#include "document/palettetable.h"
#include "platform/vectorised.h"

#include <QRgb>

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace ovrano {

/// Maps rows of pixels, from the top, to a palette and passes the error of each pixel on to its neighbours to
/// the right and below, so that an area has the right colour on the average.
///
/// The weights are those of R. Floyd and L. Steinberg, "An adaptive algorithm for spatial grey scale",
/// Proceedings of the Society for Information Display 17(2), 1976. Two things differ, for pictures that have
/// letters on them:
///
/// - Three quarters of the error are passed on. With all of it, what the palette cannot reach (the brightest
///   red of a cheek) sums up until single dark dots come out; half of it leaves bands in a sky.
/// - A pixel whose very colour is in the palette takes it and passes nothing on, so that paper and plain
///   letters stay clean beside a photograph.
///
/// All rows go from left to right: at this strength, turning at the end of each changes nothing to be seen or
/// measured.
class ErrorDiffusion {
public:
    /// The palette must outlive the object.
    ErrorDiffusion(const Palette& palette, int width);

    /// Maps the next row.
    void map(const QRgb* row, std::uint8_t* indices);

    static constexpr std::size_t RowsAtOnce = 4;

    /// Maps the next rows at once. A pixel must wait for the one before it; while it does, pixels of the
    /// other rows are mapped.
    void map(const std::array<const QRgb*, RowsAtOnce>& rows,
             const std::array<std::uint8_t*, RowsAtOnce>& indices);

private:
    /// The channels of a colour, of an error, or of a sum of errors weighted in 64ths, blue first. All of
    /// them are worked on at once. What is opaque comes and goes opaque: the error of the fourth is 0.
    using Channels = Vector<std::int16_t, 4>;

    /// The errors of the two pixels before the one that is mapped.
    struct Trail {
        Channels last = {};
        Channels beforeLast = {};
    };

    std::uint8_t mapPixel(QRgb pixel, const Channels& above, Channels& lowerLeft, Trail& trail);
    template<std::size_t Count>
    void mapTogether(const std::array<const QRgb*, Count>& rows,
                     const std::array<std::uint8_t*, Count>& indices);
    static Channels toChannels(QRgb colour);
    static QRgb toColour(Channels channels);
    static void passOn(Channels error, Channels& lowerLeft, Trail& trail);

    ColourSet m_paletteColours;
    std::vector<Channels> m_channels; // of the palette's colours
    PaletteTable m_table;
    // What pixels get from the row above, from the pixel left of the first on. While a row is mapped, what
    // it passes on takes the place of what it has used up.
    std::vector<Channels> m_fromAbove;
};

} // namespace ovrano
