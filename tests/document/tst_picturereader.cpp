#include "document/filetools.h"
#include "document/giftools.h"
#include "document/picturereader.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QLoggingCategory>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

using namespace ovrano;

namespace {

constexpr Colour Red = rgb(255, 0, 0);
constexpr Colour Green = rgb(0, 255, 0);
constexpr Colour Blue = rgb(0, 0, 255);

QByteArray encoded(const QImage& image, const char* format) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, format))
        qFatal("cannot encode %s", format);
    return buffer.data();
}

QByteArray encoded(const Raster& picture, const char* format) {
    return encoded(picture.toImage(), format);
}

/// The content of a GIF of these frames.
QByteArray gif(QSize screen, const std::vector<GifFrame>& frames) {
    const QTemporaryDir folder;
    writeGif(folder.filePath("a.gif"), screen, frames);
    return contentOf(folder.filePath("a.gif"));
}

/// A JPEG with the orientation tag of a camera: a segment with a directory of one entry.
QByteArray withOrientation(const QByteArray& jpeg, char orientation) {
    QByteArray tag("\xFF\xE1\0\x22"
                   "Exif\0\0"
                   "MM\0\x2A\0\0\0\x08"
                   "\0\x01"
                   "\x01\x12\0\x03\0\0\0\x01\0?\0\0"
                   "\0\0\0\0",
                   36);
    tag[29] = orientation;
    return jpeg.left(2) + tag + jpeg.mid(2);
}

void put16(QByteArray& bytes, qsizetype at, int value) {
    qToBigEndian(static_cast<quint16>(value), bytes.data() + at);
}

/// Files of a few dozen bytes that announce a picture of this size.
QByteArray tinyBmp(int side) {
    QByteArray bytes = encoded(patterned(QSize(4, 4)), "bmp");
    qToLittleEndian(qint32{side}, bytes.data() + 18);
    qToLittleEndian(qint32{side}, bytes.data() + 22);
    return bytes;
}

/// Run-length coded: 0 1 is "end of picture" and makes any size complete.
QByteArray tinyRunLengthBmp(int side, const QByteArray& runs) {
    QByteArray bytes("BM", 2);
    bytes.resize(62, '\0');
    const auto put32 = [&](int at, int value) { qToLittleEndian(qint32{value}, bytes.data() + at); };
    put32(10, 62);
    put32(14, 40);
    put32(18, side);
    put32(22, side);
    bytes[26] = 1;
    bytes[28] = 8; // bits a pixel
    bytes[30] = 1; // run lengths of bytes
    put32(46, 2);  // colours
    put32(54, 0x00FF0000);
    put32(58, 0x000000FF);
    return bytes + runs;
}

QByteArray tinyGif(int side) {
    QByteArray bytes = gif(QSize(4, 4), {{QRect(0, 0, 4, 4), 1}});
    qToLittleEndian(static_cast<quint16>(side), bytes.data() + 6);
    qToLittleEndian(static_cast<quint16>(side), bytes.data() + 8);
    return bytes;
}

QByteArray tinyJpeg(int side) {
    QByteArray bytes = encoded(gradient(QSize(8, 8)), "jpg");
    const qsizetype frame = bytes.indexOf("\xFF\xC0");
    put16(bytes, frame + 5, side);
    put16(bytes, frame + 7, side);
    return bytes;
}

/// The most memory that the process has had so far, in bytes.
qint64 peakMemory() {
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return qint64{usage.ru_maxrss} * 1024;
}

Raster decodedOr(const QByteArray& content, const Raster& otherwise) {
    try {
        return decodePicture(content);
    } catch (const RuntimeError&) {
        return otherwise;
    }
}

} // namespace

class PictureReaderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void everyFormatIsReadWhateverItsName_data();
    void everyFormatIsReadWhateverItsName();
    void jpegColoursAreNearlyKept();
    void nameForDenseScreensDoesNotShrink();
    void photoComesUpright_data();
    void photoComesUpright();
    void transparentGifLiesOverWhite();
    void interlacedGif();
    void animationGivesItsFirstFrame();
    void halfTransparentPixelsAreLaidOverWhite();
    void topDownBmp();
    void sixteenBitAndGreyPictures();
    void scanBeyondTheToolkitsLimit_data();
    void scanBeyondTheToolkitsLimit();
    void pictureBeyondTheLimit();

    void missingFile();
    void missingFolder();
    void folderAsFile();
    void deviceAsFile();
    void pipeIsNotWaitedFor();
    void unreadableFile();
    void folderWithoutPermission();
    void notAPicture_data();
    void notAPicture();
    void cutOff_data();
    void cutOff();
    void whatFollowsThePictureDoesNotMatter_data();
    void whatFollowsThePictureDoesNotMatter();
    void announcedSizeIsNotBelieved_data();
    void announcedSizeIsNotBelieved();
    void leftOutPixelsHaveTheFirstColour();
    void damagedFilesGiveTheSameEachTime_data();
    void damagedFilesGiveTheSameEachTime();
    void randomBytes();

private:
    QString path(const QString& name) const { return m_dir->filePath(name); }
    int errorOfLoading(const QString& name) const {
        return errorOf([&] { loadPicture(path(name)); });
    }

    std::unique_ptr<QTemporaryDir> m_dir;
};

void PictureReaderTest::initTestCase() {
    QLoggingCategory::setFilterRules("qt.gui.imageio*=false"); // damaged files are the point here
}

void PictureReaderTest::init() {
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
}

void PictureReaderTest::everyFormatIsReadWhateverItsName_data() {
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("name");
    for (const char* name :
         {"a.bmp", "a.gif", "a.jpg", "a.jpeg", "a.png", "A.BMP", "a.txt", "a", "a.svg", ".x"}) {
        for (const char* format : {"bmp", "png"})
            QTest::addRow("%s as %s", format, name)
                << encoded(patterned(QSize(37, 23)), format) << QString(name);
    }
}

void PictureReaderTest::everyFormatIsReadWhateverItsName() {
    QFETCH(QByteArray, content);
    QFETCH(QString, name);
    put(path(name), content);
    QVERIFY(loadPicture(path(name)) == patterned(QSize(37, 23)));
    QVERIFY(decodePicture(content) == patterned(QSize(37, 23)));
}

void PictureReaderTest::jpegColoursAreNearlyKept() {
    const Raster picture = gradient(QSize(70, 50));
    put(path("a.bmp"), encoded(picture, "jpg"));
    const Raster loaded = loadPicture(path("a.bmp"));
    QCOMPARE(loaded.size(), QSize(70, 50));
    for (const QPoint at : {QPoint(3, 3), QPoint(35, 25), QPoint(66, 46)}) {
        const Colour was = picture.pixel(at.x(), at.y());
        const Colour is = loaded.pixel(at.x(), at.y());
        QVERIFY(qAbs(redOf(was) - redOf(is)) < 12 && qAbs(greenOf(was) - greenOf(is)) < 12 &&
                qAbs(blueOf(was) - blueOf(is)) < 12);
    }
}

void PictureReaderTest::nameForDenseScreensDoesNotShrink() {
    QImage image(20, 10, QImage::Format_ARGB32);
    image.fill(Qt::red);
    put(path("a@2x.png"), encoded(image, "png"));
    QVERIFY(loadPicture(path("a@2x.png")) == Raster(QSize(20, 10), Red));
}

void PictureReaderTest::photoComesUpright_data() {
    QTest::addColumn<int>("orientation");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QPoint>("red"); // where the red stripe, on the left as it is stored, comes to
    QTest::newRow("as it is") << 1 << QSize(64, 32) << QPoint(4, 16);
    QTest::newRow("upside down") << 3 << QSize(64, 32) << QPoint(59, 16);
    QTest::newRow("turned right") << 6 << QSize(32, 64) << QPoint(16, 4);
    QTest::newRow("turned left") << 8 << QSize(32, 64) << QPoint(16, 59);
}

void PictureReaderTest::photoComesUpright() {
    QFETCH(int, orientation);
    QFETCH(QSize, size);
    QFETCH(QPoint, red);
    Raster stored(QSize(64, 32), White);
    stored.fill(QRect(0, 0, 16, 32), Red);
    const Raster loaded =
        decodePicture(withOrientation(encoded(stored, "jpg"), static_cast<char>(orientation)));
    QCOMPARE(loaded.size(), size);
    QVERIFY(greenOf(loaded.pixel(red.x(), red.y())) < 40);
    QVERIFY(greenOf(loaded.pixel(size.width() / 2, size.height() / 2)) > 215);
}

void PictureReaderTest::transparentGifLiesOverWhite() {
    const Raster all = decodePicture(gif(QSize(6, 4), {{QRect(0, 0, 6, 4), 2, 2}}));
    QVERIFY(all == Raster(QSize(6, 4), White));

    Raster part(QSize(6, 4), White);
    part.fill(QRect(1, 1, 2, 2), Green);
    QVERIFY(decodePicture(gif(QSize(6, 4), {{QRect(1, 1, 2, 2), 1, 3}})) == part);
}

void PictureReaderTest::interlacedGif() {
    const GifFrame frame{QRect(0, 0, 9, 21), 2, -1, true};
    QVERIFY(decodePicture(gif(QSize(9, 21), {frame})) == Raster(QSize(9, 21), Blue));
}

void PictureReaderTest::animationGivesItsFirstFrame() {
    const QRect whole(0, 0, 10, 8);
    put(path("a.gif"), gif(QSize(10, 8), {{whole, 1}, {whole, 2}, {whole, 0}}));
    QVERIFY(loadPicture(path("a.gif")) == Raster(QSize(10, 8), Green));
}

void PictureReaderTest::halfTransparentPixelsAreLaidOverWhite() {
    QImage image(3, 1, QImage::Format_ARGB32);
    image.setPixel(0, 0, qRgba(0, 0, 0, 128));
    image.setPixel(1, 0, qRgba(255, 0, 0, 0));
    image.setPixel(2, 0, qRgba(10, 20, 30, 255));
    const Raster loaded = decodePicture(encoded(image, "png"));
    QCOMPARE(loaded.pixel(0, 0), rgb(127, 127, 127));
    QCOMPARE(loaded.pixel(1, 0), White);
    QCOMPARE(loaded.pixel(2, 0), rgb(10, 20, 30));
}

void PictureReaderTest::topDownBmp() {
    QByteArray content = encoded(patterned(QSize(8, 6)), "bmp");
    qToLittleEndian(qint32{-6}, content.data() + 22);
    const QImage flipped = patterned(QSize(8, 6)).toImage().mirrored();
    QVERIFY(decodePicture(content) == Raster::fromImage(flipped));
}

void PictureReaderTest::sixteenBitAndGreyPictures() {
    const QImage picture = patterned(QSize(20, 10)).toImage();
    for (const auto format : {QImage::Format_Grayscale8, QImage::Format_RGB16, QImage::Format_Indexed8,
                              QImage::Format_Mono, QImage::Format_RGBX64, QImage::Format_RGBA64}) {
        const QImage reduced = picture.convertToFormat(format);
        QVERIFY(decodePicture(encoded(reduced, "png")) == Raster::fromImage(reduced));
    }
}

void PictureReaderTest::scanBeyondTheToolkitsLimit_data() {
    QTest::addColumn<QByteArray>("content");
    QImage scan(6000, 6000, QImage::Format_RGB32); // 144 MB
    scan.fill(Qt::blue);
    QTest::newRow("JPEG") << encoded(scan, "jpg");
    QTest::newRow("GIF") << gif(scan.size(), {{scan.rect(), 2}});
}

void PictureReaderTest::scanBeyondTheToolkitsLimit() {
    QFETCH(QByteArray, content);
    const Raster loaded = decodePicture(content);
    QCOMPARE(loaded.size(), QSize(6000, 6000));
    QVERIFY(blueOf(loaded.pixel(5999, 5999)) > 250);
}

void PictureReaderTest::pictureBeyondTheLimit() {
    const QByteArray plausiblyLong(100'000, 'x');
    QCOMPARE(errorOf([&] { decodePicture(tinyJpeg(30'000) + plausiblyLong); }), error::OutOfMemory);
}

void PictureReaderTest::missingFile() {
    QCOMPARE(errorOfLoading("none.bmp"), error::FileNotFound);
}

void PictureReaderTest::missingFolder() {
    QCOMPARE(errorOfLoading("none/a.bmp"), error::PathNotFound);
    put(path("file"), "x");
    QCOMPARE(errorOfLoading("file/a.bmp"), error::PathNotFound);
}

void PictureReaderTest::folderAsFile() {
    QVERIFY(QDir(m_dir->path()).mkdir("a.bmp"));
    QCOMPARE(errorOfLoading("a.bmp"), error::PathFileAccess);
}

void PictureReaderTest::deviceAsFile() {
    QCOMPARE(errorOf([] { loadPicture("/dev/zero"); }), error::PathFileAccess);
}

void PictureReaderTest::pipeIsNotWaitedFor() {
    QCOMPARE(mkfifo(qPrintable(path("a.bmp")), 0600), 0);
    QCOMPARE(errorOfLoading("a.bmp"), error::PathFileAccess);
}

void PictureReaderTest::unreadableFile() {
    put(path("a.bmp"), encoded(patterned(QSize(3, 3)), "bmp"));
    allow(path("a.bmp"), 0);
    allow(m_dir->path(), 0755);
    const Unprivileged nobody;
    QCOMPARE(errorOfLoading("a.bmp"), error::PermissionDenied);
}

void PictureReaderTest::folderWithoutPermission() {
    put(path("a.bmp"), encoded(patterned(QSize(3, 3)), "bmp"));
    allow(m_dir->path(), 0);
    int number = 0;
    {
        const Unprivileged nobody;
        number = errorOfLoading("a.bmp");
    }
    allow(m_dir->path(), 0755);
    QCOMPARE(number, error::PermissionDenied);
}

void PictureReaderTest::notAPicture_data() {
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("one byte") << QByteArray("B");
    QTest::newRow("text") << QByteArray("Ceci n'est pas une image.\n");
    QTest::newRow("zeros") << QByteArray(5000, '\0');
    QTest::newRow("only BM") << QByteArray("BM");
    QTest::newRow("only GIF") << QByteArray("GIF89a");
    QTest::newRow("only JPEG") << QByteArray("\xFF\xD8\xFF");
    QTest::newRow("JPEG without picture") << QByteArray("\xFF\xD8\xFF\xD9");
    QTest::newRow("GIF without picture") << gif(QSize(5, 5), {});
    QTest::newRow("drawing") << QByteArray("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>");
    QTest::newRow("no width") << tinyBmp(0);
}

void PictureReaderTest::notAPicture() {
    QFETCH(QByteArray, content);
    put(path("a.bmp"), content);
    QCOMPARE(errorOfLoading("a.bmp"), error::InvalidPicture);
    QCOMPARE(errorOf([&] { decodePicture(content); }), error::InvalidPicture);
}

void PictureReaderTest::cutOff_data() {
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("spare"); // bytes at the end that nobody needs
    const QImage picture = patterned(QSize(40, 30)).toImage();
    const QByteArray runs("\x04\x01\0\x03\1\0\1\0\0\x02\1\1\0\1", 14);
    QTest::newRow("BMP") << encoded(picture, "bmp") << 0;
    QTest::newRow("BMP with a palette")
        << encoded(picture.convertToFormat(QImage::Format_Indexed8), "bmp") << 0;
    QTest::newRow("BMP of runs") << tinyRunLengthBmp(8, runs) << 0;
    QTest::newRow("GIF") << gif(QSize(40, 30), {{QRect(0, 0, 40, 30), 1}}) << 1;
    QTest::newRow("JPEG") << encoded(picture, "jpg") << 0;
}

// Whatever is missing, be it the last byte: an error, never a picture with a made-up part.
void PictureReaderTest::cutOff() {
    QFETCH(QByteArray, content);
    QFETCH(int, spare);
    QCOMPARE(errorOf([&] { decodePicture(content); }), 0);
    QCOMPARE(errorOf([&] { decodePicture(content.chopped(spare)); }), 0);
    for (qsizetype length = 0; length < content.size() - spare; ++length)
        QCOMPARE(errorOf([&] { decodePicture(content.left(length)); }), error::InvalidPicture);
}

void PictureReaderTest::whatFollowsThePictureDoesNotMatter_data() {
    QTest::addColumn<QByteArray>("content");
    const QImage picture = patterned(QSize(40, 30)).toImage();
    QTest::newRow("BMP") << encoded(picture, "bmp");
    QTest::newRow("GIF") << gif(QSize(40, 30), {{QRect(0, 0, 40, 30), 1}});
    QTest::newRow("JPEG") << encoded(picture, "jpg");
    QTest::newRow("PNG") << encoded(picture, "png");
}

void PictureReaderTest::whatFollowsThePictureDoesNotMatter() {
    QFETCH(QByteArray, content);
    const Raster alone = decodePicture(content);
    QVERIFY(decodePicture(content + QByteArray(3000, 'x')) == alone);
    QVERIFY(decodePicture(content + content) == alone);
}

void PictureReaderTest::announcedSizeIsNotBelieved_data() {
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("BMP") << tinyBmp(30'000);
    QTest::newRow("BMP, all bits") << tinyBmp(0x7FFFFFFF);
    QTest::newRow("BMP, negative") << tinyBmp(-30'000);
    QTest::newRow("BMP, most negative") << tinyBmp(INT_MIN);
    QTest::newRow("BMP of runs") << tinyRunLengthBmp(30'000, QByteArray("\0\1", 2));
    QTest::newRow("BMP of runs within the limit") << tinyRunLengthBmp(16'000, QByteArray("\0\1", 2));
    QTest::newRow("GIF") << tinyGif(30'000);
    QTest::newRow("GIF within the limit") << tinyGif(16'000);
    QTest::newRow("JPEG") << tinyJpeg(30'000);
    QTest::newRow("JPEG within the limit") << tinyJpeg(16'000);
}

void PictureReaderTest::announcedSizeIsNotBelieved() {
    QFETCH(QByteArray, content);
    QVERIFY(content.size() < 1000);
    const qint64 before = peakMemory();
    QElapsedTimer timer;
    timer.start();
    const int number = errorOf([&] { decodePicture(content); });
    QVERIFY2(number == error::InvalidPicture || number == error::OutOfMemory,
             qPrintable(QString::number(number)));
    QVERIFY(timer.elapsed() < 500);
    QVERIFY(peakMemory() - before < 100'000'000);
}

// Runs may skip pixels: they are of the palette's first colour then, not what the memory held.
void PictureReaderTest::leftOutPixelsHaveTheFirstColour() {
    const QByteArray runs("\x02\x01\0\1", 4);
    Raster expected(QSize(8, 8), Red);
    expected.fill(QRect(0, 7, 2, 1), Blue);
    QVERIFY(decodePicture(tinyRunLengthBmp(8, runs)) == expected);
}

void PictureReaderTest::damagedFilesGiveTheSameEachTime_data() {
    whatFollowsThePictureDoesNotMatter_data();
}

void PictureReaderTest::damagedFilesGiveTheSameEachTime() {
    QFETCH(QByteArray, content);
    QRandomGenerator random(4711);
    for (int round = 0; round < 300; ++round) {
        QByteArray damaged = content;
        for (int change = random.bounded(1, 6); change > 0; --change)
            damaged[random.bounded(static_cast<int>(damaged.size()))] = static_cast<char>(random.generate());
        const Raster once = decodedOr(damaged, Raster());
        // What the freed memory holds differs now.
        QImage dirt(once.size().expandedTo(QSize(1, 1)), QImage::Format_RGB32);
        dirt.fill(random.generate());
        dirt = QImage();
        QVERIFY2(decodedOr(damaged, Raster()) == once, damaged.toHex());
    }
}

void PictureReaderTest::randomBytes() {
    QRandomGenerator random(20'01);
    for (const QByteArray& start :
         {QByteArray(), QByteArray("BM"), QByteArray("GIF89a"), QByteArray("GIF87a"),
          QByteArray("\xFF\xD8\xFF\xE0"), QByteArray("\x89PNG\r\n\x1A\n")}) {
        for (int round = 0; round < 100; ++round) {
            QByteArray content = start;
            for (int i = random.bounded(2000); i > 0; --i)
                content += static_cast<char>(random.generate());
            const int number = errorOf([&] { decodePicture(content); });
            QVERIFY2(number == 0 || number == error::InvalidPicture || number == error::OutOfMemory,
                     content.toHex());
        }
    }
}

QTEST_MAIN(PictureReaderTest)
#include "tst_picturereader.moc"
