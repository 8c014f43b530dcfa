#include "editing/liftedblock.h"
#include "support/answeringdialogs.h"
#include "support/grid.h"

#include <QTest>

using namespace ovrano;

namespace {

constexpr int Tile = Raster::TileSide;
constexpr Colour Yellow = rgb(255, 255, 0);

/// A work picture and what is lifted off it.
struct Desk {
    explicit Desk(const Raster& picture) {
        work.ImageLoaded = true;
        for (Surface* surface : {&work.picDisp, &work.picSnap}) {
            surface->setInnerSize(picture.size());
            surface->setPicture(Raster());
        }
        work.picDisp.setPicture(picture);
    }
    explicit Desk(const QStringList& rows)
        : Desk(grid(rows)) {}

    void select(float x1, float y1, float x2, float y2) {
        block.SelX1 = x1;
        block.SelY1 = y1;
        block.SelX2 = x2;
        block.SelY2 = y2;
    }
    /// Lifts a zone as the release of the mouse does.
    void lift(float x1, float y1, float x2, float y2) {
        select(x1, y1, x2, y2);
        block.HasSelection = true;
        block.CaptureSelection();
    }
    QStringList committed() const { return rowsOf(work.picDisp.Picture()); }

    AnsweringDialogs dialogs;
    WorkPicture work{dialogs};
    LiftedBlock block{work};
};

/// A picture with a dotted, inverting frame drawn over it.
Raster framed(const Raster& picture, const QRect& frame) {
    Surface surface(QStringLiteral("framed"), picture.size());
    surface.setPicture(picture);
    surface.setDrawMode(DrawMode::Invert);
    surface.setDrawStyle(DrawStyle::Dotted);
    surface.Line(frame.topLeft(), frame.bottomRight(), Black, BoxStyle::Outline);
    return surface.Image();
}

/// Every pixel another colour.
Raster colourful(QSize size) {
    Raster raster(size, White);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            raster.setPixel(x, y, rgb(x % 251, y % 253, (x + y) % 256));
    return raster;
}

Raster part(const Raster& picture, const QRect& area) {
    Raster raster(area.size(), Black);
    raster.copyFrom(picture, area, QPoint(0, 0));
    return raster;
}

} // namespace

class TestLiftedBlock : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void leeWayIsAShareOfTheBlock_data();
    void leeWayIsAShareOfTheBlock();
    void startsAtOnePlaceWithoutGrab();
    void clearingForgetsEverything();
    void clearingKeepsTheTransparencyAndTheSnapshot();
    void edgesAreSorted();
    void frameIsDottedAndInverts();
    void frameDrawnTwiceIsGone_data();
    void frameDrawnTwiceIsGone();
    void frameRestoresThePen();
    void capturesTheZoneWithBothEdges();
    void capturesWithinTheBorder();
    void capturesWithoutTheBand();
    void captureLeavesTheBackgroundColourBehind();
    void captureFramesTheBlock();
    void captureStartsTheDragAtTheZone();
    void capturesBeyondThePicture();
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
    void edgesCountAsInside();
    void dropKeepsThePictureAndForgetsTheBlock();
    void bandStartsAsOnePixel();
    void bandStretchesAndLeavesNoTrace();
    void bandEnds_data();
    void bandEnds();
    void secondEndChangesNothing();
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

void TestLiftedBlock::clearingForgetsEverything() {
    Desk desk(QStringList{"....", "....", "...."});
    LiftedBlock& block = desk.block;
    desk.select(1, 1, 3, 2);
    block.DrawSelectionFrame();
    desk.work.UndoAvailable = true;
    for (bool* flag : {&block.MouseIsDown, &block.HasSelection, &block.BlockFromPaste, &block.ResizingWidth,
                       &block.ResizingHeight})
        *flag = true;
    block.ClearSelection();
    for (const bool flag : {block.MouseIsDown, block.HasSelection, block.BlockFromPaste, block.ResizingWidth,
                            block.ResizingHeight, desk.work.UndoAvailable})
        QVERIFY(!flag);
    for (const float edge : {block.SelX1, block.SelX2, block.SelY1, block.SelY2})
        QCOMPARE(edge, 0.F);
    QCOMPARE(desk.work.picDisp.Image(), desk.work.picDisp.Picture());
}

void TestLiftedBlock::clearingKeepsTheTransparencyAndTheSnapshot() {
    Desk desk(QStringList{"r."});
    desk.work.TakeUndoSnapshot();
    desk.block.TransparentPaste = true;
    desk.block.ClearSelection();
    QVERIFY(desk.block.TransparentPaste);
    QCOMPARE(rowsOf(desk.work.picUndo.Picture()), QStringList({"r."}));
}

void TestLiftedBlock::edgesAreSorted() {
    Desk desk(QStringList{"..."});
    desk.select(7, 2, 3, 5);
    desk.block.NormaliseSelection();
    QCOMPARE(QRectF(QPointF(double(desk.block.SelX1), double(desk.block.SelY1)),
                    QPointF(double(desk.block.SelX2), double(desk.block.SelY2))),
             QRectF(QPointF(3, 2), QPointF(7, 5)));
    desk.select(3, 5, 7, 2);
    desk.block.NormaliseSelection();
    QCOMPARE(desk.block.SelX1, 3.F);
    QCOMPARE(desk.block.SelX2, 7.F);
    QCOMPARE(desk.block.SelY1, 2.F);
    QCOMPARE(desk.block.SelY2, 5.F);
}

void TestLiftedBlock::frameIsDottedAndInverts() {
    Desk desk(Raster(QSize(20, 14), Yellow));
    desk.select(2, 3, 15, 11);
    desk.block.DrawSelectionFrame();
    const Raster& image = desk.work.picDisp.Image();
    QCOMPARE(image, framed(desk.work.picDisp.Picture(), QRect(2, 3, 14, 9)));
    int inverted = 0;
    for (int x = 2; x <= 15; ++x)
        inverted += image.pixel(x, 3) == rgb(0, 0, 255) ? 1 : 0;
    QVERIFY2(inverted > 0 && inverted < 14, "some dots of the upper edge, but not all pixels");
}

void TestLiftedBlock::frameDrawnTwiceIsGone_data() {
    QTest::addColumn<QRectF>("edges");
    QTest::newRow("inside") << QRectF(QPointF(2, 3), QPointF(15, 11));
    QTest::newRow("one pixel") << QRectF(QPointF(5, 5), QPointF(5, 5));
    QTest::newRow("two pixels high") << QRectF(QPointF(5, 5), QPointF(9, 6));
    QTest::newRow("line") << QRectF(QPointF(5, 5), QPointF(5, 9));
    QTest::newRow("leftwards and upwards") << QRectF(QPointF(15, 11), QPointF(2, 3));
    QTest::newRow("beyond every edge") << QRectF(QPointF(-4, -3), QPointF(900, 700));
    QTest::newRow("halves") << QRectF(QPointF(-2.5, 1.5), QPointF(7.5, 8.25));
}

void TestLiftedBlock::frameDrawnTwiceIsGone() {
    QFETCH(QRectF, edges);
    Desk desk(colourful(QSize(20, 14)));
    const Raster before = desk.work.picDisp.Image();
    desk.select(float(edges.left()), float(edges.top()), float(edges.right()), float(edges.bottom()));
    desk.block.DrawSelectionFrame();
    desk.block.DrawSelectionFrame();
    QCOMPARE(desk.work.picDisp.Image(), before);
}

void TestLiftedBlock::frameRestoresThePen() {
    Desk desk(QStringList{"....", "...."});
    desk.select(0, 0, 3, 1);
    desk.block.DrawSelectionFrame();
    QCOMPARE(desk.work.picDisp.DrawMode(), DrawMode::CopyPen);
    QCOMPARE(desk.work.picDisp.DrawStyle(), DrawStyle::Solid);
    QCOMPARE(desk.committed(), QStringList({"....", "...."}));
}

void TestLiftedBlock::capturesTheZoneWithBothEdges() {
    Desk desk(QStringList{"rrrrrr", "rgbygr", "rybcmr", "rrrrrr"});
    desk.lift(1, 1, 4, 2);
    QCOMPARE(rowsOf(desk.work.picRegion.Picture()), QStringList({"gbyg", "ybcm"}));
    QCOMPARE(desk.work.picRegion.Image(), desk.work.picRegion.Picture());
}

void TestLiftedBlock::capturesWithinTheBorder() {
    Desk desk(QStringList{"rgb", "gbr", "brg"});
    desk.work.picRegion.setBorder(2);
    desk.lift(0, 0, 2, 1);
    QCOMPARE(desk.work.picRegion.Width(), 7);
    QCOMPARE(desk.work.picRegion.Height(), 6);
    QCOMPARE(rowsOf(desk.work.picRegion.Picture()), QStringList({"rgb", "gbr"}));
}

void TestLiftedBlock::capturesWithoutTheBand() {
    Desk desk(colourful(QSize(30, 20)));
    const Raster before = desk.work.picDisp.Picture();
    desk.select(3, 4, 20, 15);
    desk.block.DrawSelectionFrame();
    desk.block.CaptureSelection();
    QCOMPARE(desk.work.picRegion.Picture(), part(before, QRect(3, 4, 18, 12)));
}

void TestLiftedBlock::captureLeavesTheBackgroundColourBehind() {
    Desk desk(QStringList{"rrrrrr", "rgbygr", "rybcmr", "rrrrrr"});
    desk.work.picDisp.setBackColor(rgb(0, 255, 255));
    desk.lift(1, 1, 4, 2);
    QCOMPARE(rowsOf(desk.work.picSnap.Picture()), QStringList({"rrrrrr", "rccccr", "rccccr", "rrrrrr"}));
    QCOMPARE(desk.committed(), QStringList({"rrrrrr", "rgbygr", "rybcmr", "rrrrrr"}));
}

void TestLiftedBlock::captureFramesTheBlock() {
    Desk desk(colourful(QSize(30, 20)));
    desk.lift(3, 4, 20, 15);
    QCOMPARE(desk.work.picDisp.Image(), framed(desk.work.picDisp.Picture(), QRect(3, 4, 18, 12)));
}

void TestLiftedBlock::captureStartsTheDragAtTheZone() {
    Desk desk(Raster(QSize(400, 300), White));
    desk.block.GrabDX = desk.block.GrabDY = 9;
    desk.lift(10, 20, 59, 49);
    QCOMPARE(desk.block.CurrX, 10.F);
    QCOMPARE(desk.block.PrevX, 10.F);
    QCOMPARE(desk.block.CurrY, 20.F);
    QCOMPARE(desk.block.PrevY, 20.F);
    QCOMPARE(desk.block.GrabDX, 0.F);
    QCOMPARE(desk.block.MinLeft, -40.F);
    QCOMPARE(desk.block.MaxLeft, 390.F);
    QCOMPARE(desk.block.MaxTop, 294.F);
}

void TestLiftedBlock::capturesBeyondThePicture() {
    Desk desk(QStringList{"rgb", "ybc", "mgr"});
    desk.work.picRegion.setBackColor(rgb(0, 255, 255));
    desk.lift(1, 1, 4, 4);
    QCOMPARE(rowsOf(desk.work.picRegion.Picture()), QStringList({"bccc", "grcc", "cccc", "cccc"}));
    QCOMPARE(rowsOf(desk.work.picSnap.Picture()), QStringList({"rgb", "y..", "m.."}));
    desk.block.grab(QPoint(2, 2));
    desk.block.dragTo(QPoint(1, 1));
    QCOMPARE(desk.committed(), QStringList({"bcc", "grc", "ccc"}));
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
    Desk desk(colourful(QSize(5 * Tile, 4 * Tile)));
    desk.lift(20, 20, 59, 49);
    desk.block.grab(QPoint(20, 20));
    desk.block.dragTo(QPoint(25, 22));
    const Raster before = desk.work.picDisp.Picture();
    QRegion announced;
    connect(&desk.work.picDisp, &Surface::changed, this, [&](const QRegion& area) { announced += area; });
    desk.block.dragTo(QPoint(30, 24));
    QVERIFY(QRect(25, 22, 46, 33).contains(announced.boundingRect()));
    for (int y = 0; y < 4 * Tile; y += Tile)
        for (int x = 0; x < 5 * Tile; x += Tile)
            QCOMPARE(desk.work.picDisp.Picture().sharesTile(before, x, y), x > 0 || y > 0);
}

void TestLiftedBlock::edgesCountAsInside() {
    Desk desk(QStringList{"..."});
    desk.select(10, 20, 30, 40);
    for (const QPoint corner : {QPoint(10, 20), QPoint(30, 20), QPoint(10, 40), QPoint(30, 40)}) {
        QVERIFY(desk.block.contains(corner));
        QVERIFY(!desk.block.encloses(corner));
    }
    for (const QPoint beyond : {QPoint(9, 30), QPoint(31, 30), QPoint(20, 19), QPoint(20, 41)})
        QVERIFY(!desk.block.contains(beyond));
    QVERIFY(desk.block.encloses(QPoint(11, 21)));
    QVERIFY(desk.block.encloses(QPoint(29, 39)));
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

void TestLiftedBlock::bandStartsAsOnePixel() {
    Desk desk(QStringList{".....", ".....", "....."});
    desk.select(0, 0, 4, 2);
    desk.block.DrawSelectionFrame(); // an earlier band
    desk.block.startBand(QPoint(2, 1));
    QCOMPARE(rowsOf(desk.work.picDisp.Image()), QStringList({".....", "..#..", "....."}));
    QCOMPARE(desk.block.SelX1, 2.F);
    QCOMPARE(desk.block.SelX2, 2.F);
    QCOMPARE(desk.block.SelY1, 1.F);
    QCOMPARE(desk.block.SelY2, 1.F);
}

void TestLiftedBlock::bandStretchesAndLeavesNoTrace() {
    Desk desk(colourful(QSize(40, 30)));
    const Raster before = desk.work.picDisp.Picture();
    desk.block.startBand(QPoint(20, 15));
    for (const QPoint corner :
         {QPoint(25, 20), QPoint(3, 2), QPoint(90, -70), QPoint(20, 15), QPoint(31, 22)})
        desk.block.stretchBand(corner);
    QCOMPARE(desk.work.picDisp.Image(), framed(before, QRect(20, 15, 12, 8)));
    QCOMPARE(desk.work.picDisp.Picture(), before);
    QCOMPARE(desk.block.SelX1, 20.F);
    QCOMPARE(desk.block.SelX2, 31.F);
}

void TestLiftedBlock::bandEnds_data() {
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<QSize>("block"); // empty where nothing is lifted
    QTest::newRow("right and down") << QPoint(4, 5) << QPoint(13, 9) << QSize(10, 5);
    QTest::newRow("2 x 2") << QPoint(4, 5) << QPoint(6, 7) << QSize(3, 3);
    QTest::newRow("click") << QPoint(4, 5) << QPoint(4, 5) << QSize();
    QTest::newRow("one wide") << QPoint(4, 5) << QPoint(5, 20) << QSize();
    QTest::newRow("one high") << QPoint(4, 5) << QPoint(20, 6) << QSize();
    QTest::newRow("leftwards") << QPoint(20, 5) << QPoint(4, 20) << QSize();
    QTest::newRow("upwards") << QPoint(4, 20) << QPoint(20, 5) << QSize();
    QTest::newRow("left and up") << QPoint(20, 20) << QPoint(4, 5) << QSize();
}

void TestLiftedBlock::bandEnds() {
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    QFETCH(QSize, block);
    Desk desk(colourful(QSize(40, 30)));
    desk.block.TransparentPaste = true;
    desk.block.startBand(from);
    desk.block.stretchBand(to);
    const Raster drawn = desk.work.picDisp.Image();
    desk.block.endBand();
    QCOMPARE(desk.block.HasSelection, !block.isEmpty());
    QCOMPARE(desk.block.TransparentPaste, block.isEmpty());
    if (block.isEmpty())
        QCOMPARE(desk.work.picRegion.innerSize(), QSize(0, 0));
    else
        QCOMPARE(desk.work.picRegion.Picture(), part(desk.work.picDisp.Picture(), QRect(from, block)));
    // A rejected band stays drawn, and that of a lifted block looks the same.
    QCOMPARE(desk.work.picDisp.Image(), drawn);
    QCOMPARE(desk.work.picDisp.DrawMode(), DrawMode::CopyPen);
}

void TestLiftedBlock::secondEndChangesNothing() {
    Desk desk(colourful(QSize(40, 30)));
    desk.lift(4, 5, 13, 9);
    desk.block.grab(QPoint(4, 5));
    desk.block.dragTo(QPoint(14, 15));
    desk.block.TransparentPaste = true; // as after a transparent paste
    const Raster region = desk.work.picRegion.Picture();
    desk.block.endBand();
    QVERIFY(desk.block.TransparentPaste);
    QCOMPARE(desk.block.CurrX, 14.F);
    QCOMPARE(desk.work.picRegion.Picture(), region);
}

QTEST_MAIN(TestLiftedBlock)
#include "tst_liftedblock.moc"
