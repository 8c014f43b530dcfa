#include "scenarios/program.h"
#include "support/testprogram.h"

#include <QClipboard>
#include <QComboBox>
#include <QCursor>
#include <QMimeData>

using namespace ovrano;
using namespace ovrano::testing;

/// Zones, blocks, the picker, edges and scrolling with a real mouse.
class TestEditing : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void zoneIsFramedDraggedAndDropped();
    void bandToTheLeftLiftsNothing();
    void stampIsDraggedWithTheViewScrolled();
    void pickerTakesOneColour();
    void zoneIsFramedByKeysAlone();
    void rightEdgeIsDragged();
    void edgeBeyondTheLeftSideLeavesOnePixel();
    void wheelScrollsBothWays();
    void bandScrollsTheView();
    void sizeBoxTakesDigitsOnly();
    void blockIsMovedByKeys();
    void textFieldLeavesThePicturesKeys();
};

void TestEditing::zoneIsFramedDraggedAndDropped() {
    Program program;
    program.play([&] {
        program.user.click(QStringLiteral("imgRegion"));
        program.user.input.drag(program.at(100, 80), program.at(149, 109));
        QVERIFY(program.window.block().HasSelection);
        QCOMPARE(program.window.work().picRegion.innerSize(), QSize(50, 30));
        QCOMPARE(program.window.view().picDisp->cursor().shape(), Qt::CrossCursor); // on the corner
        program.user.input.drag(program.at(120, 90), program.at(220, 190));
        QCOMPARE(program.pixel(210, 190), Red);
        QCOMPARE(program.pixel(200, 180), Red);
        QCOMPARE(program.pixel(110, 90), White); // the hole has the background colour
        QCOMPARE(program.window.view().picDisp->cursor().shape(), Qt::SizeAllCursor);
        program.user.input.click(program.at(300, 50));
        QVERIFY(!program.window.block().HasSelection);
        QCOMPARE(program.pixel(210, 190), Red);
        QVERIFY(program.window.work().ImageModified);
    });
}

void TestEditing::bandToTheLeftLiftsNothing() {
    Program program;
    program.play([&] {
        program.user.click(QStringLiteral("imgRegion"));
        program.user.input.drag(program.at(200, 150), program.at(100, 80));
        QVERIFY(!program.window.block().HasSelection);
        QCOMPARE(program.pixel(120, 90), Red);
        QVERIFY(program.window.work().ImageModified);
    });
}

void TestEditing::stampIsDraggedWithTheViewScrolled() {
    Program program(QSize(3000, 2000));
    program.play([&] {
        program.user.click(QStringLiteral("cmd1Color3DProceed"));
        program.user.waitFor([&] { return program.window.block().HasSelection; },
                             QStringLiteral("the stamp"));
        program.user.input.drag(program.at(60, 60), program.at(400, 300));
        program.user.input.wheel(program.at(900, 300), -5);
        QCOMPARE(program.window.view().VScroll1->value(), 240);
        const QPoint before(int(program.window.block().CurrX), int(program.window.block().CurrY));
        program.user.input.drag(program.at(410, 310), program.at(510, 610));
        QCOMPARE(QPoint(int(program.window.block().CurrX), int(program.window.block().CurrY)),
                 before + QPoint(100, 300));
        program.user.input.click(program.at(1000, 400));
        QVERIFY(!program.window.block().HasSelection);
        QCOMPARE(program.pixel(110, 90), Red); // nothing is left where the stamp first was
    });
}

void TestEditing::pickerTakesOneColour() {
    Program program;
    program.play([&] {
        program.user.click(QStringLiteral("imgColorPicker"));
        program.user.input.click(program.at(120, 90));
        QCOMPARE(program.label("lblTextColor"), QStringLiteral("RVB(255, 0, 0)  Hex: #FF0000"));
        program.user.input.click(program.at(10, 10));
        QCOMPARE(program.label("lblTextColor"), QStringLiteral("RVB(255, 0, 0)  Hex: #FF0000"));
    });
}

void TestEditing::zoneIsFramedByKeysAlone() {
    Program program;
    program.play([&] {
        X11Input& input = program.user.input;
        program.user.click(QStringLiteral("imgRegion"));
        program.window.view().picDisp->setFocus();
        input.moveTo(program.at(98, 80));
        for (const auto key : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Space})
            input.strike(key);
        for (int i = 0; i < 3; ++i) {
            input.strike(Qt::SHIFT | Qt::Key_Right);
            input.strike(Qt::SHIFT | Qt::Key_Down);
        }
        input.strike(Qt::Key_Space);
        QVERIFY(program.window.block().HasSelection);
        const QRect zone = program.window.block().zone();
        QCOMPARE(zone.size(), QSize(31, 31));
        // Where the pointer was before the first key is told in whole pixels; both coordinates are rounded.
        const QPoint off = zone.topLeft() - QPoint(100, 80);
        QVERIFY(std::max(std::abs(off.x()), std::abs(off.y())) < program.window.devicePixelRatioF());
        input.strike(Qt::Key_Right); // moves the block now
        QCOMPARE(program.window.block().zone().topLeft(), zone.topLeft() + QPoint(1, 0));
        QCOMPARE(program.pixel(zone.left(), zone.top()), White);
    });
}

void TestEditing::rightEdgeIsDragged() {
    Program program;
    program.window.work().TakeUndoSnapshot();
    program.window.mnuEdit_Click();
    program.play([&] {
        program.user.input.moveTo(program.at(398, 150));
        QCOMPARE(program.window.view().picDisp->cursor().shape(), Qt::SizeHorCursor);
        program.user.input.drag(program.at(398, 150), program.at(448, 160));
        QCOMPARE(program.window.work().picDisp.innerSize(), QSize(450, 300));
        QCOMPARE(program.label("lblImageSize"), QStringLiteral("L=450  H=300"));
        QCOMPARE(program.pixel(430, 100), White);
        QCOMPARE(program.pixel(390, 100), Blue);
        // The snapshot is gone, and with it every way to put an empty picture over this one.
        QVERIFY(!program.window.findChild<QAbstractButton*>(QStringLiteral("CmdAnnul"))->isEnabled());
        program.user.input.strike(Qt::CTRL | Qt::Key_Z);
        QCOMPARE(program.pixel(390, 100), Blue);
        program.user.input.drag(program.at(200, 298), program.at(200, 278));
        QCOMPARE(program.label("lblImageSize"), QStringLiteral("W=450  H=280"));
    });
}

void TestEditing::edgeBeyondTheLeftSideLeavesOnePixel() {
    Program program;
    program.play([&] {
        program.user.input.drag(program.at(398, 150), program.at(-60, 150));
        QCOMPARE(program.window.work().picDisp.innerSize(), QSize(1, 300));
        program.user.input.drag(program.at(0, 150), program.at(99, 150));
        QCOMPARE(program.window.work().picDisp.innerSize(), QSize(100, 300));
    });
}

void TestEditing::wheelScrollsBothWays() {
    Program program(QSize(3000, 2000));
    program.play([&] {
        program.user.input.wheel(program.at(300, 300), -2);
        QCOMPARE(program.window.view().picDisp->pos(), QPoint(0, -96));
        program.user.input.wheel(program.at(300, 300), 1);
        QCOMPARE(program.window.view().picDisp->pos(), QPoint(0, -48));
    });
}

void TestEditing::bandScrollsTheView() {
    Program program(QSize(3000, 2000));
    program.play([&] {
        program.user.click(QStringLiteral("imgRegion"));
        const QPoint from = program.at(600, 400);
        const QRect visible = program.user.place(QStringLiteral("picZ"));
        program.user.input.drag(from, QPoint(from.x() + 50, visible.bottom() + 30), 20);
        QVERIFY(program.window.view().VScroll1->value() > 0);
        QVERIFY(program.window.block().HasSelection);
    });
}

void TestEditing::sizeBoxTakesDigitsOnly() {
    Program program;
    const auto* box = program.window.findChild<QComboBox*>(QStringLiteral("txtFontSize"));
    program.play([&] {
        program.user.retype(QStringLiteral("txtFontSize"), QStringLiteral("3a-.6"));
        QCOMPARE(box->currentText(), QStringLiteral("36"));
        QGuiApplication::clipboard()->setText(QStringLiteral("x7"));
        program.user.input.strike(Qt::CTRL | Qt::Key_V);
        QCOMPARE(box->currentText(), QStringLiteral("36"));
        QGuiApplication::clipboard()->setText(QStringLiteral("7"));
        program.user.input.strike(Qt::CTRL | Qt::Key_A);
        program.user.input.strike(Qt::CTRL | Qt::Key_V);
        QCOMPARE(box->currentText(), QStringLiteral("7"));
        program.user.input.strike(Qt::Key_Backspace);
        QCOMPARE(box->currentText(), QStringLiteral("6")); // the smallest size
    });
}

void TestEditing::blockIsMovedByKeys() {
    Program program;
    program.play([&] {
        X11Input& input = program.user.input;
        program.user.click(QStringLiteral("imgRegion"));
        input.drag(program.at(100, 80), program.at(149, 109));
        input.strike(Qt::Key_Right);
        input.strike(Qt::SHIFT | Qt::Key_Right);
        input.strike(Qt::SHIFT | Qt::Key_Down);
        input.strike(Qt::Key_Up);
        QCOMPARE(QPointF(program.window.block().CurrX, program.window.block().CurrY), QPointF(111, 89));
        QCOMPARE(program.pixel(111, 89), Red);
        QCOMPARE(program.pixel(105, 85), White); // the hole
        for (int i = 0; i < 20; ++i)
            input.strike(Qt::SHIFT | Qt::Key_Left);
        QCOMPARE(program.window.block().CurrX, -40.0F); // as far as the mouse could drag it
        input.strike(Qt::Key_Return);
        QVERIFY(!program.window.block().HasSelection);
        QCOMPARE(program.pixel(9, 89), Red);
        input.strike(Qt::Key_Right); // nothing is lifted any more
        QCOMPARE(program.pixel(10, 89), Blue);
    });
}

void TestEditing::textFieldLeavesThePicturesKeys() {
    Program program;
    auto* field = program.window.findChild<QLineEdit*>(QStringLiteral("txbWriteText"));
    program.play([&] {
        X11Input& input = program.user.input;
        program.user.click(QStringLiteral("txbWriteText"));
        input.strike(Qt::CTRL | Qt::Key_C); // nothing is selected: the picture
        QVERIFY(QGuiApplication::clipboard()->mimeData()->hasFormat(QStringLiteral("image/png")));
        input.strike(Qt::CTRL | Qt::Key_V);
        QVERIFY(program.window.work().ImageModified);
        program.user.click(QStringLiteral("txbWriteText"));
        input.strike(Qt::CTRL | Qt::Key_A);
        input.strike(Qt::CTRL | Qt::Key_X);
        QCOMPARE(field->text(), QString());
        input.strike(Qt::CTRL | Qt::Key_V);
        QCOMPARE(field->text(), QStringLiteral("Votre texte"));
        input.strike(Qt::CTRL | Qt::Key_Z);
        QCOMPARE(field->text(), QString());
    });
}

OVRANO_TEST(TestEditing)
#include "tst_editing.moc"
