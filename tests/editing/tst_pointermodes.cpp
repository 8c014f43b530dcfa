#include "editing/pointermodes.h"
#include "platform/screen.h"
#include "support/answeringdialogs.h"
#include "support/grid.h"

#include <QSignalSpy>
#include <QTest>
#include <QThread>
#include <QTimer>

using namespace ovrano;

namespace {

constexpr Colour Red = rgb(255, 0, 0);

/// The tools of a window with a picture in it, and a mouse over the picture.
struct Window {
    explicit Window(const Raster& picture, QSize viewport = QSize(2000, 2000)) {
        work.ImageLoaded = true;
        for (Surface* surface : {&work.picDisp, &work.picSnap, &work.picUndo})
            surface->setInnerSize(picture.size());
        work.picDisp.setPicture(picture);
        work.readImageSize();
        view.picZ->resize(viewport);
        view.setScrollMax();
    }
    explicit Window(QSize size = QSize(100, 80), QSize viewport = QSize(2000, 2000))
        : Window(Raster(size, White), viewport) {}

    void moveTo(int x, int y) { modes.picDisp_MouseMove(QPoint(x, y)); }
    void press(int x, int y) {
        moveTo(x, y);
        modes.picDisp_MouseDown(Qt::LeftButton, QPoint(x, y));
    }
    void release(int x, int y) {
        moveTo(x, y);
        modes.picDisp_MouseUp(QPoint(x, y));
    }
    void drag(QPoint from, QPoint to) {
        press(from.x(), from.y());
        release(to.x(), to.y());
    }
    MousePointer pointerAt(int x, int y) {
        moveTo(x, y);
        return view.picDisp->pointer();
    }
    /// The zone from (20, 10) to (59, 39), lifted.
    void liftZone() {
        modes.imgRegion_Click();
        drag(QPoint(20, 10), QPoint(59, 39));
    }

    QWidget widget;
    AnsweringDialogs dialogs;
    WorkPicture work{dialogs};
    PictureView view{work, &widget};
    LiftedBlock block{work};
    ImageButton imgRegion{QStringLiteral("imgRegion"), QStringLiteral("Zone")};
    ImageButton imgColorPicker{QStringLiteral("imgColorPicker"), QStringLiteral("Pipette")};
    QAction mnuToolsRegion;
    PointerModes modes{work, view, block, imgRegion, imgColorPicker, mnuToolsRegion, dialogs};
};

enum class Mode { Normal, Zone, Lifted, LiftedOutsideZoneMode };

} // namespace

Q_DECLARE_METATYPE(Mode)

class TestPointerModes : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // Switching modes
    void regionButtonTogglesZoneMode();
    void regionButtonForgetsTheSelection();
    void regionButtonNeedsAPicture();
    void regionEntryTurnsZoneModeOnce();
    void regionEntryLeavesTheRestAlone();
    void regionButtonFollowsItsAppearanceNotTheEntry();
    void pickerButtonToggles();
    void pickerEntryIsThePickerButton();
    void pickerNeedsAPicture();

    // The pointer's shape
    void pointerShape_data();
    void pointerShape();
    void pointerIsSetBeforeAnythingElse();

    // Zone mode
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

    // Picking a colour
    void pickerChoosesOnRelease();
    void pickerRemovesTheBand();
    void pickerWinsOverZoneMode();
    void pickBesideThePictureChoosesNothing();

    // Dragging an edge
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

    // Any release
    void everyReleaseMarksThePictureModified();
    void releaseWithoutPictureDoesNothing();
    void releaseOverTheSnapshotTakesTheUndo();
    void releaseOverTheSnapshotNeedsAPicture();
    void mouseOfThePictureIsConnected();
};

void TestPointerModes::regionButtonTogglesZoneMode() {
    Window window;
    QSignalSpy locked(&window.modes, &PointerModes::backgroundColourLocked);
    window.block.TransparentPaste = true;
    window.imgColorPicker.setAppearance(1);
    window.modes.imgRegion_Click();
    QCOMPARE(window.imgRegion.Appearance(), 1);
    QVERIFY(window.mnuToolsRegion.isChecked());
    QVERIFY(!window.block.TransparentPaste);
    QCOMPARE(window.imgColorPicker.Appearance(), 0);
    QCOMPARE(locked.count(), 1);
    window.imgColorPicker.setAppearance(1);
    window.block.TransparentPaste = true;
    window.modes.imgRegion_Click();
    QCOMPARE(window.imgRegion.Appearance(), 0);
    QVERIFY(!window.mnuToolsRegion.isChecked());
    QVERIFY(window.block.TransparentPaste);
    QCOMPARE(window.imgColorPicker.Appearance(), 0);
    QCOMPARE(locked.count(), 2);
}

void TestPointerModes::regionButtonForgetsTheSelection() {
    Window window;
    window.liftZone();
    window.work.UndoAvailable = true;
    window.modes.imgRegion_Click();
    QVERIFY(!window.block.HasSelection);
    QVERIFY(!window.work.UndoAvailable);
    QCOMPARE(window.block.SelX2, 0.F);
    QCOMPARE(window.work.picDisp.Image(), window.work.picDisp.Picture());
}

void TestPointerModes::regionButtonNeedsAPicture() {
    Window window;
    QSignalSpy locked(&window.modes, &PointerModes::backgroundColourLocked);
    window.work.ImageLoaded = false;
    window.imgColorPicker.setAppearance(1);
    window.modes.imgRegion_Click();
    QCOMPARE(window.imgRegion.Appearance(), 0);
    QVERIFY(!window.mnuToolsRegion.isChecked());
    QCOMPARE(window.imgColorPicker.Appearance(), 1);
    QCOMPARE(locked.count(), 0);
}

void TestPointerModes::regionEntryTurnsZoneModeOnce() {
    Window window;
    for (const int appearance : {1, 0}) {
        window.mnuToolsRegion.trigger();
        QCOMPARE(window.mnuToolsRegion.isChecked(), appearance == 1);
        QCOMPARE(window.imgRegion.Appearance(), appearance);
    }
    for (const int appearance : {1, 0}) {
        window.modes.mnuToolsRegion_Click();
        QCOMPARE(window.mnuToolsRegion.isChecked(), appearance == 1);
        QCOMPARE(window.imgRegion.Appearance(), appearance);
    }
}

void TestPointerModes::regionEntryLeavesTheRestAlone() {
    Window window;
    QSignalSpy locked(&window.modes, &PointerModes::backgroundColourLocked);
    window.liftZone();
    locked.clear();
    window.imgColorPicker.setAppearance(1);
    window.modes.mnuToolsRegion_Click();
    QCOMPARE(window.imgRegion.Appearance(), 0);
    QVERIFY(window.block.HasSelection);
    QCOMPARE(window.imgColorPicker.Appearance(), 1);
    QCOMPARE(locked.count(), 0);
}

void TestPointerModes::regionButtonFollowsItsAppearanceNotTheEntry() {
    Window window;
    window.imgRegion.setAppearance(1); // as a paste does, which leaves the entry unchecked
    window.modes.mnuToolsRegion_Click();
    QVERIFY(window.mnuToolsRegion.isChecked());
    QCOMPARE(window.imgRegion.Appearance(), 1);
    window.mnuToolsRegion.setChecked(false);
    window.modes.imgRegion_Click();
    QCOMPARE(window.imgRegion.Appearance(), 0);
    QVERIFY(!window.mnuToolsRegion.isChecked());
}

void TestPointerModes::pickerButtonToggles() {
    Window window;
    window.liftZone();
    window.modes.imgColorPicker_Click();
    QCOMPARE(window.imgColorPicker.Appearance(), 1);
    QCOMPARE(window.imgRegion.Appearance(), 1);
    QVERIFY(window.block.HasSelection);
    window.modes.imgColorPicker_Click();
    QCOMPARE(window.imgColorPicker.Appearance(), 0);
}

void TestPointerModes::pickerEntryIsThePickerButton() {
    Window window;
    window.modes.Mnu_Pipette_Click();
    QCOMPARE(window.imgColorPicker.Appearance(), 1);
    window.modes.Mnu_Pipette_Click();
    QCOMPARE(window.imgColorPicker.Appearance(), 0);
}

void TestPointerModes::pickerNeedsAPicture() {
    Window window;
    window.work.ImageLoaded = false;
    window.modes.imgColorPicker_Click();
    QCOMPARE(window.imgColorPicker.Appearance(), 0);
    window.modes.Mnu_Pipette_Click();
    QCOMPARE(window.imgColorPicker.Appearance(), 0);
}

void TestPointerModes::pointerShape_data() {
    QTest::addColumn<Mode>("mode");
    QTest::addColumn<QPoint>("at");
    QTest::addColumn<int>("pointer");
    const auto add = [](const char* name, Mode mode, QPoint at, MousePointer pointer) {
        QTest::newRow(name) << mode << at << static_cast<int>(pointer);
    };
    // A picture of 100 x 80 pixels.
    add("normal", Mode::Normal, QPoint(50, 40), MousePointer::Default);
    add("before the right edge", Mode::Normal, QPoint(97, 40), MousePointer::Default);
    add("right edge", Mode::Normal, QPoint(98, 40), MousePointer::SizeWE);
    add("last column", Mode::Normal, QPoint(99, 0), MousePointer::SizeWE);
    add("before the bottom edge", Mode::Normal, QPoint(50, 77), MousePointer::Default);
    add("bottom edge", Mode::Normal, QPoint(50, 78), MousePointer::SizeNS);
    add("last row", Mode::Normal, QPoint(0, 79), MousePointer::SizeNS);
    add("corner", Mode::Normal, QPoint(98, 78), MousePointer::SizeWE);
    add("beyond the picture", Mode::Normal, QPoint(300, 300), MousePointer::SizeWE);
    add("zone", Mode::Zone, QPoint(50, 40), MousePointer::Cross);
    add("zone, right edge", Mode::Zone, QPoint(98, 40), MousePointer::SizeWE);
    add("zone, bottom edge", Mode::Zone, QPoint(50, 79), MousePointer::SizeNS);
    // The block goes from (20, 10) to (59, 39).
    add("inside the block", Mode::Lifted, QPoint(21, 11), MousePointer::Move);
    add("inside, lower right", Mode::Lifted, QPoint(58, 38), MousePointer::Move);
    add("left edge of the block", Mode::Lifted, QPoint(20, 20), MousePointer::Cross);
    add("right edge of the block", Mode::Lifted, QPoint(59, 20), MousePointer::Cross);
    add("upper edge of the block", Mode::Lifted, QPoint(30, 10), MousePointer::Cross);
    add("lower edge of the block", Mode::Lifted, QPoint(30, 39), MousePointer::Cross);
    add("no sizer with a block, right", Mode::Lifted, QPoint(99, 40), MousePointer::Cross);
    add("no sizer with a block, bottom", Mode::Lifted, QPoint(50, 79), MousePointer::Cross);
    add("block without zone mode", Mode::LiftedOutsideZoneMode, QPoint(30, 20), MousePointer::Default);
    add("sizer without zone mode", Mode::LiftedOutsideZoneMode, QPoint(99, 20), MousePointer::SizeWE);
}

void TestPointerModes::pointerShape() {
    QFETCH(Mode, mode);
    QFETCH(QPoint, at);
    QFETCH(int, pointer);
    Window window;
    if (mode == Mode::Zone)
        window.modes.imgRegion_Click();
    else if (mode != Mode::Normal)
        window.liftZone();
    if (mode == Mode::LiftedOutsideZoneMode)
        window.modes.mnuToolsRegion_Click(); // keeps the block
    window.modes.UpdatePointerShape(at);
    QCOMPARE(static_cast<int>(window.view.picDisp->pointer()), pointer);
}

void TestPointerModes::pointerIsSetBeforeAnythingElse() {
    // The shape of a step comes from where the block was before it.
    Window window;
    window.liftZone();
    window.press(30, 20);
    QCOMPARE(window.pointerAt(90, 70), MousePointer::Cross);
    QVERIFY(window.block.encloses(QPoint(90, 70)));
    QCOMPARE(window.pointerAt(90, 70), MousePointer::Move);
}

void TestPointerModes::bandLiftsTheFramedBlock() {
    Window window(grid({"yyyyyyyyyy", "yrgbyyyyyy", "ygbryyyyyy", "ybrgyyyyyy", "yyyyyyyyyy", "yyyyyyyyyy",
                        "yyyyyyyyyy", "yyyyyyyyyy"}));
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

void TestPointerModes::rejectedBandStaysDrawn() {
    Window window;
    window.modes.imgRegion_Click();
    for (const QPoint end : {QPoint(5, 5), QPoint(50, 31), QPoint(31, 50), QPoint(5, 60), QPoint(60, 5)}) {
        window.drag(QPoint(30, 30), end);
        QVERIFY(!window.block.HasSelection);
        QVERIFY(window.work.picDisp.Image() != window.work.picDisp.Picture());
        QVERIFY(window.block.SelX2 != 0 && window.block.SelY2 != 0);
    }
}

void TestPointerModes::otherButtonsDoNotPress() {
    Window window;
    window.modes.imgRegion_Click();
    window.moveTo(30, 30);
    window.modes.picDisp_MouseDown(Qt::RightButton, QPoint(30, 30));
    QVERIFY(!window.block.MouseIsDown);
    window.moveTo(99, 30);
    window.modes.picDisp_MouseDown(Qt::MiddleButton, QPoint(99, 30));
    QVERIFY(!window.block.ResizingWidth);
}

void TestPointerModes::noBandOutsideZoneMode() {
    Window window;
    window.drag(QPoint(20, 10), QPoint(59, 39));
    QVERIFY(!window.block.HasSelection);
    QCOMPARE(window.block.SelX2, 0.F);
    QCOMPARE(window.work.picDisp.Image(), window.work.picDisp.Picture());
}

void TestPointerModes::bandNeedsThePressedButton() {
    Window window;
    window.modes.imgRegion_Click();
    window.moveTo(20, 10);
    window.moveTo(59, 39);
    QCOMPARE(window.block.SelX2, 0.F);
    QCOMPARE(window.work.picDisp.Image(), window.work.picDisp.Picture());
}

void TestPointerModes::pressOnTheFrameGrabs_data() {
    QTest::addColumn<QPoint>("at");
    QTest::newRow("inside") << QPoint(30, 20);
    QTest::newRow("upper left") << QPoint(20, 10);
    QTest::newRow("lower right") << QPoint(59, 39);
    QTest::newRow("left edge") << QPoint(20, 30);
    QTest::newRow("lower edge") << QPoint(40, 39);
}

void TestPointerModes::pressOnTheFrameGrabs() {
    QFETCH(QPoint, at);
    Window window;
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

void TestPointerModes::pressBeyondTheFrameDrops_data() {
    QTest::addColumn<QPoint>("at");
    QTest::newRow("left") << QPoint(19, 20);
    QTest::newRow("above") << QPoint(30, 9);
    QTest::newRow("right") << QPoint(60, 20);
    QTest::newRow("below") << QPoint(30, 40);
    QTest::newRow("right edge of the picture") << QPoint(99, 40);
}

void TestPointerModes::pressBeyondTheFrameDrops() {
    QFETCH(QPoint, at);
    Window window;
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

void TestPointerModes::draggingStopsWithTheButton() {
    Window window;
    window.liftZone();
    window.drag(QPoint(30, 20), QPoint(35, 22));
    window.moveTo(70, 60);
    QCOMPARE(window.block.CurrX, 25.F);
    QCOMPARE(window.block.CurrY, 12.F);
}

void TestPointerModes::dropEndsTheGestureToo() {
    Window window;
    window.liftZone();
    window.press(80, 60);
    window.moveTo(90, 70);
    QVERIFY(!window.block.MouseIsDown);
    QCOMPARE(window.block.SelX2, 0.F);
    QCOMPARE(window.work.picDisp.Image(), window.work.picDisp.Picture());
}

void TestPointerModes::releaseAfterADragChangesNothing() {
    Window window;
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

void TestPointerModes::bandScrollsTheView_data() {
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

void TestPointerModes::bandScrollsTheView() {
    QFETCH(QPoint, to);
    QFETCH(bool, scrolls);
    Window window(QSize(600, 500), QSize(200, 150));
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

void TestPointerModes::blockDragDoesNotScroll() {
    Window window(QSize(600, 500), QSize(200, 150));
    window.liftZone();
    window.press(30, 20);
    window.moveTo(400, 300);
    QCOMPARE(window.block.CurrX, 390.F);
    QCOMPARE(window.view.HScroll1->value(), 0);
    QCOMPARE(window.view.VScroll1->value(), 0);
}

void TestPointerModes::pickerChoosesOnRelease() {
    Raster picture(QSize(100, 80), White);
    picture.setPixel(12, 34, Red);
    Window window(picture);
    QSignalSpy picked(&window.modes, &PointerModes::colourPicked);
    window.modes.imgColorPicker_Click();
    window.press(50, 50);
    QCOMPARE(picked.count(), 0);
    window.release(12, 34);
    QCOMPARE(picked.count(), 1);
    QCOMPARE(picked.first().first().toInt(), Red);
    QCOMPARE(window.imgColorPicker.Appearance(), 0);
    QCOMPARE(window.widget.focusWidget(), static_cast<QWidget*>(window.view.picDisp));
    window.release(12, 34);
    QCOMPARE(picked.count(), 1);
}

void TestPointerModes::pickerRemovesTheBand() {
    Window window;
    window.modes.imgRegion_Click();
    window.drag(QPoint(30, 30), QPoint(5, 5));
    window.modes.imgColorPicker_Click();
    QSignalSpy picked(&window.modes, &PointerModes::colourPicked);
    window.drag(QPoint(5, 5), QPoint(30, 30)); // on the band's first dot
    QCOMPARE(picked.first().first().toInt(), White);
    QCOMPARE(window.work.picDisp.Image(), Raster(QSize(100, 80), White));
    QCOMPARE(window.work.picDisp.Picture(), window.work.picDisp.Image());
}

void TestPointerModes::pickerWinsOverZoneMode() {
    Window window;
    window.modes.imgRegion_Click();
    window.modes.imgColorPicker_Click();
    window.drag(QPoint(20, 10), QPoint(59, 39));
    QVERIFY(!window.block.HasSelection);
    QVERIFY(!window.block.MouseIsDown);
    QCOMPARE(window.block.SelX2, 0.F);
    QCOMPARE(window.imgColorPicker.Appearance(), 0);
    QCOMPARE(window.imgRegion.Appearance(), 1);
}

void TestPointerModes::pickBesideThePictureChoosesNothing() {
    Window window;
    QSignalSpy picked(&window.modes, &PointerModes::colourPicked);
    window.modes.imgColorPicker_Click();
    window.drag(QPoint(50, 50), QPoint(-1, 50));
    QCOMPARE(picked.count(), 0);
    QCOMPARE(window.imgColorPicker.Appearance(), 0);
}

void TestPointerModes::rightEdgeFollowsTheMouse() {
    Window window;
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

void TestPointerModes::bottomEdgeFollowsTheMouse() {
    Window window;
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

void TestPointerModes::rightEdgeWinsInTheCorner() {
    Window window;
    window.press(99, 79);
    window.moveTo(109, 99);
    QCOMPARE(window.work.picDisp.innerSize(), QSize(110, 80));
}

void TestPointerModes::sizersComeBeforeThePicker() {
    Window window;
    window.modes.imgRegion_Click();
    window.modes.imgColorPicker_Click();
    QSignalSpy picked(&window.modes, &PointerModes::colourPicked);
    window.drag(QPoint(98, 40), QPoint(108, 40));
    QCOMPARE(window.work.picDisp.innerSize(), QSize(110, 80));
    QCOMPARE(picked.count(), 0);
    QCOMPARE(window.imgColorPicker.Appearance(), 0);
}

void TestPointerModes::edgeStopsAtOnePixelAndComesBack_data() {
    QTest::addColumn<int>("border");
    QTest::newRow("without border") << 0;
    QTest::newRow("with border") << 2;
}

void TestPointerModes::edgeStopsAtOnePixelAndComesBack() {
    QFETCH(int, border);
    Window window;
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

void TestPointerModes::edgeDragLetsTheWindowRepaint() {
    Window window;
    window.press(98, 40);
    bool repainted = false;
    QTimer::singleShot(0, this, [&] { repainted = true; });
    QThread::msleep(20); // a frame is due
    window.moveTo(120, 40);
    QVERIFY(repainted);
}

void TestPointerModes::endOfAnEdgeDragRebuildsThePicture() {
    Raster picture(QSize(100, 80), Red);
    Window window(picture);
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

void TestPointerModes::endOfAnEdgeDragRecomputesTheBars() {
    Window window(QSize(100, 80), QSize(90, 60));
    QCOMPARE(window.view.HScroll1->maximum(), 10);
    window.press(98, 40);
    window.moveTo(148, 40);
    QCOMPARE(window.view.HScroll1->maximum(), 10);
    window.release(148, 40);
    QCOMPARE(window.view.HScroll1->maximum(), 60);
}

void TestPointerModes::endOfAnEdgeDragLosesTheUndo() {
    Window window;
    QSignalSpy lost(&window.modes, &PointerModes::undoLost);
    window.drag(QPoint(50, 50), QPoint(60, 60));
    QCOMPARE(lost.count(), 0);
    window.drag(QPoint(50, 79), QPoint(50, 60));
    QCOMPARE(lost.count(), 1);
    QVERIFY(!window.block.ResizingHeight);
}

void TestPointerModes::widerPictureThanBarsCanScrollIsReported() {
    Window window(QSize(32800, 4), QSize(100, 100));
    QSignalSpy lost(&window.modes, &PointerModes::undoLost);
    window.press(32799, 0);
    window.moveTo(40000, 0);
    window.dialogs.answer(Answer::Ok);
    window.modes.picDisp_MouseUp(QPoint(40000, 0));
    QCOMPARE(window.dialogs.messages.size(), 1);
    QVERIFY(window.dialogs.messages.first().text.startsWith(QStringLiteral("picDisp_MouseUp")));
    QVERIFY(window.dialogs.messages.first().text.contains(QLatin1Char('6')));
    QVERIFY(!window.block.ResizingWidth);
    QCOMPARE(lost.count(), 1);
}

void TestPointerModes::everyReleaseMarksThePictureModified() {
    Window window;
    QVERIFY(!window.work.ImageModified);
    window.press(50, 50);
    QVERIFY(!window.work.ImageModified);
    window.modes.picDisp_MouseUp(QPoint(50, 50));
    QVERIFY(window.work.ImageModified);
}

void TestPointerModes::releaseWithoutPictureDoesNothing() {
    Window window;
    window.modes.imgRegion_Click();
    window.press(20, 10);
    window.moveTo(59, 39);
    window.work.ImageLoaded = false;
    window.modes.picDisp_MouseUp(QPoint(59, 39));
    QVERIFY(!window.work.ImageModified);
    QVERIFY(window.block.MouseIsDown);
    QVERIFY(!window.block.HasSelection);
}

void TestPointerModes::releaseOverTheSnapshotTakesTheUndo() {
    Window window(Raster(QSize(100, 80), Red));
    MousePointer meanwhile = MousePointer::Default;
    connect(&window.work.picUndo, &Surface::changed, this, [&] { meanwhile = screenMousePointer(); });
    Q_EMIT window.view.picSnap->mouseUp(Qt::LeftButton, QPoint(5, 5));
    QVERIFY(window.work.UndoAvailable);
    QCOMPARE(window.work.picUndo.Picture(), Raster(QSize(100, 80), Red));
    QCOMPARE(meanwhile, MousePointer::Hourglass);
    QCOMPARE(screenMousePointer(), MousePointer::Default);
    QVERIFY(!window.work.ImageModified);
}

void TestPointerModes::releaseOverTheSnapshotNeedsAPicture() {
    Window window;
    window.work.ImageLoaded = false;
    window.modes.picSnap_MouseUp(QPoint(5, 5));
    QVERIFY(!window.work.UndoAvailable);
}

void TestPointerModes::mouseOfThePictureIsConnected() {
    Window window;
    window.modes.imgRegion_Click();
    PictureBox& mouse = *window.view.picDisp;
    Q_EMIT mouse.mouseMove(QPoint(20, 10));
    Q_EMIT mouse.mouseDown(Qt::LeftButton, QPoint(20, 10));
    Q_EMIT mouse.mouseMove(QPoint(59, 39));
    Q_EMIT mouse.mouseUp(Qt::LeftButton, QPoint(59, 39));
    QVERIFY(window.block.HasSelection);
    QCOMPARE(window.work.picRegion.innerSize(), QSize(40, 30));
    window.modes.picDisp_Click();
    QVERIFY(window.block.HasSelection);
}

QTEST_MAIN(TestPointerModes)
#include "tst_pointermodes.moc"
