#include "document/bmpfile.h"
#include "document/filesave.h"
#include "document/topics.h"
#include "support/comparison.h"
#include "support/jpegcodec.h"
#include "support/noquestions.h"
#include "support/pictures.h"
#include "support/program.h"

#include <QFile>
#include <QTemporaryDir>

#include <memory>

namespace ovrano::bench {

namespace {

constexpr int JpegRow = 2; // of the save dialog's types: quality 80
constexpr int Quality = 80;

/// A picture that is to be saved, and the bytes that this comes to.
struct Saving {
    Saving() {
        work.picDisp.setInnerSize(TwelveMegapixels);
        work.picDisp.setPicture(Raster::fromImage(flat));
        work.ImageLoaded = true;
        SavePicture(work.picDisp.Image(), path("raw.bmp"));
        raw = contentOf("raw.bmp");
    }

    QString path(const char* name) const { return folder.filePath(QLatin1String(name)); }
    void remove(const char* name) const { QFile::remove(path(name)); }
    QByteArray contentOf(const char* name) const {
        QFile file(path(name));
        file.open(QIODevice::ReadOnly);
        return file.readAll();
    }
    void write(const char* name, const QByteArray& bytes) const {
        QFile file(path(name));
        file.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
        file.write(bytes);
    }
    /// As a save dialog's answer leads to it.
    void saveAsJpeg() {
        dialogs.file = {path("ours.jpg"), JpegRow};
        save.mnuFileSave_Click();
    }
    const uchar* rows(const QByteArray& bmp) const {
        return reinterpret_cast<const uchar*>(bmp.constData()) + bmp.size() - imageBytes();
    }
    qsizetype imageBytes() const {
        return qsizetype{TwelveMegapixels.width()} * 3 * TwelveMegapixels.height();
    }

    QTemporaryDir folder{memoryFolder() + QStringLiteral("/ovrano-bench-XXXXXX")};
    QImage flat = photo(TwelveMegapixels);
    QByteArray raw; // the BMP file
    NoQuestions dialogs;
    WorkPicture work{dialogs};
    FileSave save{work, dialogs};
};

void addConverter(Comparison& ways, const std::shared_ptr<Saving>& saving) {
    const QString converter = imageConverter();
    if (converter.isEmpty()) {
        ways.without("ImageMagick", "which is not installed");
        return;
    }
    ways.against("ImageMagick, from the BMP",
                 processWay(converter, {saving->path("raw.bmp"), QStringLiteral("-quality"),
                                        QString::number(Quality), saving->path("converter.jpg")}),
                 {}, 5);
}

} // namespace

void saving() {
    compare("saving as BMP, 12 MP", [](Comparison& ways) {
        const auto saving = std::make_shared<Saving>();
        const auto anew = [=] { saving->remove("out.bmp"); };
        ways.ours(timed(anew, [=] { SavePicture(saving->work.picDisp.Image(), saving->path("out.bmp")); }));
        ways.against("writing the bytes raw", timed(anew, [=] { saving->write("out.bmp", saving->raw); }),
                     1.3);
        ways.against("the toolkit's writer",
                     timed(anew, [=] { saving->flat.save(saving->path("out.bmp")); }));
    });
    compare("saving as JPEG 80 with its temporary BMP, 12 MP", [](Comparison& ways) {
        const auto saving = std::make_shared<Saving>();
        ways.ours(timed([=] { saving->remove("ours.jpg"); }, [=] { saving->saveAsJpeg(); }));
        ways.against("raw write, raw read, libjpeg-turbo alone", timed([=] {
                         saving->write("theirs.bmp", saving->raw);
                         const QByteArray bmp = saving->contentOf("theirs.bmp");
                         saving->write("theirs.jpg",
                                       encodeJpeg(saving->rows(bmp), TwelveMegapixels, Quality));
                         saving->remove("theirs.bmp");
                     }),
                     1.3);
        ways.against("the toolkit's writer, without a BMP",
                     timed([=] { saving->flat.save(saving->path("toolkit.jpg"), "JPEG", Quality); }));
        addConverter(ways, saving);
    });
}

} // namespace ovrano::bench
