#include "platform/raster.h"
#include "platform/runtimeerror.h"
#include "support/grid.h"
#include "support/testprogram.h"

#include <QRandomGenerator>
#include <QtTest>

using namespace ovrano;

namespace {

/// A picture in which every pixel differs from its neighbours.
Raster patterned(QSize size, int seed = 0) {
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y,
                           qRgb((x + seed) & 255, y & 255, ((x >> 8) * 7 + (y >> 8) * 13 + seed) & 255));
    return Raster::fromImage(image);
}

bool samePixels(const Raster& a, const Raster& b) {
    if (a.size() != b.size())
        return false;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            if (a.pixel(x, y) != b.pixel(x, y))
                return false;
    return true;
}

} // namespace

class TestRaster : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void emptyRaster();
    void filledRasterCostsOneTile();
    void sizesBeyondTheLimitAreRefused();
    void readsOutsideAsInvalid();
    void copiesShareTilesUntilWritten();
    void fromImageSharesMemoryAndNeverWritesToIt();
    void fillClips();
    void copyFromMatchesPixelByPixel_data();
    void copyFromMatchesPixelByPixel();
    void copyWithinItself();
    void coveredTilesAreShared();
    void resizing();
    void toImageAndBack();
    void readRowCrossesTiles();
    void visitsEveryPixelOnce();
    void equalTilesAreSharedAgain();
    void copiedPixelsShareNothing();
    void ownTilesAreOverwrittenInPlace();
    void areaOfWholeTiles();
    void memoryOfTilesIsKept_data();
    void memoryOfTilesIsKept();
    void smallTilesTakeNoMoreThanTheyNeed();
    void manyTilesGoBackToTheSystem();
    void equalityLooksAtPixels();
};

void TestRaster::emptyRaster() {
    Raster raster;
    QVERIFY(raster.isEmpty());
    QCOMPARE(raster.pixel(0, 0), InvalidColour);
    raster.fill(QRect(0, 0, 5, 5), Black);
    raster.copyFrom(patterned(QSize(3, 3)), QRect(0, 0, 3, 3), QPoint(0, 0));
    QVERIFY(raster.toImage().isNull());
    QVERIFY(Raster(QSize(0, 7), White).isEmpty());
    QCOMPARE(Raster(QSize(-3, 7), White).size(), QSize(0, 7));
    QVERIFY(Raster::fromImage(QImage()).isEmpty());
}

void TestRaster::filledRasterCostsOneTile() {
    const Raster raster(QSize(2000, 1500), rgb(1, 2, 3));
    QCOMPARE(raster.pixel(1999, 1499), rgb(1, 2, 3));
    QSet<const uchar*> tiles;
    raster.readTiles(raster.rect(),
                     [&](const QImage& tile, const QRect&) { tiles.insert(tile.constBits()); });
    QCOMPARE(tiles.size(), 4); // inner, right edge, bottom edge, corner
}

void TestRaster::sizesBeyondTheLimitAreRefused() {
    QVERIFY_THROWS_EXCEPTION(RuntimeError, Raster(QSize(Raster::MaxSide + 1, 1), White));
}

void TestRaster::readsOutsideAsInvalid() {
    Raster raster(QSize(10, 10), White);
    for (const QPoint& outside : {QPoint(-1, 0), QPoint(0, -1), QPoint(10, 0), QPoint(0, 10)}) {
        QCOMPARE(raster.pixel(outside.x(), outside.y()), InvalidColour);
        raster.setPixel(outside.x(), outside.y(), Black);
    }
    QCOMPARE(raster, Raster(QSize(10, 10), White));
}

void TestRaster::copiesShareTilesUntilWritten() {
    const Raster original = patterned(QSize(600, 600));
    Raster copy = original;
    copy.setPixel(300, 300, rgb(9, 9, 9));
    QCOMPARE(copy.pixel(300, 300), rgb(9, 9, 9));
    QVERIFY(original.pixel(300, 300) != rgb(9, 9, 9));
    QVERIFY(!copy.sharesTile(original, 300, 300));
    QVERIFY(copy.sharesTile(original, 0, 0));
    QVERIFY(copy.sharesTile(original, 599, 599));
}

void TestRaster::fromImageSharesMemoryAndNeverWritesToIt() {
    QImage image(300, 300, QImage::Format_RGB32);
    image.fill(qRgb(10, 20, 30));
    const QImage before = image.copy();
    {
        Raster raster = Raster::fromImage(image);
        bool inPlace = true;
        raster.readTiles(raster.rect(), [&](const QImage& tile, const QRect& place) {
            const uchar* expected = image.constScanLine(place.top()) + 4 * place.left();
            inPlace = inPlace && tile.constBits() == expected;
        });
        QVERIFY(inPlace);
        raster.fill(QRect(10, 10, 280, 280), Black);
        QCOMPARE(raster.pixel(150, 150), Black);
        QCOMPARE(raster.pixel(5, 5), rgb(10, 20, 30));
    }
    QCOMPARE(image, before);
    QCOMPARE(Raster::fromImage(image.convertToFormat(QImage::Format_RGB888)).pixel(7, 7), rgb(10, 20, 30));
}

void TestRaster::fillClips() {
    Raster raster = grid({"....", "....", "...."});
    raster.fill(QRect(-2, 1, 4, 9), rgb(255, 0, 0));
    QCOMPARE(rowsOf(raster), QStringList({"....", "rr..", "rr.."}));
    raster.fill(QRect(9, 9, 2, 2), Black);
    QCOMPARE(rowsOf(raster), QStringList({"....", "rr..", "rr.."}));
}

void TestRaster::copyFromMatchesPixelByPixel_data() {
    QTest::addColumn<QRect>("from");
    QTest::addColumn<QPoint>("to");
    QTest::newRow("same place") << QRect(0, 0, 700, 600) << QPoint(0, 0);
    QTest::newRow("inner part") << QRect(250, 250, 20, 20) << QPoint(250, 250);
    QTest::newRow("shifted across tiles") << QRect(10, 20, 400, 300) << QPoint(200, 150);
    QTest::newRow("whole tiles in step") << QRect(0, 0, 512, 512) << QPoint(256, 0);
    QTest::newRow("whole tiles out of step") << QRect(1, 1, 512, 512) << QPoint(0, 0);
    QTest::newRow("negative source") << QRect(-50, -60, 200, 200) << QPoint(100, 100);
    QTest::newRow("negative target") << QRect(0, 0, 300, 300) << QPoint(-100, -37);
    QTest::newRow("beyond both") << QRect(600, 500, 900, 900) << QPoint(500, 400);
    QTest::newRow("one pixel") << QRect(255, 255, 1, 1) << QPoint(256, 256);
    QTest::newRow("nothing") << QRect(0, 0, 0, 0) << QPoint(3, 3);
    QTest::newRow("outside") << QRect(0, 0, 10, 10) << QPoint(5000, 0);
}

void TestRaster::copyFromMatchesPixelByPixel() {
    QFETCH(QRect, from);
    QFETCH(QPoint, to);
    const Raster source = patterned(QSize(700, 600), 50);
    Raster fast = patterned(QSize(650, 640));
    Raster slow = fast;
    fast.copyFrom(source, from, to);
    for (int y = 0; y < from.height(); ++y)
        for (int x = 0; x < from.width(); ++x)
            if (const Colour c = source.pixel(from.x() + x, from.y() + y); c != InvalidColour)
                slow.setPixel(to.x() + x, to.y() + y, c);
    QVERIFY(samePixels(fast, slow));
    QCOMPARE(fast, slow);
}

void TestRaster::copyWithinItself() {
    Raster raster = patterned(QSize(600, 300));
    const Raster before = raster;
    raster.copyFrom(raster, QRect(0, 0, 300, 300), QPoint(300, 0));
    for (const QPoint& at : {QPoint(300, 0), QPoint(599, 299), QPoint(450, 100)})
        QCOMPARE(raster.pixel(at.x(), at.y()), before.pixel(at.x() - 300, at.y()));
}

void TestRaster::coveredTilesAreShared() {
    const Raster source = patterned(QSize(600, 600));
    Raster target(QSize(600, 600), White);
    target.copyFrom(source, QRect(0, 0, 300, 300));
    QVERIFY(target.sharesTile(source, 10, 10));
    QVERIFY(!target.sharesTile(source, 290, 10));
}

void TestRaster::resizing() {
    const Raster small = grid({"rg", "by"});
    QCOMPARE(rowsOf(small.resized(QSize(3, 3), Black)), QStringList({"rg#", "by#", "###"}));
    QCOMPARE(rowsOf(small.resized(QSize(1, 2), Black)), QStringList({"r", "b"}));
    QVERIFY(small.resized(QSize(0, 0), Black).isEmpty());
    const Raster large = patterned(QSize(600, 600));
    QVERIFY(large.resized(QSize(900, 600), White).sharesTile(large, 0, 0));
}

void TestRaster::toImageAndBack() {
    const Raster raster = patterned(QSize(520, 300));
    QVERIFY(samePixels(Raster::fromImage(raster.toImage()), raster));
    const QImage part = raster.toImage(QRect(250, -2, 10, 5));
    QCOMPARE(part.size(), QSize(10, 5));
    QCOMPARE(part.pixel(0, 0), qRgb(0, 0, 0));
    QCOMPARE(part.pixel(9, 2), toPixel(raster.pixel(259, 0)));
}

void TestRaster::readRowCrossesTiles() {
    const Raster raster = patterned(QSize(700, 300));
    std::vector<QRgb> row(400);
    raster.readRow(270, 200, 400, row.data());
    for (int i = 0; i < 400; ++i)
        QCOMPARE(fromPixel(row.at(static_cast<std::size_t>(i))), raster.pixel(200 + i, 270));
}

void TestRaster::visitsEveryPixelOnce() {
    Raster raster(QSize(530, 270), Black);
    const QRect area(3, 5, 520, 260);
    raster.writeTiles(area, [](Tile& tile, const QRect& place) {
        for (int y = place.top(); y <= place.bottom(); ++y)
            for (int x = place.left(); x <= place.right(); ++x)
                tile.pixels()[y % Raster::TileSide * tile.pixelsPerRow() + x % Raster::TileSide] += 1;
    });
    Raster expected(QSize(530, 270), Black);
    expected.fill(area, rgb(0, 0, 1));
    QCOMPARE(raster, expected);
}

void TestRaster::equalTilesAreSharedAgain() {
    const Raster original = patterned(QSize(600, 300));
    Raster changed = original;
    changed.setPixel(10, 10, White);
    changed.setPixel(300, 10, White);
    changed.setPixel(300, 10, original.pixel(300, 10)); // and back
    QVERIFY(!changed.sharesTile(original, 300, 10));
    changed.shareEqualTiles(original, QRect(0, 0, 257, 1));
    QVERIFY(changed.sharesTile(original, 300, 10));
    QVERIFY(!changed.sharesTile(original, 10, 10));
    QCOMPARE(changed.pixel(10, 10), White);

    Raster narrower(QSize(500, 300), Black); // its last tile is another size than the one above
    narrower.copyFrom(original, narrower.rect());
    narrower.shareEqualTiles(original, narrower.rect());
    QVERIFY(narrower.sharesTile(original, 0, 0));
    QVERIFY(!narrower.sharesTile(original, 300, 0));
}

void TestRaster::copiedPixelsShareNothing() {
    const Raster source = patterned(QSize(600, 300));
    Raster copy(QSize(600, 300), White);
    const QRect area(10, 0, 550, 290);
    copy.copyPixels(source, area);
    Raster expected(QSize(600, 300), White);
    expected.copyFrom(source, area);
    QVERIFY(samePixels(copy, expected));
    for (int x : {10, 256, 512})
        QVERIFY(!copy.sharesTile(source, x, 0));
}

void TestRaster::ownTilesAreOverwrittenInPlace() {
    const Raster source = patterned(QSize(600, 600));
    Raster target = patterned(QSize(600, 600), 5);
    const Raster before = target;
    target.makeOwn(QRect(100, 100, 250, 1));
    QVERIFY(samePixels(target, before));
    QVERIFY(!target.sharesTile(before, 0, 0) && !target.sharesTile(before, 256, 0));
    QVERIFY(target.sharesTile(before, 512, 0) && target.sharesTile(before, 0, 256));
    const auto memoryOfFirst = [&target] {
        const uchar* memory = nullptr;
        target.readTiles(QRect(0, 0, 1, 1),
                         [&](const QImage& tile, const QRect&) { memory = tile.constBits(); });
        return memory;
    };
    const uchar* own = memoryOfFirst();
    target.copyFrom(source, QRect(1, 1, 256, 256), QPoint(0, 0)); // covers it, out of step
    QCOMPARE(memoryOfFirst(), own);
    QCOMPARE(target.pixel(0, 0), source.pixel(1, 1));
    QCOMPARE(target.pixel(255, 255), source.pixel(256, 256));
}

void TestRaster::areaOfWholeTiles() {
    QCOMPARE(Raster::wholeTiles(QRect(0, 0, 256, 256)), QRect(0, 0, 256, 256));
    QCOMPARE(Raster::wholeTiles(QRect(255, 256, 2, 1)), QRect(0, 256, 512, 256));
    QCOMPARE(Raster::wholeTiles(QRect(-1, -257, 2, 1)), QRect(-256, -512, 512, 256));
    QCOMPARE(Raster::wholeTiles(QRect()), QRect());
}

void TestRaster::memoryOfTilesIsKept_data() {
    QTest::addColumn<QSize>("size");
    QTest::newRow("full") << QSize(Tile::Side, Tile::Side);
    QTest::newRow("more than half") << QSize(Tile::Side, Tile::Side / 2 + 1);
    QTest::newRow("an edge") << QSize(220, 200);
}

void TestRaster::memoryOfTilesIsKept() {
    QFETCH(QSize, size);
    { const Tile first = Tile::filled(size, 0); }
    const std::size_t before = Tile::kept();
    QVERIFY(before > 0);
    Tile taken = Tile::unwritten(size);
    QCOMPARE(Tile::kept(), before - 1);
    QCOMPARE(taken.size(), size);
    const Tile copy = taken;
    QVERIFY(copy.sharesWith(taken));
    const QRgb* pixels = copy.row(0);
    QVERIFY(taken.pixels() != pixels); // shared: a write gets its own
    QCOMPARE(copy.row(0), pixels);
    const QRgb* own = taken.row(0);
    QCOMPARE(static_cast<const QRgb*>(taken.pixels()), own); // not shared any more
}

void TestRaster::smallTilesTakeNoMoreThanTheyNeed() {
    const std::size_t before = Tile::kept();
    for (const QSize size : {QSize(Tile::Side, Tile::Side / 2), QSize(1, Tile::Side), QSize(7, 5)}) {
        { const Tile tile = Tile::filled(size, 0); }
        QCOMPARE(Tile::kept(), before);
    }
}

void TestRaster::manyTilesGoBackToTheSystem() {
    const std::size_t before = Tile::kept();
    {
        std::vector<Tile> many;
        for (int i = 0; i < 400; ++i)
            many.push_back(Tile::unwritten(QSize(Tile::Side, Tile::Side)));
    }
    QVERIFY2(Tile::kept() <= before + 200, qPrintable(QString::number(Tile::kept())));
}

void TestRaster::equalityLooksAtPixels() {
    const Raster a = patterned(QSize(300, 300));
    QVERIFY(a == patterned(QSize(300, 300)));
    QVERIFY(!(a == patterned(QSize(300, 300), 1)));
    QVERIFY(!(a == patterned(QSize(300, 299))));
}

OVRANO_TEST_WITHOUT_WINDOWS(TestRaster)
#include "tst_raster.moc"
