#include "document/filetools.h"
#include "document/giftools.h"
#include "document/picturereader.h"
#include "support/testprogram.h"

#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

using namespace ovrano;

namespace {

constexpr Colour Red = rgb(255, 0, 0);
constexpr Colour Green = rgb(0, 255, 0);
constexpr Colour Blue = rgb(0, 0, 255);

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

} // namespace

class PictureReaderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
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

    void missingFile();
    void missingFolder();
    void nameThatNoFileCanHave();
    void folderAsFile();
    void deviceAsFile();
    void pipeIsNotWaitedFor();
    void unreadableFile();
    void folderWithoutPermission();

private:
    QString path(const QString& name) const { return m_dir->filePath(name); }
    int errorOfLoading(const QString& name) const {
        return errorOf([&] { LoadPicture(path(name)); });
    }

    std::unique_ptr<QTemporaryDir> m_dir;
};

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
    QVERIFY(LoadPicture(path(name)) == patterned(QSize(37, 23)));
    QVERIFY(decodePicture(content) == patterned(QSize(37, 23)));
}

void PictureReaderTest::jpegColoursAreNearlyKept() {
    const Raster picture = gradient(QSize(70, 50));
    put(path("a.bmp"), encoded(picture, "jpg"));
    const Raster loaded = LoadPicture(path("a.bmp"));
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
    QVERIFY(LoadPicture(path("a@2x.png")) == Raster(QSize(20, 10), Red));
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
    QVERIFY(LoadPicture(path("a.gif")) == Raster(QSize(10, 8), Green));
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

void PictureReaderTest::missingFile() {
    QCOMPARE(errorOfLoading("none.bmp"), error::FileNotFound);
}

void PictureReaderTest::missingFolder() {
    QCOMPARE(errorOfLoading("none/a.bmp"), error::PathNotFound);
    put(path("file"), "x");
    QCOMPARE(errorOfLoading("file/a.bmp"), error::PathNotFound);
}

void PictureReaderTest::nameThatNoFileCanHave() {
    QCOMPARE(errorOfLoading(QString(256, 'x')), error::BadFileName);
    QCOMPARE(errorOfLoading(QStringLiteral("half a character ") + QChar(0xD83D)), error::BadFileName);
}

void PictureReaderTest::folderAsFile() {
    QVERIFY(QDir(m_dir->path()).mkdir("a.bmp"));
    QCOMPARE(errorOfLoading("a.bmp"), error::PathFileAccess);
}

void PictureReaderTest::deviceAsFile() {
    QCOMPARE(errorOf([] { LoadPicture("/dev/zero"); }), error::PathFileAccess);
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

OVRANO_TEST(PictureReaderTest)
#include "tst_picturereader.moc"
