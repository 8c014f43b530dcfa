#include "document/filetools.h"
#include "document/selfcontainedsvg.h"
#include "document/svgtools.h"
#include "document/vectorpicture.h"
#include "support/testprogram.h"

#include <QPainter>
#include <QSvgRenderer>
#include <QTemporaryDir>
#include <QTimer>
#include <QtEndian>

using namespace ovrano;

namespace {

constexpr Colour Red = rgb(255, 0, 0);
constexpr Colour Blue = rgb(0, 0, 255);

QByteArray copied(const QByteArray& picture) {
    EventYield yield;
    return selfContainedSvg(picture, yield).svg;
}

QByteArray embedded(const QImage& image, const char* format) {
    return "data:image/" + QByteArray(format) + ";base64," + encoded(image, format).toBase64();
}

QImage redPicture() {
    QImage image(4, 3, QImage::Format_RGB32);
    image.fill(Qt::red);
    return image;
}

/// A PNG picture whose header announces 65535 × 65535 pixels.
QByteArray enormousPng() {
    QByteArray png = encoded(QImage(1, 1, QImage::Format_Mono), "png");
    constexpr int Type = 12, Width = 16, Checksum = 29; // places in the file
    png.replace(Width, 8, QByteArray("\0\0\xFF\xFF\0\0\xFF\xFF", 8));
    quint32 crc = ~0U;
    for (int at = Type; at < Checksum; ++at) {
        crc ^= static_cast<uchar>(png.at(at));
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ (crc & 1U ? 0xEDB88320U : 0U);
    }
    for (int byte = 0; byte < 4; ++byte)
        png[Checksum + byte] = static_cast<char>(~crc >> (24 - 8 * byte));
    return png;
}

QByteArray imageElement(const QByteArray& attribute, const QByteArray& reference) {
    return "<image x='0' y='0' width='40' height='30' " + attribute + "='" + reference + "'/>";
}

/// A BMP picture of 64 × 64 pixels whose runs leave all but two of them out.
QByteArray sparseBmp() {
    constexpr int Start = 62;
    QByteArray bmp = "BM" + QByteArray(Start - 2, '\0');
    const auto put = [&](int at, int value) { qToLittleEndian(qint32{value}, bmp.data() + at); };
    put(10, Start);
    put(14, 40);          // bytes of the second header
    put(18, 64);          // width
    put(22, 64);          // height
    put(26, 1 | 8 << 16); // planes, bits a pixel
    put(30, 1);           // runs of bytes
    put(46, 2);           // colours
    put(54, 0xFF0000);
    put(58, 0x0000FF);
    return bmp + QByteArray("\2\1\0\1", 4);
}

/// How many embedded pictures of a side each are left of a number of them.
int keptOf(int number, int side) {
    QImage image(side, side, QImage::Format_Mono);
    image.fill(0);
    const QByteArray element = "<image xlink:href='" + embedded(image, "png") + "'/>";
    return static_cast<int>(copied(svg(element.repeated(number))).count("data:"));
}

bool isBlank(const Raster& picture) {
    return picture == Raster(picture.size(), White);
}

} // namespace

class VectorPictureTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void naturalSize_data();
    void naturalSize();
    void withoutSize_data();
    void withoutSize();
    void drawnOverWhite();
    void edgesAreSoft();
    void bandsDoNotShow_data();
    void bandsDoNotShow();
    void embeddedPicture_data();
    void embeddedPicture();
    void embeddedPictureThatIsNone_data();
    void embeddedPictureThatIsNone();
    void cutEmbeddedPicture_data();
    void cutEmbeddedPicture();
    void embeddedPictureThatLeavesPixelsOut();
    void embeddedPicturesTogether();
    void embeddedPictureThatIsDamagedCounts();
    void nothingIsLoadedFromOutside_data();
    void nothingIsLoadedFromOutside();
    void referencesWithinThePicture_data();
    void referencesWithinThePicture();
    void foreignEntities();
    void styleAndTextSurvive();
    void damaged_data();
    void damaged();
    void tooLarge_data();
    void tooLarge();
    void tooTallForItsElements();
    void windowRepaintsWhileTextIsRead();
};

void VectorPictureTest::naturalSize_data() {
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<QSize>("size");
    QTest::newRow("width and height") << QByteArray("width='40' height='30'") << QSize(40, 30);
    QTest::newRow("pixels") << QByteArray("width='40px' height='30px'") << QSize(40, 30);
    QTest::newRow("viewBox") << QByteArray("viewBox='5 5 64 48'") << QSize(64, 48);
    QTest::newRow("both") << QByteArray("width='20' height='10' viewBox='0 0 64 48'") << QSize(20, 10);
    QTest::newRow("one pixel") << QByteArray("width='1' height='1'") << QSize(1, 1);
}

void VectorPictureTest::naturalSize() {
    QFETCH(QByteArray, attributes);
    QFETCH(QSize, size);
    const QByteArray everything = "<rect x='-99' y='-99' width='999' height='999' fill='red'/>";
    QVERIFY(renderVectorPicture(svg(everything, attributes)) == Raster(size, Red));
}

void VectorPictureTest::withoutSize_data() {
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("no attribute, no content") << svg("", "");
    QTest::newRow("nought") << svg("", "width='0' height='0'");
    QTest::newRow("negative") << svg("", "width='-4' height='-4'");
}

void VectorPictureTest::withoutSize() {
    QFETCH(QByteArray, content);
    QCOMPARE(errorOf([&] { renderVectorPicture(content); }), error::InvalidPicture);
}

void VectorPictureTest::drawnOverWhite() {
    const Raster picture =
        renderVectorPicture(svg("<rect x='10' y='5' width='10' height='20' fill='#0000ff'/>"
                                "<rect x='30' y='5' width='10' height='20' fill='black' opacity='0.2'/>"));
    Raster expected(QSize(40, 30), White);
    expected.fill(QRect(10, 5, 10, 20), Blue);
    expected.fill(QRect(30, 5, 10, 20), picture.pixel(33, 9));
    QVERIFY(picture == expected);
    QVERIFY(qAbs(redOf(picture.pixel(33, 9)) - 204) <= 1);
}

void VectorPictureTest::edgesAreSoft() {
    const Raster picture = renderVectorPicture(svg("<rect x='10.5' y='0' width='10' height='30'/>"));
    QVERIFY(qAbs(redOf(picture.pixel(10, 9)) - 128) < 16);
}

void VectorPictureTest::bandsDoNotShow_data() {
    QTest::addColumn<QSize>("size");
    QTest::newRow("three bands of many pixels") << QSize(1200, 3700);
    QTest::newRow("three bands of many rows") << QSize(300, 5000);
}

void VectorPictureTest::bandsDoNotShow() {
    QFETCH(QSize, size);
    const QByteArray width = QByteArray::number(size.width());
    const QByteArray height = QByteArray::number(size.height());
    const QByteArray picture = svg("<circle cx='150' cy='2000' r='590' fill='#2468ac'/>"
                                   "<path d='M 0 0 L " +
                                       width + " " + height + "' stroke='red' stroke-width='31'/>",
                                   "width='" + width + "' height='" + height + "'");
    QImage atOnce(size, QImage::Format_RGB32);
    atOnce.fill(Qt::white);
    {
        QPainter painter(&atOnce);
        painter.setRenderHint(QPainter::Antialiasing);
        QSvgRenderer(picture).render(&painter, QRectF(QPointF(0, 0), QSizeF(size)));
    }
    const QImage drawn = renderVectorPicture(picture).toImage();
    QCOMPARE(drawn.size(), size);
    int worst = 0;
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            worst = qMax(worst, qAbs(qGreen(drawn.pixel(x, y)) - qGreen(atOnce.pixel(x, y))));
    constexpr int Unseen = 24; // how much the covered share of an edge pixel may differ
    QVERIFY2(worst <= Unseen, qPrintable(QString::number(worst)));
}

void VectorPictureTest::embeddedPicture_data() {
    QTest::addColumn<QByteArray>("format");
    for (const char* format : {"png", "bmp", "jpeg"})
        QTest::newRow(format) << QByteArray(format);
}

void VectorPictureTest::embeddedPicture() {
    QFETCH(QByteArray, format);
    const QByteArray reference = embedded(redPicture(), format.constData());
    const Colour drawn = renderVectorPicture(svg(imageElement("xlink:href", reference))).pixel(20, 15);
    QVERIFY(redOf(drawn) > 250 && greenOf(drawn) < 5 && blueOf(drawn) < 5);
}

void VectorPictureTest::embeddedPictureThatIsNone_data() {
    QTest::addColumn<QByteArray>("reference");
    const QByteArray inner = svg("<rect width='40' height='30' fill='red'/>").toBase64();
    QTest::newRow("vector") << "data:image/svg+xml;base64," + inner;
    QTest::newRow("nothing") << QByteArray("data:,");
    QTest::newRow("no comma") << QByteArray("data:image/png");
    QTest::newRow("text") << "data:text/plain;base64," + QByteArray("red").toBase64();
    const QByteArray huge = enormousPng().toBase64();
    QTest::newRow("far too large") << "data:image/png;base64," + huge;
    QTest::newRow("far too large behind a good one") << embedded(redPicture(), "png") + "base64," + huge;
}

void VectorPictureTest::embeddedPictureThatIsNone() {
    QFETCH(QByteArray, reference);
    const QByteArray picture = svg(imageElement("xlink:href", reference));
    QVERIFY(!copied(picture).contains("data:"));
    QVERIFY(isBlank(renderVectorPicture(picture)));
}

void VectorPictureTest::cutEmbeddedPicture_data() {
    embeddedPicture_data();
}

void VectorPictureTest::cutEmbeddedPicture() {
    QFETCH(QByteArray, format);
    const QByteArray whole = encoded(patterned(QSize(64, 64)), format.constData());
    const QByteArray reference = "data:image/" + format + ";base64,";
    const QByteArray kept = svg(imageElement("xlink:href", reference + whole.toBase64()));
    QVERIFY(!isBlank(renderVectorPicture(kept)));
    const QByteArray half = whole.left(whole.size() / 2).toBase64();
    const QByteArray cut = svg(imageElement("xlink:href", reference + half));
    QVERIFY(!copied(cut).contains("data:"));
    QVERIFY(isBlank(renderVectorPicture(cut)));
}

void VectorPictureTest::embeddedPictureThatLeavesPixelsOut() {
    QImage dirt(64, 64, QImage::Format_Indexed8); // what the freed memory holds
    dirt.fill(1);
    dirt = QImage();
    const QByteArray reference = "data:image/bmp;base64," + sparseBmp().toBase64();
    const Raster drawn = renderVectorPicture(
        svg("<image width='64' height='64' xlink:href='" + reference + "'/>", "width='64' height='64'"));
    Raster expected(QSize(64, 64), Red);
    expected.fill(QRect(0, 63, 2, 1), Blue);
    QVERIFY(drawn == expected);
}

void VectorPictureTest::embeddedPicturesTogether() {
    QCOMPARE(keptOf(3, 4000), 3);
    QCOMPARE(keptOf(4, 4000), 4); // 64 megapixels
    QCOMPARE(keptOf(20, 4000), 4);
    QCOMPARE(keptOf(1, 8001), 0);
}

// Decoding it takes as long as if it were whole.
void VectorPictureTest::embeddedPictureThatIsDamagedCounts() {
    QImage image(8000, 8000, QImage::Format_Mono);
    image.fill(0);
    const QByteArray large = encoded(image, "png");
    const QByteArray cut = "data:image/png;base64," + large.chopped(large.size() / 2).toBase64();
    const QByteArray small = imageElement("xlink:href", embedded(redPicture(), "png"));
    QVERIFY(copied(svg(small + imageElement("xlink:href", cut))).contains("data:"));
    QVERIFY(!copied(svg(imageElement("xlink:href", cut) + small)).contains("data:"));
}

void VectorPictureTest::nothingIsLoadedFromOutside_data() {
    QTest::addColumn<QByteArray>("attribute");
    QTest::addColumn<QByteArray>("form"); // %1 is the file
    for (const char* attribute : {"xlink:href", "href"})
        for (const char* form : {"%1", "file://%1", "  %1", "FILE://%1", "../../../../../../../../..%1",
                                 "javascript:%1", "http://example.org%1", "data%1", "%1#a"})
            QTest::addRow("%s %s", attribute, form) << QByteArray(attribute) << QByteArray(form);
}

void VectorPictureTest::nothingIsLoadedFromOutside() {
    QFETCH(QByteArray, attribute);
    QFETCH(QByteArray, form);
    const QTemporaryDir folder;
    const QByteArray path = put(folder.filePath("red.png"), encoded(redPicture(), "png")).toUtf8();
    const QByteArray picture = svg(imageElement(attribute, QByteArray(form).replace("%1", path)));
    QVERIFY(!copied(picture).contains("red.png"));
    QVERIFY(isBlank(renderVectorPicture(picture)));
}

void VectorPictureTest::referencesWithinThePicture_data() {
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("use") << QByteArray("<defs><rect id='r' width='40' height='30' fill='red'/></defs>"
                                       "<use xlink:href='#r'/>");
    QTest::newRow("gradient") << QByteArray(
        "<defs><linearGradient id='g'><stop offset='0' stop-color='red'/>"
        "<stop offset='1' stop-color='red'/></linearGradient>"
        "<linearGradient id='h' xlink:href='#g'/></defs><rect width='40' height='30' fill='url(#h)'/>");
}

void VectorPictureTest::referencesWithinThePicture() {
    QFETCH(QByteArray, content);
    QVERIFY(renderVectorPicture(svg(content)) == Raster(QSize(40, 30), Red));
}

void VectorPictureTest::foreignEntities() {
    const QTemporaryDir folder;
    const QByteArray path = put(folder.filePath("secret.txt"), "secret").toUtf8();
    const QByteArray picture =
        "<!DOCTYPE svg [<!ENTITY e SYSTEM 'file://" + path + "'>]>" + svg("<text x='5' y='20'>&e;</text>");
    const int number = errorOf([&] {
        QVERIFY(!copied(picture).contains("secret"));
        QVERIFY(isBlank(renderVectorPicture(picture)));
    });
    QVERIFY(number == 0 || number == error::InvalidPicture);
}

void VectorPictureTest::styleAndTextSurvive() {
    const QByteArray drawn = svg("<style>.a { fill: red; }</style><rect class='a' width='40' height='30'/>");
    QVERIFY(renderVectorPicture(drawn) == Raster(QSize(40, 30), Red));
    const QByteArray text =
        svg("<text x='2' y='25' font-family='Liberation Sans' font-size='24'>A&lt;&#233;</text>");
    QVERIFY(!isBlank(renderVectorPicture(text)));
}

void VectorPictureTest::damaged_data() {
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("neither");
    QTest::newRow("cut off") << svg("<rect width='9' height='9'/>").chopped(9);
    QTest::newRow("unclosed") << QByteArray("<svg width='4' height='4'><g></svg>");
    QTest::newRow("other XML") << QByteArray("<html><body/></html>");
    QTest::newRow("binary") << encoded(redPicture(), "png");
    QByteArray laughs = "<!DOCTYPE svg [<!ENTITY a0 'ha'>";
    for (int i = 1; i < 40; ++i)
        laughs += "<!ENTITY a" + QByteArray::number(i) + " '&a" + QByteArray::number(i - 1) + ";&a" +
                  QByteArray::number(i - 1) + ";'>";
    QTest::newRow("entities that multiply") << laughs + "]>" + svg("<text>&a39;</text>");
}

void VectorPictureTest::damaged() {
    QFETCH(QByteArray, content);
    QCOMPARE(errorOf([&] { renderVectorPicture(content); }), error::InvalidPicture);
}

void VectorPictureTest::tooLarge_data() {
    QTest::addColumn<QByteArray>("size");
    QTest::newRow("too many pixels") << QByteArray("width='20000' height='20000'");
    QTest::newRow("side too long") << QByteArray("width='2000000' height='1'");
    QTest::newRow("viewBox") << QByteArray("viewBox='0 0 90000 90000'");
}

void VectorPictureTest::tooLarge() {
    QFETCH(QByteArray, size);
    QCOMPARE(errorOf([&] { renderVectorPicture(svg("", size)); }), error::OutOfMemory);
}

/// Few pixels, but drawing takes a time that grows with the square of the height.
void VectorPictureTest::tooTallForItsElements() {
    const auto tall = [](int height, int elements) {
        return svg(QByteArray("<g/>").repeated(elements),
                   "width='4' height='" + QByteArray::number(height) + "'");
    };
    QCOMPARE(errorOf([&] { renderVectorPicture(tall(1'000'000, 1)); }), error::InvalidPicture);
    QCOMPARE(errorOf([&] { renderVectorPicture(tall(100'000, 100)); }), error::InvalidPicture);
    QVERIFY(isBlank(renderVectorPicture(tall(100'000, 70))));
}

void VectorPictureTest::windowRepaintsWhileTextIsRead() {
    const QByteArray picture = svg(QByteArray("<rect width='5' height='5'/>").repeated(200'000));
    bool repainted = false;
    QTimer::singleShot(0, this, [&] { repainted = true; });
    copied(picture);
    QVERIFY(repainted);
}

OVRANO_TEST(VectorPictureTest)
#include "tst_vectorpicture.moc"
