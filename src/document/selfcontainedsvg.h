#pragma once

#include "platform/yield.h"

#include <QByteArray>

namespace ovrano {

struct SelfContainedSvg {
    QByteArray svg;
    qint64 drawnElements = 0; // by one drawing, as DrawingBudget counts them
};

/// The pixels of all pictures embedded in one vector picture, together, damaged ones too: they are all
/// decoded before it is drawn, and the same one as often as it is embedded.
inline constexpr qint64 MostEmbeddedPixels = 64'000'000;

/// The same vector picture without references to files and addresses. Embedded pictures stay if decodePicture
/// accepts them, up to MostEmbeddedPixels in total; one that does not fit loses its reference, while a
/// smaller one after it may still fit. Throws error::InvalidPicture when it is not well-formed or drawing it
/// would exceed a DrawingBudget.
SelfContainedSvg selfContainedSvg(const QByteArray& svg, EventYield& yield);

} // namespace ovrano
