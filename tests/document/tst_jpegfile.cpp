#include "document/bmpfile.h"
#include "document/filetools.h"
#include "document/jpegfile.h"
#include "document/picturereader.h"
#include "support/testprogram.h"

#include <QTemporaryDir>
#include <QTest>

#include <cmath>

using namespace ovrano;

class JpegFileTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void writesBesideUnderTheSameName_data();
    void writesBesideUnderTheSameName();
    void sizeAndColoursAreKept_data();
    void sizeAndColoursAreKept();
    void higherRatioIsLargerAndNearer();
    void colourKeepsItsResolutionFromNinetyOn_data();
    void colourKeepsItsResolutionFromNinetyOn();
    void smallRedLettersStaySharp();
    void resolutionIsThatOfTheScreen();
    void pictureWiderThanTheFormat();
    void missingFile();
    void notABmp();
    void folderAsTarget();
    void fullDiskLeavesTheOldFile_data();
    void fullDiskLeavesTheOldFile();

private:
    QString path(const QString& name) const { return m_dir->filePath(name); }
    /// Saves as BMP, converts and loads the result.
    Raster converted(const Raster& picture, int ratio) {
        SavePicture(picture, path("a.bmp"));
        ConvertBMPtoJPG(path("a.bmp"), ratio, -1);
        return LoadPicture(path("a.jpg"));
    }

    std::unique_ptr<QTemporaryDir> m_dir;
};

namespace {

/// Root of the mean squared difference of the channels.
double distance(const Raster& a, const Raster& b) {
    double sum = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const Colour one = a.pixel(x, y);
            const Colour other = b.pixel(x, y);
            sum += std::pow(redOf(one) - redOf(other), 2) + std::pow(greenOf(one) - greenOf(other), 2) +
                   std::pow(blueOf(one) - blueOf(other), 2);
        }
    }
    return std::sqrt(sum / (3.0 * a.width() * a.height()));
}

} // namespace

void JpegFileTest::init() {
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
}

void JpegFileTest::writesBesideUnderTheSameName_data() {
    QTest::addColumn<QString>("bmp");
    QTest::addColumn<QString>("jpg");
    QTest::newRow("plain") << "Temp.bmp"
                           << "Temp.jpg";
    QTest::newRow("two dots") << "a.b.bmp"
                              << "a.b.jpg";
    QTest::newRow("capitals") << "PHOTO.BMP"
                              << "PHOTO.jpg";
    QTest::newRow("accents and blanks") << "Été à la mer.bmp"
                                        << "Été à la mer.jpg";
    QTest::newRow("no extension") << "photo"
                                  << "photo.jpg";
}

void JpegFileTest::writesBesideUnderTheSameName() {
    QFETCH(QString, bmp);
    QFETCH(QString, jpg);
    SavePicture(gradient(QSize(30, 20)), path(bmp));
    ConvertBMPtoJPG(path(bmp), 80, -1);
    QStringList expected{bmp, jpg};
    expected.sort();
    QCOMPARE(namesIn(m_dir->path()), expected);
    QCOMPARE(contentOf(path(jpg)).left(3), QByteArray("\xFF\xD8\xFF"));
    QVERIFY(LoadPicture(path(bmp)) == gradient(QSize(30, 20))); // the source is as it was
}

void JpegFileTest::sizeAndColoursAreKept_data() {
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("ratio");
    for (const int ratio : {100, 90, 80, 50})
        for (const QSize size :
             {QSize(1, 1), QSize(7, 9), QSize(8, 8), QSize(16, 16), QSize(17, 33), QSize(640, 480)})
            QTest::addRow("%d x %d at %d", size.width(), size.height(), ratio) << size << ratio;
}

void JpegFileTest::sizeAndColoursAreKept() {
    QFETCH(QSize, size);
    QFETCH(int, ratio);
    const Raster picture = gradient(size);
    const Raster loaded = converted(picture, ratio);
    QCOMPARE(loaded.size(), size);
    const double off = distance(loaded, picture);
    QVERIFY2(off < 12, qPrintable(QString::number(off)));
}

void JpegFileTest::higherRatioIsLargerAndNearer() {
    const Raster picture = patterned(QSize(200, 150));
    qint64 smaller = 0;
    double further = 1000;
    for (int ratio = 20; ratio <= 100; ratio += 10) {
        const double off = distance(converted(picture, ratio), picture);
        const qint64 bytes = QFileInfo(path("a.jpg")).size();
        QVERIFY(bytes > smaller);
        QVERIFY(off < further);
        smaller = bytes;
        further = off;
    }
}

void JpegFileTest::colourKeepsItsResolutionFromNinetyOn_data() {
    QTest::addColumn<int>("ratio");
    QTest::addColumn<int>("sampling"); // of the brightness: columns and rows of it for one of colour
    QTest::newRow("89") << 89 << 0x22;
    QTest::newRow("90") << 90 << 0x11;
    QTest::newRow("100") << 100 << 0x11;
}

void JpegFileTest::colourKeepsItsResolutionFromNinetyOn() {
    QFETCH(int, ratio);
    QFETCH(int, sampling);
    converted(gradient(QSize(40, 30)), ratio);
    const QByteArray content = contentOf(path("a.jpg"));
    const qsizetype frame = content.indexOf("\xFF\xC0");
    QVERIFY(frame > 0);
    QCOMPARE(int{content.at(frame + 11)}, sampling);
}

void JpegFileTest::smallRedLettersStaySharp() {
    Raster letter(QSize(32, 32), rgb(0, 0, 255));
    letter.fill(QRect(15, 3, 1, 26), rgb(255, 0, 0)); // a stroke of one pixel
    const Raster loaded = converted(letter, 100);
    for (int y = 5; y < 27; ++y) {
        QVERIFY(redOf(loaded.pixel(15, y)) > 230 && blueOf(loaded.pixel(15, y)) < 25);
        QVERIFY(redOf(loaded.pixel(14, y)) < 25 && blueOf(loaded.pixel(14, y)) > 230);
        QVERIFY(redOf(loaded.pixel(16, y)) < 25 && blueOf(loaded.pixel(16, y)) > 230);
    }
}

void JpegFileTest::resolutionIsThatOfTheScreen() {
    converted(gradient(QSize(40, 30)), 80);
    QCOMPARE(contentOf(path("a.jpg")).mid(13, 5), QByteArray("\x01\0\x60\0\x60", 5)); // 96 dots an inch
}

void JpegFileTest::pictureWiderThanTheFormat() {
    SavePicture(Raster(QSize(65'500, 2), White), path("fits.bmp"));
    ConvertBMPtoJPG(path("fits.bmp"), 80, -1);
    QCOMPARE(LoadPicture(path("fits.jpg")).size(), QSize(65'500, 2));

    SavePicture(Raster(QSize(65'501, 2), White), path("wide.bmp"));
    QCOMPARE(errorOf([&] { ConvertBMPtoJPG(path("wide.bmp"), 80, -1); }), error::InvalidPropertyValue);
    SavePicture(Raster(QSize(2, 65'501), White), path("high.bmp"));
    QCOMPARE(errorOf([&] { ConvertBMPtoJPG(path("high.bmp"), 80, -1); }), error::InvalidPropertyValue);
    QCOMPARE(namesIn(m_dir->path()), QStringList({"fits.bmp", "fits.jpg", "high.bmp", "wide.bmp"}));
}

void JpegFileTest::missingFile() {
    QCOMPARE(errorOf([&] { ConvertBMPtoJPG(path("none.bmp"), 80, -1); }), error::FileNotFound);
    QCOMPARE(errorOf([&] { ConvertBMPtoJPG(path("none/a.bmp"), 80, -1); }), error::PathNotFound);
    QCOMPARE(namesIn(m_dir->path()), QStringList());
}

void JpegFileTest::notABmp() {
    put(path("a.bmp"), QByteArray(1000, 'x'));
    QCOMPARE(errorOf([&] { ConvertBMPtoJPG(path("a.bmp"), 80, -1); }), error::InvalidPicture);
    QCOMPARE(namesIn(m_dir->path()), QStringList("a.bmp"));
}

void JpegFileTest::folderAsTarget() {
    SavePicture(gradient(QSize(40, 30)), path("a.bmp"));
    QVERIFY(QDir(m_dir->path()).mkdir("a.jpg"));
    QCOMPARE(errorOf([&] { ConvertBMPtoJPG(path("a.bmp"), 80, -1); }), error::PathFileAccess);
}

void JpegFileTest::fullDiskLeavesTheOldFile_data() {
    QTest::addColumn<int>("room");
    QTest::newRow("nothing fits") << 0;
    QTest::newRow("one buffer fits") << 70'000;
    QTest::newRow("all but the end fits") << -1;
}

void JpegFileTest::fullDiskLeavesTheOldFile() {
    QFETCH(int, room);
    const Raster picture = patterned(QSize(300, 300));
    converted(picture, 100);
    const qint64 whole = QFileInfo(path("a.jpg")).size();
    QVERIFY(whole > 80'000);
    put(path("a.jpg"), "old");
    int number = 0;
    {
        const SmallDisk disk(static_cast<rlim_t>(room < 0 ? whole + room : room));
        number = errorOf([&] { ConvertBMPtoJPG(path("a.bmp"), 100, -1); });
    }
    QCOMPARE(number, error::DiskFull);
    QCOMPARE(contentOf(path("a.jpg")), QByteArray("old"));
    QCOMPARE(namesIn(m_dir->path()), QStringList({"a.bmp", "a.jpg"}));
}

OVRANO_TEST(JpegFileTest)
#include "tst_jpegfile.moc"
