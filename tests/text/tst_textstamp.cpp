#include "platform/numbers.h"
#include "platform/textmask.h"
#include "support/processortime.h"
#include "support/testprogram.h"
#include "text/onecolourbench.h"
#include "text/onecolourpanel.h"
#include "text/rotation.h"

#include <QTest>

#include <cmath>

using namespace ovrano;

class TextStampTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void stampIsTheExtrudedText_data();
    void stampIsTheExtrudedText();
    void colourIsReadFromTheCaption();
    void stampIsTenPixelsLargerThanTheText();
    void depthNineIsClippedByTheMargin();
    void textWiderThanThePictureIsClipped();
    void textHigherThanThePictureIsClipped();

    void angleZeroIsCentred();
    void regionIsTheTurnedStamp_data();
    void regionIsTheTurnedStamp();
    void maskIsBlackUnderTheStamp();

    void noPalePixelsOnBlack_data();
    void noPalePixelsOnBlack();
    void blankCharactersGiveAnEmptyStamp();
    void charactersOutsideTheFont();
    void veryLongText();
};

void TextStampTest::stampIsTheExtrudedText_data() {
    QTest::addColumn<int>("colour");
    QTest::addColumn<int>("depth");
    QTest::addColumn<int>("direction");

    int row = 0;
    for (const int colour : {White, Black, rgb(0, 239, 255), rgb(90, 140, 40)})
        for (int direction = 1; direction <= 4; ++direction) {
            const int depth = row++ % 9 + 1;
            QTest::addRow("colour %06X, depth %d, direction %d", static_cast<unsigned>(colour), depth,
                          direction)
                << colour << depth << direction;
        }
}

void TextStampTest::stampIsTheExtrudedText() {
    QFETCH(int, colour);
    QFETCH(int, depth);
    QFETCH(int, direction);
    OneColourBench bench;
    bench.style.DispDialogColor(colour);
    bench.style.imgBold_Click();
    bench.setDepth(depth);
    bench.setDirection(static_cast<Direction>(direction));

    bench.proceed();

    const Surface& picTemp = bench.work.picTemp;
    const auto layers = layersOf(colour, static_cast<std::int16_t>(depth), static_cast<Direction>(direction));
    QCOMPARE(picTemp.Font(), textFont(QStringLiteral("Arial"), 24, true, false));
    QVERIFY(picTemp.Image() == stampOf(bench.font(), bench.text(), layers, picTemp.innerSize()));
    QVERIFY(countOf(picTemp.Image(), std::min(layers.back().colour, BrightestLayer)) > 20);
    QCOMPARE(picTemp.ScaleMode(), ScaleMode::Pixels);
    QCOMPARE(bench.work.picSnap.ScaleMode(), ScaleMode::Pixels);
}

void TextStampTest::colourIsReadFromTheCaption() {
    OneColourBench bench;
    bench.style.DispDialogColor(rgb(10, 20, 255)); // "...Hex: #A14FF", whose last six give 0, 20, 255
    bench.setDepth(1);

    bench.proceed();

    const auto layers = layersOf(rgb(0, 20, 255), 1, Direction::UpperLeft);
    const Raster& stamp = bench.work.picTemp.Image();
    QVERIFY(stamp == stampOf(bench.font(), bench.text(), layers, stamp.size()));
}

void TextStampTest::stampIsTenPixelsLargerThanTheText() {
    for (const int depth : {1, 9}) {
        OneColourBench bench;
        bench.setDepth(depth);
        bench.proceed();
        QCOMPARE(bench.work.picTemp.innerSize(), textExtent(bench.font(), bench.text()) + QSize(10, 10));
    }
}

void TextStampTest::depthNineIsClippedByTheMargin() {
    OneColourBench bench;
    // A slanted letter reaches beyond its cell, so that the front layer needs more than the margin.
    bench.style.txbWriteText->setText(QStringLiteral("f"));
    bench.style.txtFontSize->setEditText(QStringLiteral("72"));
    bench.style.imgItalic_Click();
    bench.setDepth(9);

    bench.proceed();

    const Raster& stamp = bench.work.picTemp.Image();
    const auto layers = layersOf(rgb(200, 40, 0), 9, Direction::UpperLeft);
    const Raster whole = stampOf(bench.font(), bench.text(), layers, stamp.size() + QSize(80, 80));
    QVERIFY(countOf(whole, White) - (whole.width() * whole.height()) <
            countOf(stamp, White) - stamp.width() * stamp.height());
    QVERIFY(stamp == whole.resized(stamp.size(), White));
}

void TextStampTest::textWiderThanThePictureIsClipped() {
    OneColourBench bench(QSize(90, 200));
    bench.style.txbWriteText->setText(QStringLiteral("Un texte trop large"));

    bench.proceed();

    const Raster& stamp = bench.work.picTemp.Image();
    QCOMPARE(stamp.width(), 90);
    QCOMPARE(stamp.height(), textExtent(bench.font(), bench.text()).height() + 10);
    const auto layers = layersOf(rgb(200, 40, 0), 4, Direction::UpperLeft);
    QVERIFY(stamp ==
            stampOf(bench.font(), bench.text(), layers, QSize(800, 200)).resized(stamp.size(), White));
    bool inkAtTheEdge = false;
    for (int y = 0; y < stamp.height(); ++y)
        inkAtTheEdge |= stamp.pixel(89, y) != White;
    QVERIFY(inkAtTheEdge);
}

void TextStampTest::textHigherThanThePictureIsClipped() {
    OneColourBench bench(QSize(300, 21));

    bench.proceed();

    QCOMPARE(bench.work.picTemp.Height(), 21);
    QCOMPARE(bench.work.picTemp.Width(), textExtent(bench.font(), bench.text()).width() + 10);
}

void TextStampTest::angleZeroIsCentred() {
    OneColourBench bench;

    bench.proceed();

    const Raster& stamp = bench.work.picTemp.Image();
    const Raster& region = bench.work.picRegion.Image();
    const int side = static_cast<int>(std::lround(std::hypot(stamp.width(), stamp.height()) + 2));
    QCOMPARE(region.size(), QSize(side, side));
    const int centre = toInteger32(side / 2.0);
    Raster expected(region.size(), White);
    expected.copyFrom(stamp, stamp.rect(), QPoint(centre - stamp.width() / 2, centre - stamp.height() / 2));
    QVERIFY(region == expected);
}

void TextStampTest::regionIsTheTurnedStamp_data() {
    QTest::addColumn<int>("angle");
    for (const int angle : {90, -37, 200, 360})
        QTest::addRow("%d", angle) << angle;
}

void TextStampTest::regionIsTheTurnedStamp() {
    QFETCH(int, angle);
    OneColourBench bench;
    bench.angle.HsbRotateAngle->setValue(angle);

    bench.proceed();

    Surface expected(QStringLiteral("expected"), bench.work.picRegion.innerSize());
    const std::int32_t centre = toInteger32(expected.ScaleWidth() / 2);
    RotatePicture(bench.work.picTemp, expected, angle, true, White, false, centre, centre);
    QVERIFY(bench.work.picRegion.Image() == expected.Image());
    QVERIFY(countOf(expected.Image(), White) < expected.innerSize().width() * expected.innerSize().height());
}

void TextStampTest::maskIsBlackUnderTheStamp() {
    OneColourBench bench;
    bench.angle.HsbRotateAngle->setValue(33);

    bench.proceed();

    QVERIFY(bench.work.picMask.Image() == maskOf(bench.work.picRegion.Image()));
    QCOMPARE(bench.work.picMask.Width(), bench.work.picRegion.Width());
}

void TextStampTest::noPalePixelsOnBlack_data() {
    QTest::addColumn<int>("angle");
    QTest::addColumn<QString>("font");
    for (const int angle : {0, 17, 90, -135})
        for (const char* font : {"Arial", "Liberation Serif"})
            QTest::addRow("%s, %d", font, angle) << angle << QString::fromLatin1(font);
}

void TextStampTest::noPalePixelsOnBlack() {
    QFETCH(int, angle);
    QFETCH(QString, font);
    OneColourBench bench(QSize(320, 240), Black);
    bench.angle.HsbRotateAngle->setValue(angle);
    bench.style.cboFontName->setEditText(font);
    bench.style.txbWriteText->setText(QStringLiteral("Ag&%é"));

    bench.proceed();

    QSet<Colour> allowed = coloursOf(layersOf(rgb(200, 40, 0), 4, Direction::UpperLeft));
    allowed.insert(Black);
    const QSet<Colour> seen = coloursOf(bench.work.picDisp.Picture());
    QVERIFY(seen.size() > 2);
    QVERIFY2(allowed.contains(seen), qPrintable(QString::number((seen - allowed).size())));
}

void TextStampTest::blankCharactersGiveAnEmptyStamp() {
    OneColourBench bench;
    bench.style.txbWriteText->setText(QString(QChar(0x200B)));
    const Raster before = bench.work.picDisp.Picture();

    bench.proceed();

    QVERIFY(bench.block.HasSelection);
    QVERIFY(bench.work.picDisp.Picture() == before);
}

void TextStampTest::charactersOutsideTheFont() {
    OneColourBench bench(QSize(320, 240), Black);
    bench.style.txbWriteText->setText(QStringLiteral("日本 \U0001F600 \u0001\uFFFF שלום x\u0301"));

    bench.proceed();

    QSet<Colour> allowed = coloursOf(layersOf(rgb(200, 40, 0), 4, Direction::UpperLeft));
    allowed.insert(Black);
    const QSet<Colour> seen = coloursOf(bench.work.picDisp.Picture());
    QVERIFY(seen.size() > 2);
    QVERIFY(allowed.contains(seen));
}

void TextStampTest::veryLongText() {
    OneColourBench bench(QSize(640, 480));
    bench.style.txbWriteText->setText(QStringLiteral("Longueur ").repeated(3334).left(30000));
    bench.style.txtFontSize->setEditText(QStringLiteral("99"));
    const testing::ProcessorTime time;

    bench.proceed();

    QVERIFY2(time.milliseconds() < 5000, qPrintable(QString::number(time.milliseconds())));
    QCOMPARE(bench.work.picTemp.Width(), 640);
    QVERIFY(coloursOf(bench.work.picTemp.Image()).size() > 2);
}

OVRANO_TEST(TextStampTest)
#include "tst_textstamp.moc"
