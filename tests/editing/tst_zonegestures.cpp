#include "editing/toolwindow.h"
#include "support/testprogram.h"

#include <QSignalSpy>
#include <QTest>

using namespace ovrano;

class TestZoneGestures : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void bandLiftsTheFramedBlock();
    void rejectedBandStaysDrawn();
    void otherButtonsDoNotPress();
    void noBandOutsideZoneMode();
    void bandNeedsThePressedButton();
    void pressOnTheFrameGrabs_data();
    void pressOnTheFrameGrabs();
    void pressBeyondTheFrameDrops_data();
    void pressBeyondTheFrameDrops();
    void draggingStopsWithTheButton();
    void dropEndsTheGestureToo();
    void releaseAfterADragChangesNothing();
    void bandScrollsTheView_data();
    void bandScrollsTheView();
    void blockDragDoesNotScroll();
};

void TestZoneGestures::bandLiftsTheFramedBlock() {
    ToolWindow window(grid({"yyyyyyyyyy", "yrgbyyyyyy", "ygbryyyyyy", "ybrgyyyyyy", "yyyyyyyyyy",
                            "yyyyyyyyyy", "yyyyyyyyyy", "yyyyyyyyyy"}));
    window.modes.imgRegion_Click();
    window.drag(QPoint(1, 1), QPoint(3, 3));
    QVERIFY(window.block.HasSelection);
    QVERIFY(!window.block.MouseIsDown);
    QCOMPARE(rowsOf(window.work.picRegion.Picture()), QStringList({"rgb", "gbr", "brg"}));
    window.drag(QPoint(2, 2), QPoint(6, 5));
    QCOMPARE(rowsOf(window.work.picDisp.Picture()),
             QStringList({"yyyyyyyyyy", "y...yyyyyy", "y...yyyyyy", "y...yyyyyy", "yyyyyrgbyy", "yyyyygbryy",
                          "yyyyybrgyy", "yyyyyyyyyy"}));
}

void TestZoneGestures::rejectedBandStaysDrawn() {
    ToolWindow window;
    window.modes.imgRegion_Click();
    for (const QPoint end : {QPoint(5, 5), QPoint(50, 31), QPoint(31, 50), QPoint(5, 60), QPoint(60, 5)}) {
        window.drag(QPoint(30, 30), end);
        QVERIFY(!window.block.HasSelection);
        QVERIFY(window.work.picDisp.Image() != window.work.picDisp.Picture());
        QVERIFY(window.block.SelX2 != 0 && window.block.SelY2 != 0);
    }
}

void TestZoneGestures::otherButtonsDoNotPress() {
    ToolWindow window;
    window.modes.imgRegion_Click();
    window.moveTo(30, 30);
    window.modes.picDisp_MouseDown(Qt::RightButton, QPoint(30, 30));
    QVERIFY(!window.block.MouseIsDown);
    window.moveTo(99, 30);
    window.modes.picDisp_MouseDown(Qt::MiddleButton, QPoint(99, 30));
    QVERIFY(!window.block.ResizingWidth);
}

void TestZoneGestures::noBandOutsideZoneMode() {
    ToolWindow window;
    window.drag(QPoint(20, 10), QPoint(59, 39));
    QVERIFY(!window.block.HasSelection);
    QCOMPARE(window.block.SelX2, 0.F);
    QCOMPARE(window.work.picDisp.Image(), window.work.picDisp.Picture());
}

void TestZoneGestures::bandNeedsThePressedButton() {
    ToolWindow window;
    window.modes.imgRegion_Click();
    window.moveTo(20, 10);
    window.moveTo(59, 39);
    QCOMPARE(window.block.SelX2, 0.F);
    QCOMPARE(window.work.picDisp.Image(), window.work.picDisp.Picture());
}

void TestZoneGestures::pressOnTheFrameGrabs_data() {
    QTest::addColumn<QPoint>("at");
    QTest::newRow("inside") << QPoint(30, 20);
    QTest::newRow("upper left") << QPoint(20, 10);
    QTest::newRow("lower right") << QPoint(59, 39);
    QTest::newRow("left edge") << QPoint(20, 30);
    QTest::newRow("lower edge") << QPoint(40, 39);
}

void TestZoneGestures::pressOnTheFrameGrabs() {
    QFETCH(QPoint, at);
    ToolWindow window;
    window.liftZone();
    window.press(at.x(), at.y());
    QVERIFY(window.block.HasSelection);
    QVERIFY(window.block.MouseIsDown);
    QCOMPARE(window.block.GrabDX, float(20 - at.x()));
    QCOMPARE(window.block.GrabDY, float(10 - at.y()));
    window.moveTo(at.x() + 7, at.y() - 3);
    QCOMPARE(window.block.CurrX, 27.F);
    QCOMPARE(window.block.CurrY, 7.F);
}

void TestZoneGestures::pressBeyondTheFrameDrops_data() {
    QTest::addColumn<QPoint>("at");
    QTest::newRow("left") << QPoint(19, 20);
    QTest::newRow("above") << QPoint(30, 9);
    QTest::newRow("right") << QPoint(60, 20);
    QTest::newRow("below") << QPoint(30, 40);
    QTest::newRow("right edge of the picture") << QPoint(99, 40);
}

void TestZoneGestures::pressBeyondTheFrameDrops() {
    QFETCH(QPoint, at);
    ToolWindow window;
    window.liftZone();
    const Raster before = window.work.picDisp.Picture();
    window.press(at.x(), at.y());
    QVERIFY(!window.block.HasSelection);
    QVERIFY(!window.block.ResizingWidth);
    QCOMPARE(window.work.picDisp.Image(), before);
    QCOMPARE(window.work.picUndo.Picture(), before);
    QVERIFY(!window.work.UndoAvailable);
    QCOMPARE(window.imgRegion.Appearance(), 1);
}

void TestZoneGestures::draggingStopsWithTheButton() {
    ToolWindow window;
    window.liftZone();
    window.drag(QPoint(30, 20), QPoint(35, 22));
    window.moveTo(70, 60);
    QCOMPARE(window.block.CurrX, 25.F);
    QCOMPARE(window.block.CurrY, 12.F);
}

void TestZoneGestures::dropEndsTheGestureToo() {
    ToolWindow window;
    window.liftZone();
    window.press(80, 60);
    window.moveTo(90, 70);
    QVERIFY(!window.block.MouseIsDown);
    QCOMPARE(window.block.SelX2, 0.F);
    QCOMPARE(window.work.picDisp.Image(), window.work.picDisp.Picture());
}

void TestZoneGestures::releaseAfterADragChangesNothing() {
    ToolWindow window;
    window.liftZone();
    window.press(30, 20);
    window.moveTo(45, 30);
    const Raster image = window.work.picDisp.Image();
    const Raster region = window.work.picRegion.Picture();
    window.modes.picDisp_MouseUp(QPoint(45, 30));
    QVERIFY(window.block.HasSelection);
    QVERIFY(!window.block.MouseIsDown);
    QCOMPARE(window.work.picDisp.Image(), image);
    QCOMPARE(window.work.picRegion.Picture(), region);
}

void TestZoneGestures::bandScrollsTheView_data() {
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<bool>("scrolls");
    // The view shows 200 x 150 pixels from (100, 60) on.
    QTest::newRow("inside") << QPoint(250, 150) << false;
    QTest::newRow("just inside on the right") << QPoint(300, 150) << false;
    QTest::newRow("beyond on the right") << QPoint(301, 150) << true;
    QTest::newRow("just inside below") << QPoint(250, 210) << false;
    QTest::newRow("beyond below") << QPoint(250, 211) << true;
    QTest::newRow("just inside on the left") << QPoint(100, 150) << false;
    QTest::newRow("beyond on the left") << QPoint(99, 150) << true;
    QTest::newRow("just inside above") << QPoint(250, 60) << false;
    QTest::newRow("beyond above") << QPoint(250, 59) << true;
}

void TestZoneGestures::bandScrollsTheView() {
    QFETCH(QPoint, to);
    QFETCH(bool, scrolls);
    ToolWindow window(QSize(600, 500), QSize(200, 150));
    window.modes.imgRegion_Click();
    window.view.HScroll1->setValue(100);
    window.view.VScroll1->setValue(60);
    window.press(200, 100);
    QSignalSpy refreshed(&window.work.picDisp, &Surface::refreshed);
    window.moveTo(to.x(), to.y());
    const QPoint position(window.view.HScroll1->value(), window.view.VScroll1->value());
    QCOMPARE(position != QPoint(100, 60), scrolls);
    QCOMPARE(refreshed.count(), scrolls ? 1 : 0);
}

void TestZoneGestures::blockDragDoesNotScroll() {
    ToolWindow window(QSize(600, 500), QSize(200, 150));
    window.liftZone();
    window.press(30, 20);
    window.moveTo(400, 300);
    QCOMPARE(window.block.CurrX, 390.F);
    QCOMPARE(window.view.HScroll1->value(), 0);
    QCOMPARE(window.view.VScroll1->value(), 0);
}

OVRANO_TEST(TestZoneGestures)
#include "tst_zonegestures.moc"
