#include "platform/clipboard.h"
#include "platform/picturemimedata.h"
#include "support/otherprogram.h"
#include "support/testprogram.h"

#include <QTest>
#include <QUrl>

using namespace ovrano;

namespace {

/// Wider than a tile and of odd size, no two neighbours alike.
Raster sample() {
    QImage image(301, 263, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, qRgb((x * 7 + y) & 255, (y * 5) & 255, (x * 3) & 255));
    return Raster::fromImage(image);
}

QImage pixelsOf(const QImage& image) {
    return image.convertToFormat(QImage::Format_RGB32);
}

void copyFiles(const QList<QUrl>& urls) {
    auto* files = new QMimeData;
    files->setUrls(urls);
    QGuiApplication::clipboard()->setMimeData(files);
}

} // namespace

class TestClipboard : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { clearClipboard(); }
    void cleanup() { clearClipboard(); }

    void nothingOnAnEmptyClipboard();
    void announcingCostsNoBytes();
    void rasterTypesComeBestFirst();
    void vectorType();
    void bytesThatAreNotGiven();
    void copiedFile_data();
    void copiedFile();
    void toolkitsOwnPicture();
    void ownPictureIsShared();
    void emptyPictureIsNotPut();
    void clearingTakesEverything();
    void othersPictureIsNotOurs();
    void encodedPixelForPixel_data();
    void encodedPixelForPixel();
    void offeredTypes();
};

void TestClipboard::nothingOnAnEmptyClipboard() {
    QVERIFY(!ClipboardOffer::now().includesPicture());
    QVERIFY(!ownClipboardPicture());
    QVERIFY(ClipboardOffer::now().rasterTypes().isEmpty());
    QVERIFY(ClipboardOffer::now().vectorType().isEmpty());
    QVERIFY(clipboardBytes("image/png").isEmpty());
    QVERIFY(ClipboardOffer::now().pictureFile().isEmpty());
    QVERIFY(ClipboardOffer::now().image().isNull());
}

void TestClipboard::announcingCostsNoBytes() {
    const auto asked = offer({{"image/png", "..."}, {"image/svg+xml", "..."}, {"text/plain", "..."}});
    QVERIFY(ClipboardOffer::now().includesPicture());
    QVERIFY(ClipboardOffer::now().includes(ClipboardFormat::Metafile));
    QCOMPARE(*asked, QStringList());
}

void TestClipboard::rasterTypesComeBestFirst() {
    offer({{"image/jpeg", "5"},
           {"image/x-MS-bmp", "4"},
           {"text/plain", "0"},
           {"image/x-bmp", "3"},
           {"image/svg+xml", "0"},
           {"image/bmp", "2"},
           {"image/png", "1"}});
    QCOMPARE(ClipboardOffer::now().rasterTypes(),
             QStringList({"image/png", "image/bmp", "image/x-bmp", "image/x-MS-bmp", "image/jpeg"}));
    QCOMPARE(clipboardBytes("image/x-bmp"), QByteArray("3"));
}

void TestClipboard::vectorType() {
    offer({{"text/plain", "0"}, {"image/svg+xml", "<svg/>"}});
    QCOMPARE(ClipboardOffer::now().vectorType(), QString("image/svg+xml"));
    QVERIFY(ClipboardOffer::now().rasterTypes().isEmpty());
    offer({{"text/plain", "0"}});
    QVERIFY(ClipboardOffer::now().vectorType().isEmpty());
}

void TestClipboard::bytesThatAreNotGiven() {
    offer({{"image/png", QByteArray()}});
    QVERIFY(ClipboardOffer::now().includesPicture());
    QVERIFY(clipboardBytes("image/png").isEmpty());
}

void TestClipboard::copiedFile_data() {
    QTest::addColumn<QList<QUrl>>("urls");
    QTest::addColumn<QString>("path");
    const QUrl photo = QUrl::fromLocalFile("/nowhere/d'été #1.JPG");
    QTest::newRow("picture") << QList<QUrl>{photo} << "/nowhere/d'été #1.JPG";
    QTest::newRow("two") << QList<QUrl>{photo, photo} << QString();
    QTest::newRow("text") << QList<QUrl>{QUrl::fromLocalFile("/nowhere/a.txt")} << QString();
    QTest::newRow("far away") << QList<QUrl>{QUrl("http://example.org/a.png")} << QString();
    QTest::newRow("no suffix") << QList<QUrl>{QUrl::fromLocalFile("/nowhere.png/a")} << QString();
    QTest::newRow("vector") << QList<QUrl>{QUrl::fromLocalFile("/nowhere/a.svg")} << QString();
}

void TestClipboard::copiedFile() {
    QFETCH(QList<QUrl>, urls);
    QFETCH(QString, path);
    copyFiles(urls);
    QCOMPARE(ClipboardOffer::now().pictureFile(), path);
    QCOMPARE(ClipboardOffer::now().includes(ClipboardFormat::Bitmap), !path.isEmpty());
}

void TestClipboard::toolkitsOwnPicture() {
    const Raster picture = sample();
    QGuiApplication::clipboard()->setImage(picture.toImage());
    QCOMPARE(pixelsOf(ClipboardOffer::now().image()), picture.toImage());
    QVERIFY(ClipboardOffer::now().rasterTypes().isEmpty());
}

void TestClipboard::ownPictureIsShared() {
    const Raster picture = sample();
    putOnClipboard(picture);
    QVERIFY(ClipboardOffer::now().includes(ClipboardFormat::Bitmap));
    QVERIFY(ClipboardOffer::now().includes(ClipboardFormat::Dib));
    QVERIFY(!ClipboardOffer::now().includes(ClipboardFormat::Metafile));
    const std::optional<Raster> own = ownClipboardPicture();
    QVERIFY(own);
    QCOMPARE(own->size(), picture.size());
    for (const QPoint at : {QPoint(0, 0), QPoint(300, 0), QPoint(0, 262), QPoint(300, 262)})
        QVERIFY(own->sharesTile(picture, at.x(), at.y()));
}

void TestClipboard::emptyPictureIsNotPut() {
    QGuiApplication::clipboard()->setText("texte");
    putOnClipboard(Raster());
    putOnClipboard(Raster(QSize(0, 5), White));
    QCOMPARE(QGuiApplication::clipboard()->text(), QString("texte"));
}

void TestClipboard::clearingTakesEverything() {
    putOnClipboard(sample());
    clearClipboard();
    QVERIFY(!ClipboardOffer::now().includesPicture());
    QVERIFY(!ownClipboardPicture());
    QGuiApplication::clipboard()->setText("texte");
    clearClipboard();
    QCOMPARE(QGuiApplication::clipboard()->text(), QString());
}

void TestClipboard::othersPictureIsNotOurs() {
    offerPicture(sample());
    QVERIFY(!ownClipboardPicture());
}

void TestClipboard::encodedPixelForPixel_data() {
    QTest::addColumn<QString>("type");
    QTest::addColumn<QByteArray>("signature");
    QTest::newRow("PNG") << "image/png" << QByteArray("\x89PNG");
    QTest::newRow("BMP") << "image/bmp" << QByteArray("BM");
}

// As another program sees it, which has nothing but the bytes.
void TestClipboard::encodedPixelForPixel() {
    QFETCH(QString, type);
    QFETCH(QByteArray, signature);
    const PictureMimeData data(sample());
    const QByteArray bytes = data.data(type);
    QVERIFY(bytes.startsWith(signature));
    const QImage decoded = QImage::fromData(bytes);
    QVERIFY(!decoded.hasAlphaChannel());
    QCOMPARE(pixelsOf(decoded), sample().toImage());
}

void TestClipboard::offeredTypes() {
    const PictureMimeData data(sample());
    QCOMPARE(data.formats().mid(0, 2), QStringList({"image/png", "image/bmp"}));
    QVERIFY(data.hasImage()); // within the program, and on a platform that makes the system's own type of it
    QCOMPARE(pixelsOf(qvariant_cast<QImage>(data.imageData())), sample().toImage());
    QVERIFY(data.data("image/tiff").isEmpty());
    QVERIFY(data.data("text/plain").isEmpty());
}

OVRANO_TEST(TestClipboard)
#include "tst_clipboard.moc"
