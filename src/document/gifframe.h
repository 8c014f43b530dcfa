#pragma once

#include "document/bytecursor.h"

#include <QIODevice>
#include <QSize>

namespace ovrano {

/// The size of the screen that a GIF's frames lie on, as its first bytes tell it; 0 where a side is left to
/// the frames. The device is left where it was.
QSize gifScreenSize(QIODevice& device);

/// Skips blocks of a length byte and so many bytes, up to an empty one; false when there is none.
bool skipGifBlocks(ByteCursor& cursor);

/// Whether the codes of a GIF's frame come to at least so many pixels and have an end. The cursor stands at
/// the byte that tells their size, and is left behind them or anywhere. Codes that stand for nothing are
/// damaged and never whole.
bool gifCodesAreWhole(ByteCursor& cursor, qint64 pixels);

} // namespace ovrano
