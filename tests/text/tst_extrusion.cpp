#include "platform/runtimeerror.h"
#include "platform/screen.h"
#include "support/testprogram.h"
#include "text/extrusion.h"

#include <QTest>

#include <algorithm>

using namespace ovrano;

Q_DECLARE_METATYPE(ovrano::Direction)

namespace {

constexpr Direction AllDirections[] = {Direction::UpperLeft, Direction::UpperRight, Direction::LowerLeft,
                                       Direction::LowerRight};

std::vector<TextLayer> layersOfDepth(Colour colour, std::int16_t pixels, Direction direction) {
    return extrusionLayers(colour, extrusionDepth(pixels), direction);
}

/// A surface that prints in a slanted font, whose letters overlap each other's cells.
void prepare(Surface& surface, QSize size) {
    surface.setInnerSize(size);
    surface.setFont(textFont(QStringLiteral("Arial"), 24, true, true));
    surface.setScaleMode(ScaleMode::Twips);
}

/// The pixels of a text's ink relative to its cell's corner.
QList<QPoint> inkOf(const QString& text, QSize size) {
    constexpr QPoint Overhang(20, 20);
    Surface surface(QStringLiteral("ink"));
    prepare(surface, size + QSize(40, 40));
    surface.setScaleMode(ScaleMode::Pixels);
    surface.setCurrentX(Overhang.x());
    surface.setCurrentY(Overhang.y());
    surface.Print(text);
    QList<QPoint> ink;
    for (int y = 0; y < surface.Image().height(); ++y)
        for (int x = 0; x < surface.Image().width(); ++x)
            if (surface.Image().pixel(x, y) == Black)
                ink.append(QPoint(x, y) - Overhang);
    return ink;
}

/// The extrusion in the slow obvious way: all layers, each pixel of ink set by itself.
Raster printedPixelByPixel(const std::vector<TextLayer>& layers, const QString& text, QSize size) {
    const QList<QPoint> ink = inkOf(text, size);
    Raster picture(size, White);
    for (const TextLayer& layer : layers) {
        const QPoint corner(layer.x / TwipsPerPixelX, layer.y / TwipsPerPixelY);
        const Colour colour = layer.colour > 0xFFEEFF ? 0xFFEEFF : layer.colour;
        for (const QPoint& pixel : ink)
            picture.setPixel(pixel.x() + corner.x(), pixel.y() + corner.y(), colour);
    }
    return picture;
}

Raster printedByLayers(const std::vector<TextLayer>& layers, const QString& text, QSize size) {
    Surface surface(QStringLiteral("picTemp"));
    prepare(surface, size);
    printExtrusion(surface, layers, text);
    return surface.Image();
}

} // namespace

class ExtrusionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void depthInTwips();
    void depthBeyond16BitsIsAnError();
    void whiteIsClampedButForTheFarthestLayer();
    void blackAtDepthOne();
    void onlyTheBrightChannelsAreClamped();
    void course_data();
    void course();
    void lowerLeftAtDepthOneEndsAtTheUpperLeft();
    void noLayerIsDrawnBrighterThanTheCap_data();
    void noLayerIsDrawnBrighterThanTheCap();
    void visibleLayersAreTheLastOfEachPixel();
    void visibleLayersKeepTheirOrder();
    void sameAsPixelByPixel_data();
    void sameAsPixelByPixel();
};

void ExtrusionTest::depthInTwips() {
    QCOMPARE(extrusionDepth(1), std::int16_t(15));
    QCOMPARE(extrusionDepth(4), std::int16_t(60));
    QCOMPARE(extrusionDepth(9), std::int16_t(135));
}

void ExtrusionTest::depthBeyond16BitsIsAnError() {
    QVERIFY_THROWS_EXCEPTION(RuntimeError, extrusionDepth(3000));
    QVERIFY_THROWS_EXCEPTION(RuntimeError, extrusionLayers(Black, 32766, Direction::LowerLeft));
}

void ExtrusionTest::whiteIsClampedButForTheFarthestLayer() {
    const auto layers = layersOfDepth(White, 4, Direction::UpperLeft);

    QCOMPARE(layers.size(), std::size_t(61));
    QCOMPARE(layers.at(0).colour, White);
    QCOMPARE(layers.at(1).colour, rgb(195, 195, 195));
    QCOMPARE(layers.at(2).colour, rgb(196, 196, 196));
    QCOMPARE(layers.at(60).colour, rgb(254, 254, 254));
}

void ExtrusionTest::blackAtDepthOne() {
    const auto layers = layersOfDepth(Black, 1, Direction::UpperLeft);

    QCOMPARE(layers.size(), std::size_t(16));
    QCOMPARE(layers.at(0).colour, Black);
    QCOMPARE(layers.at(1).colour, Black);
    QCOMPARE(layers.at(15).colour, rgb(14, 14, 14));
}

void ExtrusionTest::onlyTheBrightChannelsAreClamped() {
    const auto layers = layersOfDepth(rgb(250, 100, 195), 4, Direction::UpperLeft);

    QCOMPARE(layers.at(0).colour, rgb(250, 100, 195));
    QCOMPARE(layers.at(1).colour, rgb(195, 100, 195));
    QCOMPARE(layers.at(60).colour, rgb(254, 159, 254));
}

void ExtrusionTest::course_data() {
    QTest::addColumn<Direction>("direction");
    QTest::addColumn<QPoint>("farthest");
    QTest::addColumn<QPoint>("second");
    QTest::addColumn<QPoint>("front");

    QTest::newRow("UpperLeft") << Direction::UpperLeft << QPoint(2, 2) << QPoint(3, 3) << QPoint(62, 62);
    QTest::newRow("UpperRight") << Direction::UpperRight << QPoint(62, 2) << QPoint(61, 3) << QPoint(2, 62);
    QTest::newRow("LowerLeft") << Direction::LowerLeft << QPoint(62, 62) << QPoint(61, 61) << QPoint(2, 2);
    QTest::newRow("LowerRight") << Direction::LowerRight << QPoint(2, 62) << QPoint(3, 61) << QPoint(62, 2);
}

void ExtrusionTest::course() {
    QFETCH(Direction, direction);
    QFETCH(QPoint, farthest);
    QFETCH(QPoint, second);
    QFETCH(QPoint, front);
    const auto layers = layersOfDepth(Black, 4, direction);
    const auto corner = [&](std::size_t layer) { return QPoint(layers.at(layer).x, layers.at(layer).y); };

    QCOMPARE(corner(0), farthest);
    QCOMPARE(corner(1), second);
    QCOMPARE(corner(60), front);
}

void ExtrusionTest::lowerLeftAtDepthOneEndsAtTheUpperLeft() {
    const auto layers = layersOfDepth(Black, 1, Direction::LowerLeft);

    for (std::size_t i = 0; i < 16; ++i) {
        QCOMPARE(layers.at(i).x, std::int16_t(17 - int(i)));
        QCOMPARE(layers.at(i).y, std::int16_t(17 - int(i)));
    }
}

void ExtrusionTest::noLayerIsDrawnBrighterThanTheCap_data() {
    QTest::addColumn<int>("asked");
    QTest::addColumn<int>("drawn");

    QTest::newRow("white") << White << 0xFFEEFF;
    QTest::newRow("one above") << 0xFFEF00 << 0xFFEEFF;
    QTest::newRow("the cap itself") << 0xFFEEFF << 0xFFEEFF;
    QTest::newRow("just below") << 0xFFEEFE << 0xFFEEFE;
    QTest::newRow("the brightest grey") << rgb(254, 254, 254) << rgb(254, 254, 254);
}

void ExtrusionTest::noLayerIsDrawnBrighterThanTheCap() {
    QFETCH(int, asked);
    QFETCH(int, drawn);
    Surface surface(QStringLiteral("picTemp"));
    prepare(surface, QSize(60, 60));

    PrintTextLayer(surface, 30, 30, asked, QStringLiteral("I"));

    QList<Colour> seen;
    for (int y = 0; y < 60; ++y)
        for (int x = 0; x < 60; ++x)
            if (const Colour colour = surface.Image().pixel(x, y); !seen.contains(colour))
                seen.append(colour);
    std::sort(seen.begin(), seen.end());
    QCOMPARE(seen, (QList<Colour>{drawn, White}));
}

void ExtrusionTest::visibleLayersAreTheLastOfEachPixel() {
    const std::vector<TextLayer> layers = {{14, 2, 1}, {15, 2, 2}, {29, 14, 3}, {14, 0, 4}, {30, 2, 5}};
    const std::vector<TextLayer> expected = {{29, 14, 3}, {14, 0, 4}, {30, 2, 5}};

    QVERIFY(visibleLayers(layers) == expected);
}

void ExtrusionTest::visibleLayersKeepTheirOrder() {
    const auto visible = visibleLayers(layersOfDepth(Black, 1, Direction::LowerRight));

    // Columns 0, 0, 1 and rows 1, 0, 0 of the twips (2, 17) to (17, 2).
    const std::vector<TextLayer> expected = {
        {4, 15, rgb(1, 1, 1)}, {14, 5, rgb(11, 11, 11)}, {17, 2, rgb(14, 14, 14)}};
    QVERIFY(visible == expected);
}

void ExtrusionTest::sameAsPixelByPixel_data() {
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("colour");

    const QSize room(120, 70);
    const QSize tight(38, 21);
    QTest::newRow("white") << room << White;
    QTest::newRow("black") << room << Black;
    QTest::newRow("above the cap") << room << 0xFFEF00;
    QTest::newRow("mid") << room << rgb(90, 140, 40);
    QTest::newRow("white, clipped") << tight << White;
    QTest::newRow("mid, clipped") << tight << rgb(90, 140, 40);
}

void ExtrusionTest::sameAsPixelByPixel() {
    QFETCH(QSize, size);
    QFETCH(int, colour);
    const QString text = QStringLiteral("Ága");

    for (std::int16_t pixels = 1; pixels <= 9; ++pixels)
        for (const Direction direction : AllDirections) {
            const auto layers = layersOfDepth(colour, pixels, direction);
            QVERIFY2(printedByLayers(layers, text, size) == printedPixelByPixel(layers, text, size),
                     qPrintable(QStringLiteral("depth %1, direction %2").arg(pixels).arg(int(direction))));
        }
}

OVRANO_TEST(ExtrusionTest)
#include "tst_extrusion.moc"
