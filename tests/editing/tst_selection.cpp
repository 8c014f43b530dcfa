#include "editing/desk.h"
#include "support/testprogram.h"

#include <QTest>

using namespace ovrano;

class TestSelection : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void clearingForgetsEverything();
    void clearingKeepsTheTransparencyAndTheSnapshot();
    void edgesAreSorted();
    void edgesCountAsInside();
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
    void capturesBackgroundBeyondThePicture();
    void snapshotSurfaceFollowsThePicturesSize();
    void bandStartsAsOnePixel();
    void bandStretchesAndLeavesNoTrace();
    void bandEnds_data();
    void bandEnds();
    void secondEndChangesNothing();
};

void TestSelection::clearingForgetsEverything() {
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

void TestSelection::clearingKeepsTheTransparencyAndTheSnapshot() {
    Desk desk(QStringList{"r."});
    desk.work.TakeUndoSnapshot();
    desk.block.TransparentPaste = true;
    desk.block.ClearSelection();
    QVERIFY(desk.block.TransparentPaste);
    QCOMPARE(rowsOf(desk.work.picUndo.Picture()), QStringList({"r."}));
}

void TestSelection::edgesAreSorted() {
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

void TestSelection::edgesCountAsInside() {
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

void TestSelection::frameIsDottedAndInverts() {
    Desk desk(Raster(QSize(20, 14), rgb(255, 255, 0)));
    desk.select(2, 3, 15, 11);
    desk.block.DrawSelectionFrame();
    const Raster& image = desk.work.picDisp.Image();
    QCOMPARE(image, framed(desk.work.picDisp.Picture(), QRect(2, 3, 14, 9)));
    int inverted = 0;
    for (int x = 2; x <= 15; ++x)
        inverted += image.pixel(x, 3) == rgb(0, 0, 255) ? 1 : 0;
    QVERIFY2(inverted > 0 && inverted < 14, "some dots of the upper edge, but not all pixels");
}

void TestSelection::frameDrawnTwiceIsGone_data() {
    QTest::addColumn<QRectF>("edges");
    QTest::newRow("inside") << QRectF(QPointF(2, 3), QPointF(15, 11));
    QTest::newRow("one pixel") << QRectF(QPointF(5, 5), QPointF(5, 5));
    QTest::newRow("two pixels high") << QRectF(QPointF(5, 5), QPointF(9, 6));
    QTest::newRow("line") << QRectF(QPointF(5, 5), QPointF(5, 9));
    QTest::newRow("leftwards and upwards") << QRectF(QPointF(15, 11), QPointF(2, 3));
    QTest::newRow("beyond every edge") << QRectF(QPointF(-4, -3), QPointF(900, 700));
    QTest::newRow("halves") << QRectF(QPointF(-2.5, 1.5), QPointF(7.5, 8.25));
}

void TestSelection::frameDrawnTwiceIsGone() {
    QFETCH(QRectF, edges);
    Desk desk(colourful(QSize(20, 14)));
    const Raster before = desk.work.picDisp.Image();
    desk.select(float(edges.left()), float(edges.top()), float(edges.right()), float(edges.bottom()));
    desk.block.DrawSelectionFrame();
    desk.block.DrawSelectionFrame();
    QCOMPARE(desk.work.picDisp.Image(), before);
}

void TestSelection::frameRestoresThePen() {
    Desk desk(QStringList{"....", "...."});
    desk.select(0, 0, 3, 1);
    desk.block.DrawSelectionFrame();
    QCOMPARE(desk.work.picDisp.DrawMode(), DrawMode::CopyPen);
    QCOMPARE(desk.work.picDisp.DrawStyle(), DrawStyle::Solid);
    QCOMPARE(desk.committed(), QStringList({"....", "...."}));
}

void TestSelection::capturesTheZoneWithBothEdges() {
    Desk desk(QStringList{"rrrrrr", "rgbygr", "rybcmr", "rrrrrr"});
    desk.lift(1, 1, 4, 2);
    QCOMPARE(rowsOf(desk.work.picRegion.Picture()), QStringList({"gbyg", "ybcm"}));
    QCOMPARE(desk.work.picRegion.Image(), desk.work.picRegion.Picture());
}

void TestSelection::capturesWithinTheBorder() {
    Desk desk(QStringList{"rgb", "gbr", "brg"});
    desk.work.picRegion.setBorder(2);
    desk.lift(0, 0, 2, 1);
    QCOMPARE(desk.work.picRegion.Width(), 7);
    QCOMPARE(desk.work.picRegion.Height(), 6);
    QCOMPARE(rowsOf(desk.work.picRegion.Picture()), QStringList({"rgb", "gbr"}));
}

void TestSelection::capturesWithoutTheBand() {
    Desk desk(colourful(QSize(30, 20)));
    const Raster before = desk.work.picDisp.Picture();
    desk.select(3, 4, 20, 15);
    desk.block.DrawSelectionFrame();
    desk.block.CaptureSelection();
    QCOMPARE(desk.work.picRegion.Picture(), part(before, QRect(3, 4, 18, 12)));
}

void TestSelection::captureLeavesTheBackgroundColourBehind() {
    Desk desk(QStringList{"rrrrrr", "rgbygr", "rybcmr", "rrrrrr"});
    desk.work.picDisp.setBackColor(rgb(0, 255, 255));
    desk.lift(1, 1, 4, 2);
    QCOMPARE(rowsOf(desk.work.picSnap.Picture()), QStringList({"rrrrrr", "rccccr", "rccccr", "rrrrrr"}));
    QCOMPARE(desk.committed(), QStringList({"rrrrrr", "rgbygr", "rybcmr", "rrrrrr"}));
}

void TestSelection::captureFramesTheBlock() {
    Desk desk(colourful(QSize(30, 20)));
    desk.lift(3, 4, 20, 15);
    QCOMPARE(desk.work.picDisp.Image(), framed(desk.work.picDisp.Picture(), QRect(3, 4, 18, 12)));
}

void TestSelection::captureStartsTheDragAtTheZone() {
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

void TestSelection::capturesBackgroundBeyondThePicture() {
    Desk desk(QStringList{"rgb", "ybc", "mgr"});
    desk.work.picRegion.setInnerSize(QSize(4, 4));
    desk.work.picRegion.setPicture(Raster(QSize(4, 4), Black)); // an earlier block
    desk.work.picDisp.setBackColor(rgb(0, 255, 0));
    desk.lift(1, 1, 4, 4);
    QCOMPARE(rowsOf(desk.work.picRegion.Picture()), QStringList({"bcgg", "grgg", "gggg", "gggg"}));
    QCOMPARE(rowsOf(desk.work.picSnap.Picture()), QStringList({"rgb", "ygg", "mgg"}));
    desk.block.grab(QPoint(2, 2));
    desk.block.dragTo(QPoint(1, 1));
    QCOMPARE(desk.committed(), QStringList({"bcg", "grg", "ggg"}));
}

void TestSelection::snapshotSurfaceFollowsThePicturesSize() {
    Desk desk(QStringList{"rgb", "ybc", "mgr"});
    desk.work.picSnap.setInnerSize(QSize(2, 5)); // as after an Undo that changed the picture's size
    desk.lift(1, 1, 2, 2);
    QCOMPARE(rowsOf(desk.work.picSnap.Picture()), QStringList({"rgb", "y..", "m.."}));
    QCOMPARE(rowsOf(desk.work.picRegion.Picture()), QStringList({"bc", "gr"}));
}

void TestSelection::bandStartsAsOnePixel() {
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

void TestSelection::bandStretchesAndLeavesNoTrace() {
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

void TestSelection::bandEnds_data() {
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

void TestSelection::bandEnds() {
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

void TestSelection::secondEndChangesNothing() {
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

OVRANO_TEST(TestSelection)
#include "tst_selection.moc"
