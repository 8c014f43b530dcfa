#include "document/clipboardpicture.h"
#include "document/filetools.h"
#include "platform/clipboard.h"
#include "support/otherprogram.h"
#include "support/testprogram.h"

#include <QTemporaryDir>
#include <QUrl>

using namespace ovrano;

namespace {

constexpr Colour Red = rgb(255, 0, 0);
const QByteArray Garbage = "neither of them";

/// A picture of one colour that tells where it came from.
QByteArray filled(Colour colour, const char* format) {
    return encoded(Raster(QSize(8, 4), colour), format);
}

QByteArray blueSvg() {
    return "<svg xmlns='http://www.w3.org/2000/svg' width='8' height='4'>"
           "<rect width='8' height='4' fill='#0000ff'/></svg>";
}

/// The colour of the picture that is read, InvalidColour when there is none.
Colour read() {
    const std::optional<Raster> picture = clipboardPicture();
    return picture ? picture->pixel(2, 2) : InvalidColour;
}

} // namespace

class ClipboardPictureTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { clearClipboard(); }

    void emptyClipboard();
    void afterClearing();
    void textOnly();
    void everyRasterType_data();
    void everyRasterType();
    void bestTypeIsAskedFirst();
    void nextTypeWhereOneIsDamaged_data();
    void nextTypeWhereOneIsDamaged();
    void allDamaged();
    void announcedAndNotGiven();
    void copiedFile();
    void copiedFileThatVanished();
    void copiedFileThatIsNoPicture();
    void fileComesBeforeAVectorPicture();
    void vectorPicture();
    void rasterComesBeforeAVectorPicture();
    void vectorPictureIsNotLeftToTheToolkit();
    void typeThatOnlyTheToolkitKnows();
    void transparencyLiesOverWhite_data();
    void transparencyLiesOverWhite();
    void ownPictureIsShared();
    void tooLarge();
    void cutOff();

private:
    void copyFile(const QString& name) {
        auto* files = new QMimeData;
        files->setUrls({QUrl::fromLocalFile(m_dir->filePath(name))});
        QGuiApplication::clipboard()->setMimeData(files);
    }

    std::unique_ptr<QTemporaryDir> m_dir;
};

void ClipboardPictureTest::init() {
    clearClipboard();
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
}

void ClipboardPictureTest::emptyClipboard() {
    QVERIFY(!clipboardPicture());
}

void ClipboardPictureTest::afterClearing() {
    putOnClipboard(Raster(QSize(3, 3), Red));
    clearClipboard();
    QVERIFY(!clipboardPicture());
}

void ClipboardPictureTest::textOnly() {
    QGuiApplication::clipboard()->setText("un texte");
    QVERIFY(!clipboardPicture());
}

void ClipboardPictureTest::everyRasterType_data() {
    QTest::addColumn<QString>("type");
    QTest::addColumn<QByteArray>("content");
    const Raster picture = patterned(QSize(301, 263));
    QTest::newRow("PNG") << "image/png" << encoded(picture, "png");
    QTest::newRow("BMP") << "image/bmp" << encoded(picture, "bmp");
    QTest::newRow("x-bmp") << "image/x-bmp" << encoded(picture, "bmp");
    QTest::newRow("x-MS-bmp") << "image/x-MS-bmp" << encoded(picture, "bmp");
    QTest::newRow("told by content") << "image/jpeg" << encoded(picture, "png");
}

void ClipboardPictureTest::everyRasterType() {
    QFETCH(QString, type);
    QFETCH(QByteArray, content);
    offer({{type, content}});
    const std::optional<Raster> picture = clipboardPicture();
    QVERIFY(picture);
    QVERIFY(*picture == patterned(QSize(301, 263)));
}

void ClipboardPictureTest::bestTypeIsAskedFirst() {
    const auto asked = offer({{"image/jpeg", filled(Black, "jpg")},
                              {"image/svg+xml", blueSvg()},
                              {"image/bmp", filled(Black, "bmp")},
                              {"image/png", filled(Red, "png")}});
    QCOMPARE(read(), Red);
    QCOMPARE(*asked, QStringList("image/png")); // the other program encodes nothing in vain
}

void ClipboardPictureTest::nextTypeWhereOneIsDamaged_data() {
    QTest::addColumn<int>("damaged"); // so many of the first types
    for (int damaged = 0; damaged < 5; ++damaged)
        QTest::addRow("%d damaged", damaged) << damaged;
}

void ClipboardPictureTest::nextTypeWhereOneIsDamaged() {
    QFETCH(int, damaged);
    const QStringList types = {"image/png", "image/bmp", "image/x-bmp", "image/x-MS-bmp", "image/jpeg"};
    OtherProgram::Offers offers;
    for (int i = 0; i < types.size(); ++i)
        offers.append({types.at(i), i < damaged ? Garbage : filled(rgb(40 * i, 0, 0), "bmp")});
    const auto asked = offer(offers);
    QCOMPARE(read(), rgb(40 * damaged, 0, 0));
    QCOMPARE(*asked, types.mid(0, damaged + 1));
}

void ClipboardPictureTest::allDamaged() {
    offer({{"image/png", Garbage}, {"image/bmp", Garbage}, {"image/svg+xml", Garbage}});
    QVERIFY(ClipboardOffer::now().includesPicture());
    QVERIFY(!clipboardPicture());
}

void ClipboardPictureTest::announcedAndNotGiven() {
    offer({{"image/png", QByteArray()}, {"image/jpeg", QByteArray()}, {"image/svg+xml", QByteArray()}});
    QVERIFY(ClipboardOffer::now().includesPicture());
    QVERIFY(!clipboardPicture());
}

void ClipboardPictureTest::copiedFile() {
    put(m_dir->filePath("d'été #1.PNG"), filled(Red, "bmp"));
    copyFile("d'été #1.PNG");
    QCOMPARE(read(), Red);
}

void ClipboardPictureTest::copiedFileThatVanished() {
    put(m_dir->filePath("a.png"), filled(Red, "png"));
    copyFile("a.png");
    QVERIFY(QFile::remove(m_dir->filePath("a.png")));
    QVERIFY(ClipboardOffer::now().includesPicture());
    QVERIFY(!clipboardPicture());
}

void ClipboardPictureTest::copiedFileThatIsNoPicture() {
    put(m_dir->filePath("a.jpg"), Garbage);
    copyFile("a.jpg");
    QVERIFY(!clipboardPicture());
}

void ClipboardPictureTest::fileComesBeforeAVectorPicture() {
    const QString path = put(m_dir->filePath("a.bmp"), filled(Red, "bmp"));
    const QByteArray list = QUrl::fromLocalFile(path).toEncoded() + "\r\n";
    offer({{"image/svg+xml", blueSvg()}, {"text/uri-list", list}});
    QCOMPARE(read(), Red);
    offer({{"image/png", filled(Black, "png")}, {"text/uri-list", list}});
    QCOMPARE(read(), Black);
}

void ClipboardPictureTest::vectorPicture() {
    offer({{"text/plain", "<svg/>"}, {"image/svg+xml", blueSvg()}});
    const std::optional<Raster> picture = clipboardPicture();
    QVERIFY(picture);
    QCOMPARE(picture->size(), QSize(8, 4));
    QCOMPARE(picture->pixel(7, 3), rgb(0, 0, 255));
}

void ClipboardPictureTest::rasterComesBeforeAVectorPicture() {
    offer({{"image/svg+xml", blueSvg()}, {"image/jpeg", filled(Red, "png")}});
    QCOMPARE(read(), Red);
    offer({{"image/svg+xml", blueSvg()}, {"image/jpeg", Garbage}});
    QCOMPARE(read(), rgb(0, 0, 255));
}

// It would load whatever the picture refers to.
void ClipboardPictureTest::vectorPictureIsNotLeftToTheToolkit() {
    auto* both = new QMimeData;
    both->setData("image/svg+xml", Garbage);
    both->setImageData(Raster(QSize(5, 5), Red).toImage());
    QGuiApplication::clipboard()->setMimeData(both);
    QVERIFY(!clipboardPicture());
}

void ClipboardPictureTest::typeThatOnlyTheToolkitKnows() {
    QGuiApplication::clipboard()->setImage(patterned(QSize(301, 263)).toImage());
    const std::optional<Raster> picture = clipboardPicture();
    QVERIFY(picture);
    QVERIFY(*picture == patterned(QSize(301, 263)));
}

void ClipboardPictureTest::transparencyLiesOverWhite_data() {
    QTest::addColumn<bool>("toolkit");
    QTest::newRow("PNG") << false;
    QTest::newRow("toolkit's own") << true;
}

void ClipboardPictureTest::transparencyLiesOverWhite() {
    QFETCH(bool, toolkit);
    QImage image(3, 1, QImage::Format_ARGB32);
    image.setPixel(0, 0, qRgba(0, 0, 0, 0));
    image.setPixel(1, 0, qRgba(0, 0, 0, 51));
    image.setPixel(2, 0, qRgba(1, 2, 3, 255));
    if (toolkit)
        QGuiApplication::clipboard()->setImage(image);
    else
        offer({{"image/png", encoded(image, "png")}});
    const std::optional<Raster> picture = clipboardPicture();
    QVERIFY(picture);
    QCOMPARE(picture->pixel(0, 0), White);
    QCOMPARE(picture->pixel(1, 0), rgb(204, 204, 204));
    QCOMPARE(picture->pixel(2, 0), rgb(1, 2, 3));
}

void ClipboardPictureTest::ownPictureIsShared() {
    const Raster own = patterned(QSize(300, 300));
    putOnClipboard(own);
    const std::optional<Raster> picture = clipboardPicture();
    QVERIFY(picture);
    QCOMPARE(picture->size(), own.size());
    QVERIFY(picture->sharesTile(own, 0, 0));
    QVERIFY(picture->sharesTile(own, 299, 299));
}

void ClipboardPictureTest::tooLarge() {
    const QByteArray enormous = "<svg xmlns='http://www.w3.org/2000/svg' width='200000' height='200000'/>";
    offer({{"image/svg+xml", enormous}});
    QCOMPARE(errorOf(clipboardPicture), error::OutOfMemory);
}

void ClipboardPictureTest::cutOff() {
    for (const char* format : {"png", "bmp", "jpg"}) {
        const QByteArray whole = encoded(patterned(QSize(60, 50)), format);
        offer({{"image/png", whole.left(whole.size() / 2)}, {"image/bmp", filled(Red, "bmp")}});
        QCOMPARE(read(), Red);
    }
}

OVRANO_TEST(ClipboardPictureTest)
#include "tst_clipboardpicture.moc"
