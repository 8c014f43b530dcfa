#include "document/bmprows.h"

#include "bodies.h"
#include "document/picturereader.h"
#include "feedback.h"
#include "finding.h"
#include "memoryfile.h"

#include <algorithm>
#include <bit>

namespace ovrano::fuzz {

namespace {

Raster readInto(BmpRows& rows) {
    QImage image(rows.size(), QImage::Format_RGB32);
    const auto read = [&](int y) {
        std::copy_n(rows.row(y), image.width(), reinterpret_cast<QRgb*>(image.scanLine(y)));
    };
    for (int y = 0; y < image.height(); ++y)
        read(y);
    const Raster downward = Raster::fromImage(image.copy());
    for (int y = image.height() - 1; y >= 0; --y)
        read(y);
    require(Raster::fromImage(image) == downward, "rows differ with the order that they are read in");
    return downward;
}

} // namespace

void readBmpRows(const QByteArray& content) {
    const MemoryFile file(content);
    const Reading byRows = reading([&] {
        BmpRows rows(file.path());
        return readInto(rows);
    });
    if (!byRows.picture)
        return;
    const QSize size = byRows.picture->size();
    note(static_cast<quint64>(std::bit_width(static_cast<unsigned>(size.width())) * 64 +
                              std::bit_width(static_cast<unsigned>(size.height()))));
    const Reading whole = reading([&] { return decodePicture(content); });
    require(!whole.picture || whole == byRows, "rows and picture differ");
}

} // namespace ovrano::fuzz
