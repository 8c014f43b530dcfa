#pragma once

#include "document/indexedpicture.h"
#include "document/pixelrows.h"

namespace ovrano {

enum class Diffusion { Off, On };

/// The picture with at most 256 colours. A picture that has no more stays as it is, pixel for pixel. Of
/// others the colours are reduced, and with diffusion the error of a pixel is passed on to its neighbours,
/// where it is great enough to be seen. The same picture always gives the same result.
///
/// The rows are read twice, mostly by several threads at a time. Memory goes to the indices and, for each of
/// them, some megabytes of tables, up to some 150 if the picture has colours from everywhere in colour space.
IndexedPicture reduceTo256(PixelRows& rows, Diffusion diffusion = Diffusion::On);

} // namespace ovrano
