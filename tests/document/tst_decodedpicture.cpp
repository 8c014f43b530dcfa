#include "document/decodedpicture.h"
#include "document/filetools.h"
#include "support/testprogram.h"

#include <QTimer>
#include <QTransform>

using namespace ovrano;

namespace {

/// More than a tile in both directions, odd.
constexpr QSize Size(300, 521);

Raster decoded(const QImage& image,
               QImageIOHandler::Transformations orientation = QImageIOHandler::TransformationNone) {
    EventYield yield;
    return toRaster(image, orientation, yield);
}

/// The same by the toolkit's own whole-picture functions.
QImage upright(const QImage& image, QImageIOHandler::Transformation orientation) {
    QImage result = image.mirrored(orientation & QImageIOHandler::TransformationMirror,
                                   orientation & QImageIOHandler::TransformationFlip);
    return orientation & QImageIOHandler::TransformationRotate90 ? result.transformed(QTransform().rotate(90))
                                                                 : result;
}

QImage indexed(bool transparent) {
    QImage image(Size, QImage::Format_Indexed8);
    for (int i = 0; i < 256; ++i)
        image.setColor(i, qRgba(i, 255 - i, i / 2, transparent && i % 3 == 0 ? 0 : 255));
    for (int y = 0; y < Size.height(); ++y)
        for (int x = 0; x < Size.width(); ++x)
            image.setPixel(x, y, static_cast<uint>((x * 3 + y) & 255));
    return image;
}

QImage halfTransparent() {
    QImage image(Size, QImage::Format_ARGB32);
    for (int y = 0; y < Size.height(); ++y)
        for (int x = 0; x < Size.width(); ++x)
            image.setPixel(x, y, qRgba(x & 255, y & 255, 77, (x + y) & 255));
    return image;
}

/// What a pixel looks like on white paper.
Colour onWhite(const QColor& colour) {
    const auto channel = [&](float value) {
        return qRound(255 * (value * colour.alphaF() + 1 - colour.alphaF()));
    };
    return rgb(channel(colour.redF()), channel(colour.greenF()), channel(colour.blueF()));
}

int difference(Colour a, Colour b) {
    return qMax(qAbs(redOf(a) - redOf(b)), qMax(qAbs(greenOf(a) - greenOf(b)), qAbs(blueOf(a) - blueOf(b))));
}

} // namespace

class DecodedPictureTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyOrientation_data();
    void everyOrientation();
    void everyFormat_data();
    void everyFormat();
    void opaqueFormatsAreExact_data();
    void opaqueFormatsAreExact();
    void turnedAndTransparent();
    void orientationOfASinglePixelRow();
    void programsFormatIsNotCopied();
    void canvasIsWhite_data();
    void canvasIsWhite();
    void canvasWithoutMemory();
    void windowRepaintsMeanwhile_data();
    void windowRepaintsMeanwhile();
};

void DecodedPictureTest::everyOrientation_data() {
    QTest::addColumn<QImageIOHandler::Transformation>("orientation");
    QTest::newRow("none") << QImageIOHandler::TransformationNone;
    QTest::newRow("mirror") << QImageIOHandler::TransformationMirror;
    QTest::newRow("flip") << QImageIOHandler::TransformationFlip;
    QTest::newRow("180") << QImageIOHandler::TransformationRotate180;
    QTest::newRow("90") << QImageIOHandler::TransformationRotate90;
    QTest::newRow("mirror and 90") << QImageIOHandler::TransformationMirrorAndRotate90;
    QTest::newRow("flip and 90") << QImageIOHandler::TransformationFlipAndRotate90;
    QTest::newRow("270") << QImageIOHandler::TransformationRotate270;
}

void DecodedPictureTest::everyOrientation() {
    QFETCH(QImageIOHandler::Transformation, orientation);
    const QImage stored = patterned(Size).toImage();
    const QImage expected = upright(stored, orientation);
    const Raster picture = decoded(stored, orientation);
    QCOMPARE(picture.size(), expected.size());
    QVERIFY(picture == Raster::fromImage(expected));
}

void DecodedPictureTest::everyFormat_data() {
    QTest::addColumn<QImage>("image");
    const QImage colours = patterned(Size).toImage();
    QTest::newRow("indexed") << indexed(false);
    QTest::newRow("indexed, transparent") << indexed(true);
    QTest::newRow("grey") << colours.convertToFormat(QImage::Format_Grayscale8);
    QTest::newRow("deep grey") << colours.convertToFormat(QImage::Format_Grayscale16);
    QTest::newRow("black and white") << colours.convertToFormat(QImage::Format_Mono);
    QTest::newRow("black and white, other bits first") << colours.convertToFormat(QImage::Format_MonoLSB);
    QTest::newRow("24 bits") << colours.convertToFormat(QImage::Format_RGB888);
    QTest::newRow("32 bits") << colours;
    QTest::newRow("half transparent") << halfTransparent();
    QTest::newRow("deep") << halfTransparent().convertToFormat(QImage::Format_RGBA64);
    QTest::newRow("premultiplied") << halfTransparent().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

void DecodedPictureTest::everyFormat() {
    QFETCH(QImage, image);
    const Raster picture = decoded(image);
    QCOMPARE(picture.size(), Size);
    int worst = 0;
    for (int y = 0; y < Size.height(); ++y)
        for (int x = 0; x < Size.width(); ++x)
            worst = qMax(worst, difference(picture.pixel(x, y), onWhite(image.pixelColor(x, y))));
    QVERIFY2(worst <= 1, qPrintable(QString::number(worst)));
}

void DecodedPictureTest::opaqueFormatsAreExact_data() {
    QTest::addColumn<QImage::Format>("format");
    QTest::newRow("24 bits") << QImage::Format_RGB888;
    QTest::newRow("with alpha") << QImage::Format_ARGB32;
    QTest::newRow("deep") << QImage::Format_RGBA64;
    QTest::newRow("deep without alpha") << QImage::Format_RGBX64;
}

void DecodedPictureTest::opaqueFormatsAreExact() {
    QFETCH(QImage::Format, format);
    QVERIFY(decoded(patterned(Size).toImage().convertToFormat(format)) == patterned(Size));
}

void DecodedPictureTest::turnedAndTransparent() {
    const QImage stored = indexed(true);
    const Raster flat = decoded(stored);
    const Raster turned = decoded(stored, QImageIOHandler::TransformationRotate270);
    QVERIFY(turned == Raster::fromImage(upright(flat.toImage(), QImageIOHandler::TransformationRotate270)));
}

void DecodedPictureTest::orientationOfASinglePixelRow() {
    const QImage row = patterned(QSize(257, 1)).toImage();
    for (const auto orientation :
         {QImageIOHandler::TransformationRotate90, QImageIOHandler::TransformationRotate270,
          QImageIOHandler::TransformationMirror})
        QVERIFY(decoded(row, orientation) == Raster::fromImage(upright(row, orientation)));
}

void DecodedPictureTest::programsFormatIsNotCopied() {
    const QImage image = patterned(Size).toImage();
    const Raster first = decoded(image), second = decoded(image);
    QVERIFY(first.sharesTile(second, 0, 0));
}

void DecodedPictureTest::canvasIsWhite_data() {
    QTest::addColumn<QImage::Format>("format");
    QTest::addColumn<bool>("palette");
    QTest::newRow("32 bits") << QImage::Format_RGB32 << false;
    QTest::newRow("with alpha") << QImage::Format_ARGB32 << false;
    QTest::newRow("24 bits") << QImage::Format_RGB888 << false;
    QTest::newRow("16 bits") << QImage::Format_RGB16 << false;
    QTest::newRow("deep") << QImage::Format_RGBA64 << false;
    QTest::newRow("deep grey") << QImage::Format_Grayscale16 << false;
    QTest::newRow("indexed") << QImage::Format_Indexed8 << true;
    QTest::newRow("black and white") << QImage::Format_Mono << true;
}

void DecodedPictureTest::canvasIsWhite() {
    QFETCH(QImage::Format, format);
    QFETCH(bool, palette);
    constexpr QSize Canvas(1001, 1203); // more than one band
    EventYield yield;
    const QImage canvas = newCanvas(Canvas, format, yield);
    QCOMPARE(canvas.size(), Canvas);
    QCOMPARE(canvas.format(), format);
    bool clean = true;
    for (int y = 0; y < Canvas.height(); ++y)
        for (int x = 0; x < Canvas.width(); ++x)
            clean = clean && (palette ? canvas.pixelIndex(x, y) == 0 : (canvas.pixel(x, y) == 0xFFFFFFFFU));
    QVERIFY(clean);
}

void DecodedPictureTest::canvasWithoutMemory() {
    EventYield yield;
    QCOMPARE(errorOf([&] { newCanvas(QSize(1 << 20, 1 << 20), QImage::Format_RGB32, yield); }),
             error::OutOfMemory);
}

void DecodedPictureTest::windowRepaintsMeanwhile_data() {
    QTest::addColumn<QImage::Format>("format");
    QTest::addColumn<QImageIOHandler::Transformation>("orientation");
    QTest::newRow("other format") << QImage::Format_RGBA64 << QImageIOHandler::TransformationNone;
    QTest::newRow("turned") << QImage::Format_RGB32 << QImageIOHandler::TransformationRotate90;
}

void DecodedPictureTest::windowRepaintsMeanwhile() {
    QFETCH(QImage::Format, format);
    QFETCH(QImageIOHandler::Transformation, orientation);
    QImage image(5000, 12'001, format); // more than a few frames of work on a fast machine, too
    image.fill(Qt::darkCyan);
    int turns = 0;
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&turns] { ++turns; });
    timer.start(0);
    decoded(image, orientation);
    QVERIFY2(turns >= 2, qPrintable(QString::number(turns)));
}

OVRANO_TEST(DecodedPictureTest)
#include "tst_decodedpicture.moc"
