#include "editing/toolwindow.h"
#include "support/testprogram.h"

#include <QSignalSpy>
#include <QTest>
#include <QThread>
#include <QTimer>

using namespace ovrano;

namespace {

constexpr Colour Red = rgb(255, 0, 0);

} // namespace

class TestEdgeDrag : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void rightEdgeFollowsTheMouse();
    void bottomEdgeFollowsTheMouse();
    void rightEdgeWinsInTheCorner();
    void sizersComeBeforeThePicker();
    void edgeStopsAtOnePixelAndComesBack_data();
    void edgeStopsAtOnePixelAndComesBack();
    void edgeDragLetsTheWindowRepaint();
    void endOfAnEdgeDragRebuildsThePicture();
    void endOfAnEdgeDragRecomputesTheBars();
    void endOfAnEdgeDragLosesTheUndo();
    void widerPictureThanBarsCanScrollIsReported();
};

void TestEdgeDrag::rightEdgeFollowsTheMouse() {
    ToolWindow window;
    QSignalSpy shown(&window.work, &WorkPicture::imageSizeShown);
    window.press(98, 40);
    QVERIFY(window.block.ResizingWidth);
    QVERIFY(!window.block.ResizingHeight);
    window.moveTo(120, 60);
    QCOMPARE(window.work.picDisp.innerSize(), QSize(122, 80));
    QCOMPARE(window.work.ImageWidth, 122);
    QVERIFY(window.work.ImageModified);
    QCOMPARE(shown.last().first().toString(), QStringLiteral("L=122  H=80"));
    window.moveTo(48, 10);
    QCOMPARE(window.work.picDisp.innerSize(), QSize(50, 80));
    QCOMPARE(shown.last().first().toString(), QStringLiteral("L=50  H=80"));
    QCOMPARE(window.block.ResizeStartX, 48.F);
}

void TestEdgeDrag::bottomEdgeFollowsTheMouse() {
    ToolWindow window;
    QSignalSpy shown(&window.work, &WorkPicture::imageSizeShown);
    window.press(50, 79);
    QVERIFY(window.block.ResizingHeight);
    QVERIFY(!window.block.ResizingWidth);
    window.moveTo(60, 99);
    QCOMPARE(window.work.picDisp.innerSize(), QSize(100, 100));
    QCOMPARE(window.work.ImageHeight, 100);
    QVERIFY(window.work.ImageModified);
    QCOMPARE(shown.last().first().toString(), QStringLiteral("W=100  H=100"));
    window.moveTo(10, 29);
    QCOMPARE(window.work.picDisp.innerSize(), QSize(100, 30));
    QCOMPARE(window.block.ResizeStartY, 29.F);
}

void TestEdgeDrag::rightEdgeWinsInTheCorner() {
    ToolWindow window;
    window.press(99, 79);
    window.moveTo(109, 99);
    QCOMPARE(window.work.picDisp.innerSize(), QSize(110, 80));
}

void TestEdgeDrag::sizersComeBeforeThePicker() {
    ToolWindow window;
    window.modes.imgRegion_Click();
    window.modes.imgColorPicker_Click();
    QSignalSpy picked(&window.modes, &PointerModes::colourPicked);
    window.drag(QPoint(98, 40), QPoint(108, 40));
    QCOMPARE(window.work.picDisp.innerSize(), QSize(110, 80));
    QCOMPARE(picked.count(), 0);
    QCOMPARE(window.imgColorPicker.Appearance(), 0);
}

void TestEdgeDrag::edgeStopsAtOnePixelAndComesBack_data() {
    QTest::addColumn<int>("border");
    QTest::newRow("without border") << 0;
    QTest::newRow("with border") << 2;
}

void TestEdgeDrag::edgeStopsAtOnePixelAndComesBack() {
    QFETCH(int, border);
    ToolWindow window;
    window.work.picDisp.setBorder(border);
    window.press(98, 40);
    for (const int x : {1, -1, -70, -3})
        window.moveTo(x, 40);
    QCOMPARE(window.work.picDisp.innerSize(), QSize(1, 80));
    QCOMPARE(window.work.ImageWidth, 1);
    window.moveTo(60, 40);
    QCOMPARE(window.work.picDisp.innerSize(), QSize(62, 80));
    window.release(60, 40);
    window.press(30, 79);
    for (const int y : {-30, -900, 39})
        window.moveTo(30, y);
    QCOMPARE(window.work.picDisp.innerSize(), QSize(62, 40));
}

void TestEdgeDrag::edgeDragLetsTheWindowRepaint() {
    ToolWindow window;
    window.press(98, 40);
    bool repainted = false;
    QTimer::singleShot(0, this, [&] { repainted = true; });
    QThread::msleep(20); // a frame is due
    window.moveTo(120, 40);
    QVERIFY(repainted);
}

void TestEdgeDrag::endOfAnEdgeDragRebuildsThePicture() {
    Raster picture(QSize(100, 80), Red);
    ToolWindow window(picture);
    window.work.picDisp.setBackColor(rgb(0, 255, 255));
    window.work.picUndo.setPicture(picture);
    window.imgColorPicker.setAppearance(1);
    window.drag(QPoint(98, 40), QPoint(103, 40));
    Raster expected(QSize(105, 80), rgb(0, 255, 255));
    expected.fill(QRect(0, 0, 100, 80), Red);
    QVERIFY(!window.block.ResizingWidth);
    QCOMPARE(window.imgColorPicker.Appearance(), 0);
    QCOMPARE(window.work.picDisp.Picture(), expected);
    QCOMPARE(window.work.picDisp.Image(), expected);
    for (const Surface* companion : {&window.work.picSnap, &window.work.picUndo}) {
        QCOMPARE(companion->innerSize(), QSize(105, 80));
        QVERIFY(companion->Picture().isEmpty());
        QCOMPARE(companion->Image(), Raster(QSize(105, 80), White));
    }
}

void TestEdgeDrag::endOfAnEdgeDragRecomputesTheBars() {
    ToolWindow window(QSize(100, 80), QSize(90, 60));
    QCOMPARE(window.view.HScroll1->maximum(), 10);
    window.press(98, 40);
    window.moveTo(148, 40);
    QCOMPARE(window.view.HScroll1->maximum(), 10);
    window.release(148, 40);
    QCOMPARE(window.view.HScroll1->maximum(), 60);
}

void TestEdgeDrag::endOfAnEdgeDragLosesTheUndo() {
    ToolWindow window;
    QSignalSpy lost(&window.modes, &PointerModes::undoLost);
    window.drag(QPoint(50, 50), QPoint(60, 60));
    QCOMPARE(lost.count(), 0);
    window.work.TakeUndoSnapshot();
    window.drag(QPoint(50, 79), QPoint(50, 60));
    QCOMPARE(lost.count(), 1);
    QVERIFY(!window.work.UndoAvailable);
    QVERIFY(!window.block.ResizingHeight);
}

void TestEdgeDrag::widerPictureThanBarsCanScrollIsReported() {
    ToolWindow window(QSize(32800, 4), QSize(100, 100));
    QSignalSpy lost(&window.modes, &PointerModes::undoLost);
    window.press(32799, 0);
    window.moveTo(40000, 0);
    window.dialogs.answer(Answer::Ok);
    window.modes.picDisp_MouseUp(QPoint(40000, 0));
    QCOMPARE(window.dialogs.messages.size(), 1);
    QVERIFY(window.dialogs.messages.first().text.startsWith(QStringLiteral("picDisp_MouseUp\r\n6     ")));
    QVERIFY(!window.block.ResizingWidth);
    QCOMPARE(lost.count(), 1);
}

OVRANO_TEST(TestEdgeDrag)
#include "tst_edgedrag.moc"
