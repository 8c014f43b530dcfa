#pragma once

#include "platform/raster.h"

#include <optional>

namespace ovrano {

/// Reads the picture that the clipboard holds now: a raster picture, or else a vector picture at its natural
/// size, on white where it is transparent. If the data of one type is damaged the next type is tried. Nothing
/// when none can be read (any more). Yields, for seconds when the picture is large, while the clipboard may
/// change. Throws error::OutOfMemory when the picture is larger than what the program can hold.
std::optional<Raster> clipboardPicture();

} // namespace ovrano
