#pragma once

#include "document/bytecursor.h"

#include <QIODevice>
#include <QSize>

namespace ovrano {

/// The size of the screen that a GIF's frames lie on, as its first bytes tell it; 0 where a side is left to
/// the frames. The device is left where it was.
QSize gifScreenSize(QIODevice& device);

/// Skips blocks (a length byte and that many bytes) up to and including the empty one; false when there is
/// none.
bool skipGifBlocks(ByteCursor& cursor);

/// Whether the codes of a GIF's frame fill at least so many pixels and have an end code. The cursor starts at
/// the byte with the code size; where it is left is unspecified. Undefined codes count as damage.
bool gifCodesAreWhole(ByteCursor& cursor, qint64 pixels);

} // namespace ovrano
