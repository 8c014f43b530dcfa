#include "editing/desk.h"
#include "support/testprogram.h"

#include <QTest>

using namespace ovrano;

namespace {

constexpr int TileSide = Raster::TileSide;

} // namespace

class TestLiftedBlock : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void leeWayIsAShareOfTheBlock_data();
    void leeWayIsAShareOfTheBlock();
    void startsAtOnePlaceWithoutGrab();
    void composesOpaquely();
    void composesThroughTheMask();
    void composesAtWholePixels();
    void restoresWhereItWasBefore();
    void framesOnlyALiftedBlock();
    void dragFollowsTheGrabbedPoint();
    void rectangleIsOnePixelWiderAfterADrag();
    void dragIsClamped_data();
    void dragIsClamped();
    void horizontalLeeWayBoundsTheTop_data();
    void horizontalLeeWayBoundsTheTop();
    void manyStepsLeaveNoTrace();
    void aStepCostsTheBlockNotThePicture();
    void dropKeepsThePictureAndForgetsTheBlock();
};

void TestLiftedBlock::leeWayIsAShareOfTheBlock_data() {
    QTest::addColumn<QSize>("block");
    QTest::addColumn<QSize>("picture");
    QTest::addColumn<double>("percent");
    QTest::addColumn<QRectF>("range"); // from the smallest to the largest corner
    QTest::newRow("100 in 400") << QSize(100, 300) << QSize(400, 300) << 80.0
                                << QRectF(QPointF(-80, -240), QPointF(380, 240));
    QTest::newRow("50 in 400") << QSize(50, 50) << QSize(400, 300) << 80.0
                               << QRectF(QPointF(-40, -40), QPointF(390, 290));
    QTest::newRow("larger than the picture")
        << QSize(500, 100) << QSize(400, 300) << 80.0 << QRectF(QPointF(-400, -80), QPointF(300, 280));
    QTest::newRow("a quarter") << QSize(20, 10) << QSize(100, 100) << 25.0
                               << QRectF(QPointF(-5, -2.5), QPointF(85, 92.5));
}

void TestLiftedBlock::leeWayIsAShareOfTheBlock() {
    QFETCH(QSize, block);
    QFETCH(QSize, picture);
    QFETCH(double, percent);
    QFETCH(QRectF, range);
    Desk desk(QStringList{});
    desk.block.SetLeeWay(Surface(QStringLiteral("moved"), block),
                         Surface(QStringLiteral("container"), picture), percent);
    QCOMPARE(QPointF(double(desk.block.MinLeft), double(desk.block.MinTop)), range.topLeft());
    QCOMPARE(QPointF(double(desk.block.MaxLeft), double(desk.block.MaxTop)), range.bottomRight());
}

void TestLiftedBlock::startsAtOnePlaceWithoutGrab() {
    Desk desk(QStringList{"..."});
    desk.block.GrabDX = desk.block.GrabDY = 9;
    desk.block.SetPrevAndCurrValues(3, -4);
    QCOMPARE(desk.block.CurrX, 3.F);
    QCOMPARE(desk.block.PrevX, 3.F);
    QCOMPARE(desk.block.CurrY, -4.F);
    QCOMPARE(desk.block.PrevY, -4.F);
    QCOMPARE(desk.block.GrabDX, 0.F);
    QCOMPARE(desk.block.GrabDY, 0.F);
}

void TestLiftedBlock::composesOpaquely() {
    Desk desk(QStringList{"yyyyyy", "yrgbyy", "ybgryy", "yyyyyy"});
    desk.lift(1, 1, 3, 2);
    desk.block.grab(QPoint(1, 1));
    desk.block.dragTo(QPoint(3, 0));
    QCOMPARE(desk.committed(), QStringList({"yyyrgb", "y..bgr", "y...yy", "yyyyyy"}));
}

void TestLiftedBlock::composesThroughTheMask() {
    Desk desk(QStringList{"yyyyyy", "yrgbyy", "ybgryy", "yyyyyy"});
    desk.work.BitbltPic(desk.work.picDisp, desk.work.picSnap);
    desk.work.picRegion.setInnerSize(QSize(3, 2));
    desk.work.picRegion.setPicture(grid({"m.m", ".#."}));
    desk.work.picMask.setInnerSize(QSize(3, 2));
    desk.work.picMask.setPicture(grid({"#.#", ".#."}));
    desk.block.TransparentPaste = true;
    desk.select(2, 1, 4, 2);
    desk.block.SetPrevAndCurrValues(2, 1);
    desk.block.ComposeRegion();
    QCOMPARE(desk.committed(), QStringList({"yyyyyy", "yrmbmy", "ybg#yy", "yyyyyy"}));
}

void TestLiftedBlock::composesAtWholePixels() {
    // 80 % of 3 pixels is 2.4: the block hangs over by whole pixels all the same.
    Desk desk(QStringList{"yyyyyy", "yrgbyy", "yrgbyy", "yrgbyy"});
    desk.lift(1, 1, 3, 3);
    desk.block.grab(QPoint(2, 2));
    desk.block.dragTo(QPoint(-100, 2));
    QCOMPARE(desk.block.CurrX, -2.4F);
    QCOMPARE(desk.committed(), QStringList({"yyyyyy", "b...yy", "b...yy", "b...yy"}));
    desk.block.SetPrevAndCurrValues(0.5F, 1.5F); // halves go to the even neighbour
    desk.select(0.5F, 1.5F, 2.5F, 3.5F);
    desk.block.ComposeRegion();
    QCOMPARE(desk.committed(), QStringList({"yyyyyy", "b...yy", "rgb.yy", "rgb.yy"}));
}

void TestLiftedBlock::restoresWhereItWasBefore() {
    Desk desk(QStringList{"yyyyyy", "yrgbyy", "ybgryy", "yyyyyy"});
    desk.lift(1, 1, 3, 2);
    desk.block.grab(QPoint(1, 1));
    desk.block.dragTo(QPoint(3, 2));
    desk.block.dragTo(QPoint(0, 0));
    QCOMPARE(desk.committed(), QStringList({"rgbyyy", "bgr.yy", "y...yy", "yyyyyy"}));
    QCOMPARE(desk.block.PrevX, 0.F);
    QCOMPARE(desk.block.PrevY, 0.F);
}

void TestLiftedBlock::framesOnlyALiftedBlock() {
    Desk desk(colourful(QSize(30, 20)));
    desk.work.BitbltPic(desk.work.picDisp, desk.work.picSnap);
    desk.work.picRegion.setInnerSize(QSize(10, 8));
    desk.select(5, 5, 14, 12);
    desk.block.SetPrevAndCurrValues(5, 5);
    desk.block.ComposeRegion();
    QCOMPARE(desk.work.picDisp.Image(), desk.work.picDisp.Picture());
    desk.block.HasSelection = true;
    desk.block.ComposeRegion();
    QCOMPARE(desk.work.picDisp.Image(), framed(desk.work.picDisp.Picture(), QRect(5, 5, 10, 8)));
}

void TestLiftedBlock::dragFollowsTheGrabbedPoint() {
    Desk desk(Raster(QSize(60, 50), White));
    desk.lift(10, 20, 29, 39);
    desk.block.grab(QPoint(13, 25));
    QCOMPARE(desk.block.GrabDX, -3.F);
    QCOMPARE(desk.block.GrabDY, -5.F);
    desk.block.dragTo(QPoint(33, 8));
    QCOMPARE(desk.block.CurrX, 30.F);
    QCOMPARE(desk.block.CurrY, 3.F);
}

void TestLiftedBlock::rectangleIsOnePixelWiderAfterADrag() {
    Desk desk(Raster(QSize(60, 50), White));
    desk.lift(10, 20, 29, 34);
    desk.block.grab(QPoint(10, 20));
    desk.block.dragTo(QPoint(11, 21));
    QCOMPARE(desk.block.SelX1, 11.F);
    QCOMPARE(desk.block.SelX2, 31.F);
    QCOMPARE(desk.block.SelY1, 21.F);
    QCOMPARE(desk.block.SelY2, 36.F);
    QCOMPARE(desk.work.picDisp.Image(), framed(desk.work.picDisp.Picture(), QRect(11, 21, 21, 16)));
}

void TestLiftedBlock::dragIsClamped_data() {
    QTest::addColumn<QPoint>("mouse");
    QTest::addColumn<QPoint>("corner");
    QTest::newRow("left") << QPoint(-500, 100) << QPoint(-80, 100);
    QTest::newRow("right") << QPoint(900, 100) << QPoint(380, 100);
    QTest::newRow("up") << QPoint(100, -500) << QPoint(100, -80);
    QTest::newRow("down") << QPoint(100, 900) << QPoint(100, 280);
    QTest::newRow("just inside") << QPoint(379, 279) << QPoint(379, 279);
}

void TestLiftedBlock::dragIsClamped() {
    QFETCH(QPoint, mouse);
    QFETCH(QPoint, corner);
    Desk desk(Raster(QSize(400, 300), White));
    desk.lift(0, 0, 99, 99);
    desk.block.grab(QPoint(0, 0));
    desk.block.dragTo(mouse);
    QCOMPARE(QPointF(double(desk.block.CurrX), double(desk.block.CurrY)), QPointF(corner));
}

void TestLiftedBlock::horizontalLeeWayBoundsTheTop_data() {
    QTest::addColumn<QSize>("block");
    QTest::addColumn<float>("top");
    QTest::newRow("tall block") << QSize(100, 300) << -80.F;
    QTest::newRow("wide block") << QSize(300, 100) << -240.F;
}

void TestLiftedBlock::horizontalLeeWayBoundsTheTop() {
    QFETCH(QSize, block);
    QFETCH(float, top);
    Desk desk(Raster(QSize(400, 300), White));
    desk.lift(0, 0, float(block.width() - 1), float(block.height() - 1));
    desk.block.grab(QPoint(0, 0));
    desk.block.dragTo(QPoint(0, -5000));
    QCOMPARE(desk.block.CurrY, top);
}

void TestLiftedBlock::manyStepsLeaveNoTrace() {
    Desk desk(colourful(QSize(90, 70)));
    desk.lift(11, 9, 41, 33);
    const Raster background = desk.work.picSnap.Picture();
    const Raster block = desk.work.picRegion.Picture();
    desk.block.grab(QPoint(11, 9));
    for (int step = 0; step < 60; ++step)
        desk.block.dragTo(QPoint((step * 37) % 150 - 30, (step * 53) % 120 - 30));
    desk.block.dragTo(QPoint(20, 30));
    Raster expected = background;
    expected.copyFrom(block, block.rect(), QPoint(20, 30));
    QCOMPARE(desk.work.picDisp.Picture(), expected);
}

void TestLiftedBlock::aStepCostsTheBlockNotThePicture() {
    Desk desk(colourful(QSize(5 * TileSide, 4 * TileSide)));
    desk.lift(20, 20, 59, 49);
    desk.block.grab(QPoint(20, 20));
    desk.block.dragTo(QPoint(25, 22));
    const Raster before = desk.work.picDisp.Picture();
    QRegion announced;
    connect(&desk.work.picDisp, &Surface::changed, this, [&](const QRegion& area) { announced += area; });
    desk.block.dragTo(QPoint(30, 24));
    QVERIFY(QRect(25, 22, 46, 33).contains(announced.boundingRect()));
    for (int y = 0; y < 4 * TileSide; y += TileSide)
        for (int x = 0; x < 5 * TileSide; x += TileSide)
            QCOMPARE(desk.work.picDisp.Picture().sharesTile(before, x, y), x > 0 || y > 0);
}

void TestLiftedBlock::dropKeepsThePictureAndForgetsTheBlock() {
    Desk desk(QStringList{"yyyyyy", "yrgbyy", "ybgryy", "yyyyyy"});
    desk.lift(1, 1, 3, 2);
    desk.block.grab(QPoint(1, 1));
    desk.block.dragTo(QPoint(3, 0));
    const QStringList composed = desk.committed();
    desk.block.drop();
    QCOMPARE(rowsOf(desk.work.picDisp.Image()), composed);
    QCOMPARE(rowsOf(desk.work.picUndo.Picture()), composed);
    QVERIFY(!desk.block.HasSelection);
    QVERIFY(!desk.work.UndoAvailable);
    QCOMPARE(desk.block.SelX2, 0.F);
}

OVRANO_TEST(TestLiftedBlock)
#include "tst_liftedblock.moc"
