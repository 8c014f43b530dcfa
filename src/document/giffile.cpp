#include "document/giffile.h"

#include "document/bmprows.h"
#include "document/gifencoder.h"
#include "document/palettereducer.h"
#include "document/safefile.h"

namespace ovrano {

void ConvertBMPtoGIF(const QString& bmpPath, const QString& gifPath) {
    BmpRows rows(bmpPath);
    requireGifSize(rows.size());
    SafeFile file(gifPath); // before the work, so that a folder that cannot be written shows at once
    const IndexedPicture picture = reduceTo256(rows);
    writeGif(picture, [&](const void* bytes, std::size_t count) { file.write(bytes, count); });
    file.commit();
}

} // namespace ovrano
