#include "bodies.h"
#include "document/picturereader.h"
#include "feedback.h"
#include "finding.h"
#include "memoryfile.h"
#include "unsetmemory.h"

#include <algorithm>

namespace ovrano::fuzz {

namespace {

Reading contentReading(const QByteArray& content) {
    return reading([&] { return decodePicture(content); });
}

/// The fields that make a decoder go another way, as far as they lie at fixed places.
quint64 kindOf(const QByteArray& content) {
    const auto byte = [&](qsizetype at) {
        return at < content.size() ? quint64{static_cast<uchar>(content[at])} : 0;
    };
    switch (byte(0)) {
    case 'B': // header's length, bits a pixel, compression; the first version has neither there
        return byte(14) <= 12 ? 'B' : byte(14) << 24 | byte(28) << 16 | byte(30) << 8 | 'B';
    case 0x89: // bits a channel, kind of colour, interlacing
        return byte(24) << 24 | byte(25) << 16 | byte(28) << 8 | 'P';
    default:
        return byte(0);
    }
}

/// Whether the row in the middle is of one colour: nothing may have been decoded to it.
bool isFlat(const Raster& picture) {
    std::vector<QRgb> row(static_cast<std::size_t>(std::min(picture.width(), 64)));
    picture.readRow(picture.height() / 2, 0, static_cast<int>(row.size()), row.data());
    return std::all_of(row.begin(), row.end(), [&](QRgb pixel) { return pixel == row.front(); });
}

void noteReading(const QByteArray& content, const Reading& read) {
    if (!read.picture) // of every kind that there is not, too
        note((kindOf(content) & 0xFF) << 16 | static_cast<quint64>(read.refusedWith));
    else
        note(kindOf(content) << 16 | (isFlat(*read.picture) ? 1U : 2U));
}

} // namespace

void openContent(const QByteArray& content) {
    const QSize announced = announcedPictureSize(content);
    if (isLeftOut(announced, content))
        return;
    Reading once;
    {
        const UnsetMemory zeros(0);
        once = contentReading(content);
    }
    const UnsetMemory others(0xA5);
    require(contentReading(content) == once, "what is shown depends on what the memory held");
    noteReading(content, once);
    if (!once.picture)
        return;
    const QSize size = once.picture->size();
    require(size == announced || size == announced.transposed(), "another size than announced");
    requireAcceptable(size);
}

void openFile(const QByteArray& content) {
    if (isLeftOut(announcedPictureSize(content), content))
        return;
    const MemoryFile file(content);
    const Reading read = reading([&] { return LoadPicture(file.path()); });
    require(read == contentReading(content), "a file is read otherwise than its content");
    noteReading(content, read);
}

} // namespace ovrano::fuzz
