#include "app/programwindow.h"
#include "app/topics.h"
#include "support/comparison.h"
#include "support/jpegcodec.h"
#include "support/pictures.h"
#include "support/program.h"

#include <QImageReader>
#include <QTemporaryDir>

#include <memory>

namespace ovrano::bench {

namespace {

constexpr int Quality = 92;

struct Files {
    Files() { photo(TwelveMegapixels).save(jpeg, "JPEG", Quality); }

    QTemporaryDir folder{memoryFolder() + QStringLiteral("/ovrano-bench-XXXXXX")};
    QString jpeg = folder.filePath(QStringLiteral("photo.jpg"));
};

void addConverter(Comparison& ways, const std::shared_ptr<Files>& files) {
    if (const QString converter = imageConverter(); converter.isEmpty())
        ways.without("ImageMagick", "which is not installed");
    else
        ways.against("ImageMagick, reading alone",
                     processWay(converter, {files->jpeg, QStringLiteral("null:")}), {}, 5);
}

} // namespace

void opening() {
    compare("opening a 12 MP JPEG to the first repaint", [](Comparison& ways) {
        const auto files = std::make_shared<Files>();
        const auto program = std::make_shared<ProgramWindow>();
        ways.ours(timed([=] { program->open(files->jpeg); }));
        ways.against("libjpeg-turbo alone", timed([=] { const QImage image = decodeJpeg(files->jpeg); }),
                     1.15);
        ways.against("the toolkit's reader alone",
                     timed([=] { const QImage image = QImageReader(files->jpeg).read(); }));
        addConverter(ways, files);
    });
}

} // namespace ovrano::bench
