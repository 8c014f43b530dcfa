#include "support/grid.h"
#include "support/testprogram.h"
#include "text/sourcepatch.h"
#include "text/subpixel.h"

#include <QTest>

#include <optional>

using namespace ovrano;

namespace {

/// The mixture around the middle pixel of a 3 × 3 picture.
Colour mixed(const Raster& picture, int right, int down, std::optional<Colour> skipped = std::nullopt) {
    SourcePatch patch(skipped);
    patch.load(picture, picture.rect());
    const QRgb pixel = mixedPixel(patch.at(1, 1), right, down);
    return pixel == SourcePatch::Nothing ? InvalidColour : fromPixel(pixel);
}

} // namespace

class TestSubpixel : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void middleIsThePixelItself();
    void neighboursCountByDistance_data();
    void neighboursCountByDistance();
    void channelsAreMixedEachForItself();
    void roundsToNearest();
    void whatIsLeftOutCountsAsTheNearest();
    void nothingStaysNothing();
};

void TestSubpixel::middleIsThePixelItself() {
    QCOMPARE(mixed(grid({"###", "#r#", "###"}), 0, 0), rgb(255, 0, 0));
}

void TestSubpixel::neighboursCountByDistance_data() {
    QTest::addColumn<QStringList>("rows");
    QTest::addColumn<int>("right");
    QTest::addColumn<int>("down");
    QTest::addColumn<int>("grey");
    const QStringList toTheRight = {"###", "##.", "###"};
    const QStringList above = {"#.#", "###", "###"};
    const QStringList lowerLeft = {"###", "###", ".##"};
    QTest::newRow("half way to the right") << toTheRight << 128 << 0 << 128;
    QTest::newRow("a quarter to the right") << toTheRight << 64 << 0 << 64;
    QTest::newRow("away from the right") << toTheRight << -100 << 0 << 0;
    QTest::newRow("a quarter up") << above << 0 << -64 << 64;
    QTest::newRow("down, away from above") << above << 0 << 64 << 0;
    QTest::newRow("half way to the lower left") << lowerLeft << -128 << 128 << 64;
    QTest::newRow("to the lower right instead") << lowerLeft << 128 << 128 << 0;
}

void TestSubpixel::neighboursCountByDistance() {
    QFETCH(QStringList, rows);
    QFETCH(int, right);
    QFETCH(int, down);
    QFETCH(int, grey);
    QCOMPARE(mixed(grid(rows), right, down), rgb(grey, grey, grey));
}

void TestSubpixel::channelsAreMixedEachForItself() {
    QCOMPARE(mixed(grid({"###", "#rb", "###"}), 64, 0), rgb(191, 0, 64));
    QCOMPARE(mixed(grid({"###", "yg#", "###"}), -64, 0), rgb(64, 255, 0));
}

void TestSubpixel::roundsToNearest() {
    Raster picture(QSize(3, 3), rgb(10, 20, 30));
    picture.setPixel(2, 1, rgb(11, 21, 31));
    QCOMPARE(mixed(picture, 127, 0), rgb(10, 20, 30));
    QCOMPARE(mixed(picture, 128, 0), rgb(11, 21, 31));
}

void TestSubpixel::whatIsLeftOutCountsAsTheNearest() {
    const Raster edge = grid({"..b", ".rb", "..."});
    QCOMPARE(mixed(edge, -100, -90, White), rgb(255, 0, 0));
    QCOMPARE(mixed(edge, 128, 0, White), rgb(128, 0, 128));
    // Pixels outside the picture.
    SourcePatch patch(std::nullopt);
    patch.load(grid({"r"}), QRect(-1, -1, 3, 3));
    QCOMPARE(mixedPixel(patch.at(1, 1), 128, -128), toPixel(rgb(255, 0, 0)));
}

void TestSubpixel::nothingStaysNothing() {
    QCOMPARE(mixed(grid({"rrr", "r.r", "rrr"}), 100, 100, White), InvalidColour);
}

OVRANO_TEST_WITHOUT_WINDOWS(TestSubpixel)
#include "tst_subpixel.moc"
