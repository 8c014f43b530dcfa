#include "editing/toolwindow.h"
#include "platform/screen.h"
#include "support/testprogram.h"

#include <QSignalSpy>
#include <QTest>

using namespace ovrano;

namespace {

constexpr Colour Red = rgb(255, 0, 0);

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
    void regionEntryMirrorsTheZoneMode();
    void pickerButtonToggles();
    void pickerEntryIsThePickerButton();
    void pickerNeedsAPicture();

    // The pointer's shape
    void pointerShape_data();
    void pointerShape();
    void pointerIsSetBeforeAnythingElse();

    // Picking a colour
    void pickerChoosesOnRelease();
    void pickerRemovesTheBand();
    void pickerWinsOverZoneMode();
    void pickBesideThePictureChoosesNothing();

    // Any release
    void everyReleaseMarksThePictureModified();
    void releaseWithoutPictureDoesNothing();
    void releaseOverTheSnapshotTakesTheUndo();
    void releaseOverTheSnapshotNeedsAPicture();
    void mouseOfThePictureIsConnected();
};

void TestPointerModes::regionButtonTogglesZoneMode() {
    ToolWindow window;
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
    ToolWindow window;
    window.liftZone();
    window.work.UndoAvailable = true;
    window.modes.imgRegion_Click();
    QVERIFY(!window.block.HasSelection);
    QVERIFY(!window.work.UndoAvailable);
    QCOMPARE(window.block.SelX2, 0.F);
    QCOMPARE(window.work.picDisp.Image(), window.work.picDisp.Picture());
}

void TestPointerModes::regionButtonNeedsAPicture() {
    ToolWindow window;
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
    ToolWindow window;
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
    ToolWindow window;
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

void TestPointerModes::regionEntryMirrorsTheZoneMode() {
    ToolWindow window;
    window.imgRegion.setAppearance(1); // as a paste does
    QVERIFY(window.mnuToolsRegion.isChecked());
    window.modes.mnuToolsRegion_Click();
    QVERIFY(!window.mnuToolsRegion.isChecked());
    QCOMPARE(window.imgRegion.Appearance(), 0);
}

void TestPointerModes::pickerButtonToggles() {
    ToolWindow window;
    window.liftZone();
    window.modes.imgColorPicker_Click();
    QCOMPARE(window.imgColorPicker.Appearance(), 1);
    QCOMPARE(window.imgRegion.Appearance(), 1);
    QVERIFY(window.block.HasSelection);
    window.modes.imgColorPicker_Click();
    QCOMPARE(window.imgColorPicker.Appearance(), 0);
}

void TestPointerModes::pickerEntryIsThePickerButton() {
    ToolWindow window;
    window.modes.Mnu_Pipette_Click();
    QCOMPARE(window.imgColorPicker.Appearance(), 1);
    window.modes.Mnu_Pipette_Click();
    QCOMPARE(window.imgColorPicker.Appearance(), 0);
}

void TestPointerModes::pickerNeedsAPicture() {
    ToolWindow window;
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
    ToolWindow window;
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
    ToolWindow window;
    window.liftZone();
    window.press(30, 20);
    QCOMPARE(window.pointerAt(90, 70), MousePointer::Cross);
    QVERIFY(window.block.encloses(QPoint(90, 70)));
    QCOMPARE(window.pointerAt(90, 70), MousePointer::Move);
}

void TestPointerModes::pickerChoosesOnRelease() {
    Raster picture(QSize(100, 80), White);
    picture.setPixel(12, 34, Red);
    ToolWindow window(picture);
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
    ToolWindow window;
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
    ToolWindow window;
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
    ToolWindow window;
    QSignalSpy picked(&window.modes, &PointerModes::colourPicked);
    window.modes.imgColorPicker_Click();
    window.drag(QPoint(50, 50), QPoint(-1, 50));
    QCOMPARE(picked.count(), 0);
    QCOMPARE(window.imgColorPicker.Appearance(), 0);
}

void TestPointerModes::everyReleaseMarksThePictureModified() {
    ToolWindow window;
    QVERIFY(!window.work.ImageModified);
    window.press(50, 50);
    QVERIFY(!window.work.ImageModified);
    window.modes.picDisp_MouseUp(QPoint(50, 50));
    QVERIFY(window.work.ImageModified);
}

void TestPointerModes::releaseWithoutPictureDoesNothing() {
    ToolWindow window;
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
    ToolWindow window(Raster(QSize(100, 80), Red));
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
    ToolWindow window;
    window.work.ImageLoaded = false;
    window.modes.picSnap_MouseUp(QPoint(5, 5));
    QVERIFY(!window.work.UndoAvailable);
}

void TestPointerModes::mouseOfThePictureIsConnected() {
    ToolWindow window;
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

OVRANO_TEST(TestPointerModes)
#include "tst_pointermodes.moc"
