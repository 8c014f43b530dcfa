#include "document/picturereader.h"
#include "document/topics.h"
#include "support/comparison.h"
#include "support/jpegcodec.h"
#include "support/pictures.h"
#include "support/program.h"

#include <QImageReader>
#include <QTemporaryDir>

#include <memory>

namespace ovrano::bench {

void reading() {
    compare("reading a 12 MP JPEG, without a window", [](Comparison& ways) {
        constexpr int Quality = 92;
        const auto folder =
            std::make_shared<QTemporaryDir>(memoryFolder() + QStringLiteral("/ovrano-bench-XXXXXX"));
        const QString path = folder->filePath(QStringLiteral("photo.jpg"));
        photo(TwelveMegapixels).save(path, "JPEG", Quality);
        ways.ours(timed([path, folder] { LoadPicture(path); }));
        ways.against("libjpeg-turbo alone", timed([=] { const QImage image = decodeJpeg(path); }));
        ways.against("the toolkit's reader alone",
                     timed([=] { const QImage image = QImageReader(path).read(); }));
    });
}

} // namespace ovrano::bench
