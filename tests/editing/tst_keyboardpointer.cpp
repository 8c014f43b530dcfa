#include "editing/keyboardpointer.h"
#include "editing/toolwindow.h"
#include "support/testprogram.h"

#include <QtTest>

using namespace ovrano;

namespace {

constexpr Colour Red = rgb(255, 0, 0);

/// A red picture of 100 × 80 pixels in a window that is shown, and nothing but keys.
struct KeyboardDesk : ToolWindow {
    KeyboardDesk()
        : ToolWindow(Raster(QSize(100, 80), Red), QSize(60, 50)) {
        widget.setGeometry(50, 50, 200, 200);
        widget.show();
        view.setScrollMax();
        view.picDisp->setFocus();
        QCursor::setPos(view.picDisp->mapToGlobal(QPoint(20, 10)));
        QCoreApplication::processEvents();
    }

    void strike(Qt::Key key, int times = 1, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        for (int i = 0; i < times; ++i)
            QTest::keyClick(view.picDisp, key, modifiers);
    }
    QRect zone() const { return block.zone(); }

    KeyboardPointer pointer{view};
};

} // namespace

class TestKeyboardPointer : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void zoneIsDrawn();
    void colourIsPicked();
    void edgeIsDragged();
    void pointerStaysOverThePicture();
    void viewFollows();
    void commandsWaitForTheEndOfTheGesture();
    void losingTheKeyboardEndsTheGesture();
    void mouseEndsTheGesture();
};

void TestKeyboardPointer::zoneIsDrawn() {
    KeyboardDesk desk;
    desk.modes.imgRegion_Click();
    desk.strike(Qt::Key_Right, 2);
    desk.strike(Qt::Key_Space);
    desk.strike(Qt::Key_Right, 3, Qt::ShiftModifier);
    desk.strike(Qt::Key_Down, 7);
    QVERIFY(!desk.block.HasSelection);
    desk.strike(Qt::Key_Space);
    QVERIFY(desk.block.HasSelection);
    QCOMPARE(desk.zone(), QRect(QPoint(22, 10), QPoint(52, 17)));
}

void TestKeyboardPointer::colourIsPicked() {
    KeyboardDesk desk;
    QSignalSpy picked(&desk.modes, &PointerModes::colourPicked);
    desk.modes.imgColorPicker_Click();
    desk.strike(Qt::Key_Space);
    QCOMPARE(picked.count(), 0); // the mouse picks when it lets go, too
    desk.strike(Qt::Key_Space);
    QCOMPARE(picked.count(), 1);
    QCOMPARE(picked.first().first().value<Colour>(), Red);
}

void TestKeyboardPointer::edgeIsDragged() {
    KeyboardDesk desk;
    desk.strike(Qt::Key_Right, 10, Qt::ShiftModifier); // as far as the edge
    desk.strike(Qt::Key_Space);
    desk.strike(Qt::Key_Right, 2, Qt::ShiftModifier);
    desk.strike(Qt::Key_Space);
    QCOMPARE(desk.work.picDisp.innerSize(), QSize(120, 80));
}

void TestKeyboardPointer::pointerStaysOverThePicture() {
    KeyboardDesk desk;
    QSignalSpy moved(desk.view.picDisp, &PictureBox::mouseMove);
    desk.strike(Qt::Key_Up, 20);
    QCOMPARE(moved.last().first().toPoint(), QPoint(20, 0));
    desk.strike(Qt::Key_Down, 9, Qt::ShiftModifier);
    QCOMPARE(moved.last().first().toPoint(), QPoint(20, 79));
}

void TestKeyboardPointer::viewFollows() {
    KeyboardDesk desk;
    QCOMPARE(desk.view.HScroll1->value(), 0);
    desk.strike(Qt::Key_Right, 7, Qt::ShiftModifier);
    QCOMPARE(desk.view.HScroll1->value(), 31); // 90 is the last column of 60
}

void TestKeyboardPointer::commandsWaitForTheEndOfTheGesture() {
    KeyboardDesk desk;
    desk.modes.imgRegion_Click();
    QKeyEvent question(QEvent::ShortcutOverride, Qt::Key_O, Qt::ControlModifier);
    question.ignore();
    QCoreApplication::sendEvent(desk.view.picDisp, &question);
    QVERIFY(!question.isAccepted());
    desk.strike(Qt::Key_Space);
    QCoreApplication::sendEvent(desk.view.picDisp, &question);
    QVERIFY(question.isAccepted());
}

void TestKeyboardPointer::losingTheKeyboardEndsTheGesture() {
    KeyboardDesk desk;
    desk.modes.imgRegion_Click();
    desk.strike(Qt::Key_Space);
    desk.strike(Qt::Key_Right, 2, Qt::ShiftModifier);
    desk.strike(Qt::Key_Down, 2, Qt::ShiftModifier);
    QFocusEvent lost(QEvent::FocusOut);
    QCoreApplication::sendEvent(desk.view.picDisp, &lost);
    QVERIFY(desk.block.HasSelection);
    QVERIFY(!desk.block.MouseIsDown);
}

void TestKeyboardPointer::mouseEndsTheGesture() {
    KeyboardDesk desk;
    desk.modes.imgRegion_Click();
    desk.strike(Qt::Key_Space);
    desk.strike(Qt::Key_Right, 2, Qt::ShiftModifier);
    desk.strike(Qt::Key_Down, 2, Qt::ShiftModifier);
    QTest::mousePress(desk.view.picDisp, Qt::RightButton);
    QVERIFY(desk.block.HasSelection);
    QTest::mouseRelease(desk.view.picDisp, Qt::RightButton);
}

OVRANO_TEST(TestKeyboardPointer)
#include "tst_keyboardpointer.moc"
