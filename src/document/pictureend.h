#pragma once

#include <QByteArray>
#include <QIODevice>

namespace ovrano {

/// Whether a picture file goes on to where its (first) picture ends. The decoders do not tell: they fill up
/// what is missing with grey, black or nothing and report success.
///
/// Only the structure is followed, nothing is decoded: a BMP's length against its header, or its runs to
/// their end mark; a GIF's codes to the last pixel of the first frame; a JPEG's segments to its end mark.
/// What follows (further frames, what a camera appends) does not matter. Any other format counts as whole:
/// PNG's decoder tells. The device is read from its start and left anywhere.
bool holdsWholePicture(QIODevice& device, const QByteArray& format);

} // namespace ovrano
