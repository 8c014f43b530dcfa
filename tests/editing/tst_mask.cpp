#include "editing/mask.h"
#include "support/grid.h"
#include "support/testprogram.h"

#include <QTest>
#include <QThread>
#include <QTimer>

#include <random>

using namespace ovrano;

namespace {

constexpr int TileSide = Raster::TileSide;

Surface* surface(const Raster& picture, QObject* parent) {
    auto* made = new Surface(QStringLiteral("surface"), picture.size(), parent);
    made->setPicture(picture);
    return made;
}

/// Pixels of a few colours, white and black among them, so that every rule meets every case.
Raster speckled(QSize size, unsigned seed) {
    constexpr std::array Colours = {White, Black, rgb(255, 0, 0), rgb(254, 255, 255), rgb(18, 52, 86)};
    std::minstd_rand random(seed + 1);
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, toPixel(Colours.at(random() % Colours.size())));
    return Raster::fromImage(image);
}

/// A rule applied pixel by pixel: what the fast scans must agree with.
template<typename Rule>
Raster eachPixel(Raster raster, Rule rule) {
    for (int y = 0; y < raster.height(); ++y)
        for (int x = 0; x < raster.width(); ++x)
            raster.setPixel(x, y, rule(raster.pixel(x, y)));
    return raster;
}

/// One raster operation of a source's part from its corner on to a place of the destination, pixel by pixel.
/// Pixels that either side lacks are left out.
template<typename Operation>
void rasterOperation(Raster& destination, const Raster& source, QPoint to, QSize size, Operation operation) {
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const Colour from = source.pixel(x, y);
            const Colour there = destination.pixel(x + to.x(), y + to.y());
            if (from != InvalidColour && there != InvalidColour)
                destination.setPixel(x + to.x(), y + to.y(), operation(from, there) & White);
        }
    }
}

Raster composedSlowly(Raster picture, const Raster& block, const Raster& mask, QPoint to, QSize size) {
    rasterOperation(picture, mask, to, size, [](Colour from, Colour there) { return ~from | there; });
    rasterOperation(picture, block, to, size, [](Colour from, Colour there) { return from & there; });
    return picture;
}

} // namespace

class TestMask : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void whitensEveryPixelOfTheColour();
    void blackensEverythingButWhite();
    void masksInAnyColour();
    void agreesWithTheObviousScan_data();
    void agreesWithTheObviousScan();
    void ignoresTheUnusedByteOfAPixel();
    void drawsWithoutCommitting();
    void anEmptySurfaceIsNoProblem();
    void tilesWithoutTheColourStayShared();
    void announcesChangedTilesOnly();
    void letsTheWindowRepaintMeanwhile();
    void cornerColourAndWhiteLetTheBackgroundThrough();
    void blackAndWhiteMaskAtTheEdges();
    void agreesWithTheTwoRasterOperations_data();
    void agreesWithTheTwoRasterOperations();
    void composingTouchesItsOwnTilesOnly();
    void composingBesideThePictureDoesNothing();
};

void TestMask::whitensEveryPixelOfTheColour() {
    auto* pic = surface(grid({"rr.#", "rgbr", "yrrr"}), this);
    WhiteNonPaintArea(*pic, rgb(255, 0, 0));
    QCOMPARE(rowsOf(pic->Image()), QStringList({"...#", ".gb.", "y..."}));
}

void TestMask::blackensEverythingButWhite() {
    auto* pic = surface(grid({"rr.#", ".gb.", "y..."}), this);
    CreateMask(*pic, Black);
    QCOMPARE(rowsOf(pic->Image()), QStringList({"##.#", ".##.", "#..."}));
}

void TestMask::masksInAnyColour() {
    auto* pic = surface(grid({"r.#"}), this);
    CreateMask(*pic, rgb(0, 0, 255));
    QCOMPARE(rowsOf(pic->Image()), QStringList({"b.b"}));
}

void TestMask::agreesWithTheObviousScan_data() {
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("colour");
    const std::initializer_list<QSize> sizes = {{1, 1},
                                                {7, 3},
                                                {1, TileSide + 1},
                                                {TileSide - 1, 2},
                                                {TileSide, TileSide},
                                                {TileSide + 1, 5},
                                                {3 * TileSide, 1},
                                                {2 * TileSide + 3, TileSide + 9},
                                                {TileSide, 2 * TileSide},
                                                {300, 301}};
    for (const QSize size : sizes)
        for (const Colour colour : {Black, White, rgb(18, 52, 86), rgb(1, 2, 3)})
            QTest::addRow("%dx%d %06x", size.width(), size.height(), static_cast<unsigned>(colour))
                << size << colour;
}

void TestMask::agreesWithTheObviousScan() {
    QFETCH(QSize, size);
    QFETCH(int, colour);
    const Raster picture = speckled(size, static_cast<unsigned>(size.width()));
    auto* whitened = surface(picture, this);
    WhiteNonPaintArea(*whitened, colour);
    QCOMPARE(whitened->Image(), eachPixel(picture, [=](Colour c) { return c == colour ? White : c; }));
    auto* mask = surface(picture, this);
    CreateMask(*mask, colour);
    QCOMPARE(mask->Image(), eachPixel(picture, [=](Colour c) { return c != White ? colour : c; }));
}

void TestMask::ignoresTheUnusedByteOfAPixel() {
    QImage image(3, 1, QImage::Format_RGB32);
    auto* row = reinterpret_cast<QRgb*>(image.scanLine(0));
    row[0] = 0x00FFFFFFU; // white
    row[1] = 0x7F0000FFU; // blue
    row[2] = 0x000000FFU;
    auto* mask = surface(Raster::fromImage(image), this);
    CreateMask(*mask, Black);
    QCOMPARE(rowsOf(mask->Image()), QStringList({".##"}));
    auto* whitened = surface(Raster::fromImage(image), this);
    WhiteNonPaintArea(*whitened, rgb(0, 0, 255));
    QCOMPARE(rowsOf(whitened->Image()), QStringList({"..."}));
}

void TestMask::drawsWithoutCommitting() {
    auto* pic = surface(grid({"r#."}), this);
    CreateMask(*pic, Black);
    WhiteNonPaintArea(*pic, Black);
    QCOMPARE(rowsOf(pic->Image()), QStringList({"..."}));
    QCOMPARE(rowsOf(pic->Picture()), QStringList({"r#."}));
    pic->Cls();
    QCOMPARE(rowsOf(pic->Image()), QStringList({"r#."}));
}

void TestMask::anEmptySurfaceIsNoProblem() {
    Surface pic(QStringLiteral("pic"));
    WhiteNonPaintArea(pic, Black);
    CreateMask(pic, Black);
    QVERIFY(pic.Image().isEmpty());
}

void TestMask::tilesWithoutTheColourStayShared() {
    Raster picture(QSize(3 * TileSide, TileSide), White);
    picture.setPixel(TileSide + 7, 3, Black);
    auto* pic = surface(picture, this);
    CreateMask(*pic, rgb(0, 0, 255));
    QVERIFY(pic->Image().sharesTile(picture, 0, 0));
    QVERIFY(!pic->Image().sharesTile(picture, TileSide, 0));
    QVERIFY(pic->Image().sharesTile(picture, 2 * TileSide, 0));
    QCOMPARE(picture.pixel(TileSide + 7, 3), Black);
}

void TestMask::announcesChangedTilesOnly() {
    Raster picture(QSize(3 * TileSide, 2 * TileSide), White);
    picture.setPixel(TileSide, TileSide, Black);
    auto* pic = surface(picture, this);
    QRegion announced;
    connect(pic, &Surface::changed, this, [&](const QRegion& area) { announced += area; });
    WhiteNonPaintArea(*pic, Black);
    QCOMPARE(announced.boundingRect(), QRect(TileSide, TileSide, TileSide, TileSide));
}

void TestMask::letsTheWindowRepaintMeanwhile() {
    constexpr int Tiles = 100;
    auto* pic = surface(Raster(QSize(Tiles * TileSide, 1), Black), this);
    bool repainted = false;
    bool inTheMidst = false;
    // The tiles take long enough for a frame to become due before the end.
    connect(pic, &Surface::changed, this, [&] { QThread::msleep(3); });
    QTimer::singleShot(0, this, [&] {
        repainted = true;
        inTheMidst =
            pic->Image().pixel(0, 0) == White && pic->Image().pixel(Tiles * TileSide - 1, 0) == Black;
    });
    WhiteNonPaintArea(*pic, Black);
    QVERIFY(repainted);
    QVERIFY(inTheMidst);
    QCOMPARE(pic->Image().pixel(Tiles * TileSide - 1, 0), White);
}

void TestMask::cornerColourAndWhiteLetTheBackgroundThrough() {
    auto* block = surface(grid({"rr.r", "rg#r", "r.br"}), this);
    WhiteNonPaintArea(*block, block->Point(0, 0));
    auto* mask = surface(block->Image(), this);
    CreateMask(*mask, Black);
    auto* picture = surface(grid({"yyyyyy", "yyyyyy", "yyyyyy", "yyyyyy"}), this);
    composeMasked(*picture, *block, *mask, QPoint(1, 0), QSize(4, 3));
    QCOMPARE(rowsOf(picture->Image()), QStringList({"yyyyyy", "yyg#yy", "yyybyy", "yyyyyy"}));
}

void TestMask::blackAndWhiteMaskAtTheEdges() {
    auto* block = surface(grid({"gb", "#r"}), this);
    auto* mask = surface(grid({"##", "##"}), this);
    auto* picture = surface(grid({"yyy", "yyy", "yyy"}), this);
    composeMasked(*picture, *block, *mask, QPoint(-1, -1), QSize(3, 3));
    composeMasked(*picture, *block, *mask, QPoint(2, 2), QSize(3, 3));
    QCOMPARE(rowsOf(picture->Image()), QStringList({"ryy", "yyy", "yyg"}));
}

void TestMask::agreesWithTheTwoRasterOperations_data() {
    QTest::addColumn<QSize>("picture");
    QTest::addColumn<QSize>("block");
    QTest::addColumn<QSize>("mask");
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<QSize>("size");
    const QSize large(2 * TileSide + 5, TileSide + 31);
    QTest::newRow("inside") << QSize(50, 40) << QSize(11, 7) << QSize(11, 7) << QPoint(3, 5) << QSize(11, 7);
    QTest::newRow("one wider") << QSize(50, 40) << QSize(11, 7) << QSize(11, 7) << QPoint(3, 5)
                               << QSize(12, 8);
    QTest::newRow("part only") << QSize(50, 40) << QSize(11, 7) << QSize(11, 7) << QPoint(3, 5)
                               << QSize(4, 3);
    QTest::newRow("beyond upper left")
        << QSize(50, 40) << QSize(30, 20) << QSize(30, 20) << QPoint(-24, -16) << QSize(31, 21);
    QTest::newRow("beyond lower right")
        << QSize(50, 40) << QSize(30, 20) << QSize(30, 20) << QPoint(37, 33) << QSize(31, 21);
    QTest::newRow("larger than the picture")
        << QSize(20, 10) << QSize(61, 33) << QSize(61, 33) << QPoint(-9, -4) << QSize(61, 33);
    QTest::newRow("smaller mask") << QSize(50, 40) << QSize(21, 17) << QSize(9, 12) << QPoint(2, 3)
                                  << QSize(30, 30);
    QTest::newRow("smaller block") << QSize(50, 40) << QSize(9, 12) << QSize(21, 17) << QPoint(2, 3)
                                   << QSize(30, 30);
    QTest::newRow("crossed sizes") << QSize(50, 40) << QSize(25, 5) << QSize(7, 31) << QPoint(-3, -2)
                                   << QSize(26, 32);
    QTest::newRow("no mask") << QSize(50, 40) << QSize(9, 12) << QSize(0, 0) << QPoint(2, 3) << QSize(9, 12);
    QTest::newRow("no block") << QSize(50, 40) << QSize(0, 0) << QSize(9, 12) << QPoint(2, 3) << QSize(9, 12);
    QTest::newRow("tiles in step") << large << QSize(TileSide + 3, TileSide) << QSize(TileSide + 3, TileSide)
                                   << QPoint(TileSide, 0) << QSize(TileSide + 3, TileSide);
    QTest::newRow("tiles out of step")
        << large << QSize(TileSide + 9, TileSide + 2) << QSize(TileSide + 9, TileSide + 2) << QPoint(101, 17)
        << QSize(TileSide + 10, TileSide + 3);
    QTest::newRow("tiles from before the corner")
        << large << QSize(2 * TileSide + 1, TileSide + 1) << QSize(2 * TileSide + 1, TileSide + 1)
        << QPoint(-TileSide - 1, -13) << QSize(2 * TileSide + 2, TileSide + 2);
    QTest::newRow("smaller mask over tiles")
        << large << QSize(2 * TileSide, TileSide + 5) << QSize(TileSide - 3, TileSide + 2) << QPoint(1, -1)
        << QSize(2 * TileSide + 1, TileSide + 6);
    QTest::newRow("last pixel of a tile")
        << large << QSize(2, 2) << QSize(2, 2) << QPoint(TileSide - 1, TileSide - 1) << QSize(2, 2);
}

void TestMask::agreesWithTheTwoRasterOperations() {
    QFETCH(QSize, picture);
    QFETCH(QSize, block);
    QFETCH(QSize, mask);
    QFETCH(QPoint, to);
    QFETCH(QSize, size);
    const Raster before = speckled(picture, 1);
    auto* there = surface(before, this);
    // The operations are those of bits, so any colours will do, not just a black and white mask.
    auto* blockSurface = surface(speckled(block, 2), this);
    auto* maskSurface = surface(speckled(mask, 3), this);
    composeMasked(*there, *blockSurface, *maskSurface, to, size);
    const Raster expected = composedSlowly(before, blockSurface->Image(), maskSurface->Image(), to, size);
    QCOMPARE(there->Image(), expected);
    QVERIFY(expected != before || picture.isEmpty());
    QCOMPARE(there->Picture(), before);
}

void TestMask::composingTouchesItsOwnTilesOnly() {
    const Raster before(QSize(3 * TileSide, 3 * TileSide), rgb(255, 255, 0));
    auto* picture = surface(before, this);
    auto* block = surface(Raster(QSize(10, 10), Black), this);
    QRegion announced;
    connect(picture, &Surface::changed, this, [&](const QRegion& area) { announced += area; });
    composeMasked(*picture, *block, *block, QPoint(TileSide + 20, TileSide + 30), QSize(11, 11));
    QCOMPARE(announced.boundingRect(), QRect(TileSide + 20, TileSide + 30, 10, 10));
    for (const QPoint corner :
         {QPoint(0, 0), QPoint(TileSide, 0), QPoint(0, TileSide), QPoint(2 * TileSide, 2 * TileSide)})
        QVERIFY(picture->Image().sharesTile(before, corner.x(), corner.y()));
}

void TestMask::composingBesideThePictureDoesNothing() {
    const Raster before = grid({"rgb"});
    auto* picture = surface(before, this);
    auto* block = surface(grid({"##"}), this);
    for (const QPoint to : {QPoint(3, 0), QPoint(0, 1), QPoint(-2, 0), QPoint(0, -1), QPoint(5000, 5000)})
        composeMasked(*picture, *block, *block, to, QSize(2, 1));
    composeMasked(*picture, *block, *block, QPoint(0, 0), QSize(0, 1));
    QCOMPARE(picture->Image(), before);
}

OVRANO_TEST(TestMask)
#include "tst_mask.moc"
