#include "document/bmpfile.h"
#include "document/filetools.h"
#include "document/gifencoder.h"
#include "document/giffile.h"
#include "document/palettereducer.h"
#include "document/palettetools.h"
#include "support/testprogram.h"

#include <QBuffer>
#include <QImageReader>
#include <QTemporaryDir>
#include <QTest>

using namespace ovrano;

class GifFileTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void fewColoursLoseNothing_data();
    void fewColoursLoseNothing();
    void everySizeIsKept_data();
    void everySizeIsKept();
    void manyColoursGiveTheReducedPicture();
    void photoSaved256Colours();
    void colourTableIsAPowerOfTwo_data();
    void colourTableIsAPowerOfTwo();
    void oneFrameNotInterlaced();
    void replacesTheFileAndKeepsTheBmp();
    void largestSides_data();
    void largestSides();
    void tooLarge_data();
    void tooLarge();
    void missingFile();
    void notABmp();
    void truncatedBmp();
    void unwritableTargetStaysWhole();
    void unwritableFolder();
    void folderAsTarget();
    void fullDiskLeavesTheOldFile_data();
    void fullDiskLeavesTheOldFile();
    void failureAtEveryByte();

private:
    QString path(const QString& name) const { return m_dir->filePath(name); }
    /// Saves as BMP, converts and gives the GIF's path.
    QString converted(const QImage& image) {
        SavePicture(Raster::fromImage(image), path("Temp.bmp"));
        ConvertBMPtoGIF(path("Temp.bmp"), path("a.gif"));
        return path("a.gif");
    }

    std::unique_ptr<QTemporaryDir> m_dir;
};

namespace {

QImage load(const QString& path) {
    QImageReader reader(path, "gif");
    return reader.read().convertToFormat(QImage::Format_RGB32);
}

QByteArray gifOf(const IndexedPicture& picture) {
    QByteArray bytes;
    writeGif(picture, [&](const void* more, std::size_t count) {
        bytes.append(static_cast<const char*>(more), static_cast<qsizetype>(count));
    });
    return bytes;
}

} // namespace

void GifFileTest::init() {
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
}

void GifFileTest::fewColoursLoseNothing_data() {
    QTest::addColumn<int>("count");
    for (const int count : {1, 2, 3, 4, 5, 16, 17, 128, 129, 255, 256})
        QTest::addRow("%d", count) << count;
}

void GifFileTest::fewColoursLoseNothing() {
    QFETCH(int, count);
    const QImage image = withColours(count, QSize(211, 157)); // enough to fill the codes' table several times
    QCOMPARE(load(converted(image)), image);
}

void GifFileTest::everySizeIsKept_data() {
    QTest::addColumn<QSize>("size");
    for (int width = 1; width <= 9; ++width) // a BMP's rows are filled up to four bytes
        QTest::addRow("%d wide", width) << QSize(width, 5);
    QTest::newRow("one pixel") << QSize(1, 1);
    QTest::newRow("one row") << QSize(700, 1);
    QTest::newRow("one column") << QSize(1, 700);
}

void GifFileTest::everySizeIsKept() {
    QFETCH(QSize, size);
    const QImage image = withColours(qMin(200, size.width() * size.height()), size);
    QCOMPARE(load(converted(image)), image);
}

void GifFileTest::manyColoursGiveTheReducedPicture() {
    const QImage image = withColours(257, QSize(61, 50));
    ImageRows rows(image);
    const QImage reduced = toImage(reduceTo256(rows));
    QVERIFY(reduced != image);
    QCOMPARE(load(converted(image)), reduced);
}

void GifFileTest::photoSaved256Colours() {
    const QImage image = photo(QSize(320, 240));
    const QImage loaded = load(converted(image));
    QCOMPARE(loaded.size(), image.size());
    QVERIFY(psnr(image, loaded) > 36);
}

void GifFileTest::colourTableIsAPowerOfTwo_data() {
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("entries");
    QTest::newRow("1") << 1 << 2;
    QTest::newRow("2") << 2 << 2;
    QTest::newRow("3") << 3 << 4;
    QTest::newRow("16") << 16 << 16;
    QTest::newRow("17") << 17 << 32;
    QTest::newRow("256") << 256 << 256;
}

void GifFileTest::colourTableIsAPowerOfTwo() {
    QFETCH(int, count);
    QFETCH(int, entries);
    const QByteArray content = contentOf(converted(withColours(count, QSize(40, 30))));
    const int flags = static_cast<uchar>(content.at(10));
    QVERIFY((flags & 0x80) != 0); // a table for the whole file
    QCOMPARE(2 << (flags & 7), entries);
    QCOMPARE(content.at(13 + 3 * entries), ','); // the picture follows right behind it
}

void GifFileTest::oneFrameNotInterlaced() {
    const QByteArray content = contentOf(converted(withColours(256, QSize(40, 30))));
    QVERIFY(content.startsWith("GIF8"));
    QVERIFY(content.endsWith(';'));
    QCOMPARE(content.mid(13 + 3 * 256, 10), QByteArray(",\0\0\0\0\x28\0\x1E\0\0", 10));
    QImageReader reader(path("a.gif"));
    QCOMPARE(reader.imageCount(), 1);
}

void GifFileTest::replacesTheFileAndKeepsTheBmp() {
    put(path("a.gif"), "old");
    const QImage image = withColours(9, QSize(20, 10));
    QCOMPARE(load(converted(image)), image);
    QCOMPARE(namesIn(m_dir->path()), QStringList({"Temp.bmp", "a.gif"}));
}

void GifFileTest::largestSides_data() {
    QTest::addColumn<QSize>("size");
    QTest::newRow("wide") << QSize(65'535, 2);
    QTest::newRow("high") << QSize(2, 65'535);
}

void GifFileTest::largestSides() {
    QFETCH(QSize, size);
    const QImage image = withColours(40, size);
    QCOMPARE(load(converted(image)), image);
}

void GifFileTest::tooLarge_data() {
    QTest::addColumn<QSize>("size");
    QTest::newRow("wide") << QSize(65'536, 2);
    QTest::newRow("high") << QSize(2, 65'536);
}

void GifFileTest::tooLarge() {
    QFETCH(QSize, size);
    put(path("a.gif"), "old");
    try {
        converted(withColours(40, size));
        QFAIL("no error");
    } catch (const RuntimeError& caught) {
        QCOMPARE(caught.number(), error::InvalidPropertyValue);
        QVERIFY(caught.description().contains("65535"));
    }
    QCOMPARE(contentOf(path("a.gif")), QByteArray("old"));
    QCOMPARE(namesIn(m_dir->path()), QStringList({"Temp.bmp", "a.gif"}));
}

void GifFileTest::missingFile() {
    QCOMPARE(errorOf([&] { ConvertBMPtoGIF(path("none.bmp"), path("a.gif")); }), error::FileNotFound);
    QCOMPARE(namesIn(m_dir->path()), QStringList());
}

void GifFileTest::notABmp() {
    put(path("a.bmp"), QByteArray(1000, 'x'));
    QCOMPARE(errorOf([&] { ConvertBMPtoGIF(path("a.bmp"), path("a.gif")); }), error::InvalidPicture);
    QCOMPARE(namesIn(m_dir->path()), QStringList("a.bmp"));
}

void GifFileTest::truncatedBmp() {
    SavePicture(Raster::fromImage(photo(QSize(30, 20))), path("a.bmp"));
    put(path("a.bmp"), contentOf(path("a.bmp")).chopped(1));
    put(path("a.gif"), "old");
    QCOMPARE(errorOf([&] { ConvertBMPtoGIF(path("a.bmp"), path("a.gif")); }), error::InvalidPicture);
    QCOMPARE(contentOf(path("a.gif")), QByteArray("old"));
}

void GifFileTest::unwritableTargetStaysWhole() {
    SavePicture(Raster::fromImage(photo(QSize(30, 20))), path("a.bmp"));
    put(path("a.gif"), "old");
    allow(path("a.gif"), 0444);
    allow(path("a.bmp"), 0444);
    allow(m_dir->path(), 0777);
    {
        const Unprivileged nobody;
        QCOMPARE(errorOf([&] { ConvertBMPtoGIF(path("a.bmp"), path("a.gif")); }), error::PermissionDenied);
    }
    QCOMPARE(contentOf(path("a.gif")), QByteArray("old"));
    QCOMPARE(namesIn(m_dir->path()), QStringList({"a.bmp", "a.gif"}));
}

void GifFileTest::unwritableFolder() {
    SavePicture(Raster::fromImage(photo(QSize(30, 20))), path("a.bmp"));
    allow(path("a.bmp"), 0444);
    allow(m_dir->path(), 0555);
    {
        const Unprivileged nobody;
        QCOMPARE(errorOf([&] { ConvertBMPtoGIF(path("a.bmp"), path("a.gif")); }), error::PermissionDenied);
    }
    allow(m_dir->path(), 0755);
    QCOMPARE(errorOf([&] { ConvertBMPtoGIF(path("a.bmp"), path("none/a.gif")); }), error::PathNotFound);
}

void GifFileTest::folderAsTarget() {
    SavePicture(Raster::fromImage(photo(QSize(30, 20))), path("a.bmp"));
    QVERIFY(QDir(m_dir->path()).mkdir("a.gif"));
    QCOMPARE(errorOf([&] { ConvertBMPtoGIF(path("a.bmp"), path("a.gif")); }), error::PathFileAccess);
}

void GifFileTest::fullDiskLeavesTheOldFile_data() {
    QTest::addColumn<int>("missing"); // bytes that the disk is too small; -1: all of them
    QTest::newRow("nothing fits") << -1;
    QTest::newRow("half fits") << 20'000;
    QTest::newRow("all but the end mark fits") << 1;
}

void GifFileTest::fullDiskLeavesTheOldFile() {
    QFETCH(int, missing);
    const qint64 whole = QFileInfo(converted(photo(QSize(200, 150)))).size();
    QVERIFY(whole > 20'000);
    put(path("a.gif"), "old");
    {
        const SmallDisk disk(missing < 0 ? 0 : static_cast<rlim_t>(whole - missing));
        QCOMPARE(errorOf([&] { ConvertBMPtoGIF(path("Temp.bmp"), path("a.gif")); }), error::DiskFull);
    }
    QCOMPARE(contentOf(path("a.gif")), QByteArray("old"));
    QCOMPARE(namesIn(m_dir->path()), QStringList({"Temp.bmp", "a.gif"}));
}

void GifFileTest::failureAtEveryByte() {
    ImageRows rows(withColours(40, QSize(30, 20)));
    const IndexedPicture picture = reduceTo256(rows);
    const auto whole = static_cast<std::size_t>(gifOf(picture).size());
    for (std::size_t room = 0; room < whole; ++room) {
        std::size_t written = 0;
        const auto failing = [&](const void*, std::size_t count) {
            written += count;
            if (written > room)
                throw RuntimeError(error::DiskFull);
        };
        QCOMPARE(errorOf([&] { writeGif(picture, failing); }), error::DiskFull);
    }
}

OVRANO_TEST(GifFileTest)
#include "tst_giffile.moc"
