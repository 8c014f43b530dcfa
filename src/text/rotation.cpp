#include "text/rotation.h"

#include "platform/numbers.h"
#include "text/rasterrotation.h"
#include "text/rotationmap.h"

namespace ovrano {

namespace {

/// The pixel column or row that a centre coordinate means on a side of a surface.
int centreOn(int side, std::int32_t centre) {
    return centre == 0 ? side / 2 : centre;
}

} // namespace

std::int32_t SizeToRotateRegion(const Surface& surface) {
    return toInteger32(
        diagonalAndMargin(toInteger32(surface.ScaleWidth()), toInteger32(surface.ScaleHeight())));
}

void RotatePicture(const Surface& source, Surface& destination, double angle, bool skipBackground,
                   Colour backgroundColour, bool sampleBetweenPixels, std::int32_t centreX,
                   std::int32_t centreY) {
    const QSize size = destination.innerSize();
    const QPoint centre(centreOn(size.width(), centreX), centreOn(size.height(), centreY));
    RasterRotation rotation(source.Image(), angle,
                            skipBackground ? std::optional(backgroundColour) : std::nullopt,
                            sampleBetweenPixels ? Sampling::Mixed : Sampling::Nearest);
    destination.editImage(rotation.areaIn(size, centre),
                          [&](Raster& image, const QRect&) { rotation.paint(image, centre); });
}

} // namespace ovrano
