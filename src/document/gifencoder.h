#pragma once

#include "document/indexedpicture.h"

#include <QSize>

#include <cstddef>
#include <functional>

namespace ovrano {

/// Takes the bytes of a file as they come; may throw.
using ByteSink = std::function<void(const void* bytes, std::size_t count)>;

/// Throws error::InvalidPropertyValue when a picture of this size is too large for the GIF format: 65535
/// pixels a side.
void requireGifSize(QSize size);

/// Writes a picture that is not empty as a GIF file: one frame, not interlaced, with a colour table of the
/// next power of two that the palette fits in. Throws what the sink and requireGifSize throw, and
/// error::OutOfMemory.
void writeGif(const IndexedPicture& picture, const ByteSink& sink);

} // namespace ovrano
