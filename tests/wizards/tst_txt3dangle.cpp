#include "support/processortime.h"
#include "support/testprogram.h"
#include "txt3dbench.h"

#include <QAbstractItemView>
#include <QClipboard>
#include <QGuiApplication>
#include <QScrollBar>
#include <QSignalSpy>
#include <QtTest>

using namespace ovrano;

class Txt3DAngleTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void extrudesAtTheAngle();
    void depthIsTheSlidersValue();
    void aFullTurnIsTakenAway_data();
    void aFullTurnIsTakenAway();
    void aReplacedAngleIsDrawnOnce();
    void hugeNumbersNeitherHangNorOverflow();
    void zeroKeepsTheLastDirection_data();
    void zeroKeepsTheLastDirection();
    void zeroRunsToTheRightAtFirst();
    void directionOutlivesTheDialog();
    void scrollingTheListDraws();
    void emptyAngleAtFirstRunsToTheRight();
    void keysForDigitsPointAndBackspaceAlone();
    void keysForTheFieldItselfWork();
    void typedTurnIsReplacedAsAWhole();
    void listGoesOnFromWhatIsShown();
    void lastOfTheListIsZero();
};

void Txt3DAngleTest::extrudesAtTheAngle() {
    Txt3DBench bench;
    bench.dialog->Check2->setChecked(true);
    QCOMPARE(bench.shown(), bench.expectedExtrusion(1.5708 + 6.2832 / (360 / 250.0)));
    QVERIFY(!(bench.shown() == bench.expected({})));
    for (const int degrees : {1, 90, 180, 270, 359}) {
        bench.extrude(QString::number(degrees));
        QCOMPARE(bench.memory.ExtrusionAngle, 1.5708 + 6.2832 / (360.0 / degrees));
        QCOMPARE(bench.shown(), bench.expectedExtrusion(bench.memory.ExtrusionAngle));
    }
}

void Txt3DAngleTest::depthIsTheSlidersValue() {
    Txt3DBench bench;
    bench.dialog->Slider1->setValue(30);
    QCOMPARE(bench.memory.ExtrusionDepth, 0); // read by a drawing with extrusion only
    bench.extrude(QStringLiteral("90"));
    QCOMPARE(bench.memory.ExtrusionDepth, 30);
    for (const int depth : {1, 60}) {
        bench.dialog->Slider1->setValue(depth);
        QCOMPARE(bench.memory.ExtrusionDepth, depth);
        QCOMPARE(bench.dialog->lblDepth->text(), QString::number(depth));
        QCOMPARE(bench.shown(), bench.expectedExtrusion(extrusionAngle(90)));
    }
}

void Txt3DAngleTest::aFullTurnIsTakenAway_data() {
    QTest::addColumn<QString>("put");
    QTest::addColumn<QString>("shown");
    QTest::newRow("370") << QStringLiteral("370") << QStringLiteral("10");
    QTest::newRow("two turns and 1") << QStringLiteral("721") << QStringLiteral("1");
    QTest::newRow("leading zero") << QStringLiteral("0370") << QStringLiteral("10");
    QTest::newRow("a million") << QStringLiteral("1000000") << QStringLiteral("280");
}

void Txt3DAngleTest::aFullTurnIsTakenAway() {
    QFETCH(QString, put);
    QFETCH(QString, shown);
    Txt3DBench bench;
    bench.extrude(put);
    QCOMPARE(bench.angle(), shown);
    QCOMPARE(bench.memory.ExtrusionAngle, 1.5708 + shown.toInt() * 6.2832 / 360);
    const Raster replaced = bench.shown();
    bench.extrude(QStringLiteral("5"));
    bench.extrude(shown);
    QCOMPARE(replaced, bench.shown());
}

void Txt3DAngleTest::aReplacedAngleIsDrawnOnce() {
    Txt3DBench bench;
    bench.extrude(QStringLiteral("5"));
    QSignalSpy changed(bench.dialog->Text2, &QComboBox::editTextChanged);
    bench.extrude(QStringLiteral("36000000010"));
    QCOMPARE(bench.angle(), QStringLiteral("10"));
    QCOMPARE(changed.size(), 2); // what was put in and what it became
}

void Txt3DAngleTest::hugeNumbersNeitherHangNorOverflow() {
    Txt3DBench bench;
    const testing::ProcessorTime time;
    bench.extrude(QStringLiteral("99999999999999999999"));
    QCOMPARE(bench.angle(), QStringLiteral("279"));
    bench.extrude(QStringLiteral("100000000000000000000000000007"));
    QCOMPARE(bench.angle(), QStringLiteral("287"));
    bench.extrude(QString(10000, u'9'));
    QCOMPARE(bench.angle(), QStringLiteral("279"));
    QCOMPARE(bench.shown(), bench.expectedExtrusion(extrusionAngle(279)));
    bench.extrude(QString(10000, u'0'));
    QCOMPARE(bench.angle(), QStringLiteral("0"));
    QVERIFY(time.milliseconds() < 5000);
}

void Txt3DAngleTest::zeroKeepsTheLastDirection_data() {
    QTest::addColumn<QString>("put");
    QTest::newRow("0") << QStringLiteral("0");
    QTest::newRow("00") << QStringLiteral("00");
    QTest::newRow("empty") << QString();
    QTest::newRow("360") << QStringLiteral("360");
}

void Txt3DAngleTest::zeroKeepsTheLastDirection() {
    QFETCH(QString, put);
    Txt3DBench bench;
    bench.extrude(QStringLiteral("137"));
    const Raster before = bench.shown();
    bench.extrude(put);
    QCOMPARE(bench.angle(), QStringLiteral("0"));
    QCOMPARE(bench.memory.ExtrusionAngle, extrusionAngle(137));
    QCOMPARE(bench.shown(), before);
}

void Txt3DAngleTest::zeroRunsToTheRightAtFirst() {
    Txt3DBench bench;
    bench.dialog->Text2->setEditText(QStringLiteral("0"));
    bench.dialog->Check2->setChecked(true);
    QCOMPARE(bench.memory.ExtrusionAngle, 0.0);
    QCOMPARE(bench.shown(), bench.expectedExtrusion(0));
}

void Txt3DAngleTest::directionOutlivesTheDialog() {
    Txt3DBench bench;
    bench.extrude(QStringLiteral("90"));
    bench.dialog->reject();
    bench.open();
    QCOMPARE(bench.angle(), QStringLiteral("250"));
    bench.dialog->Text2->setEditText(QStringLiteral("0"));
    bench.dialog->Check2->setChecked(true);
    QCOMPARE(bench.shown(), bench.expectedExtrusion(extrusionAngle(90)));
}

void Txt3DAngleTest::scrollingTheListDraws() {
    Txt3DBench bench;
    bench.show();
    bench.extrude(QStringLiteral("45"));
    bench.dialog->Text2->showPopup();
    QScrollBar& bar = *bench.dialog->Text2->view()->verticalScrollBar();
    QTRY_VERIFY(bar.maximum() > 0);
    bench.dialog->ExamplePic.Line(QPointF(0, 0), QPointF(0, 0), Black, BoxStyle::Filled);
    bar.setValue(bar.value() == 0 ? 1 : 0);
    QCOMPARE(bench.dialog->ExamplePic.Point(0, 0), White);
    bench.dialog->Text2->hidePopup();
}

void Txt3DAngleTest::emptyAngleAtFirstRunsToTheRight() {
    Txt3DBench bench;
    bench.dialog->Text2->setEditText(QString());
    bench.dialog->Check2->setChecked(true);
    QCOMPARE(bench.angle(), QStringLiteral("0"));
    QCOMPARE(bench.memory.ExtrusionAngle, 0.0);
    QCOMPARE(bench.shown(), bench.expectedExtrusion(0));
}

void Txt3DAngleTest::keysForDigitsPointAndBackspaceAlone() {
    for (const char16_t accepted : std::u16string_view(u"0123456789.\b")) {
        auto code = static_cast<std::int16_t>(accepted);
        Txt3D::Text2_KeyPress(code);
        QCOMPARE(code, static_cast<std::int16_t>(accepted));
    }
    for (const char16_t refused : std::u16string_view(u"a-+, /:eé\u0661\uff11")) {
        auto code = static_cast<std::int16_t>(refused);
        Txt3D::Text2_KeyPress(code);
        QCOMPARE(code, std::int16_t{0});
    }
    // By the keyboard, where it really is.
    Txt3DBench bench;
    bench.show();
    bench.dialog->Check2->setChecked(true);
    bench.dialog->Text2->setFocus();
    bench.dialog->Text2->lineEdit()->selectAll();
    Txt3DBench::type(QStringLiteral("a1-2 b"));
    QCOMPARE(bench.angle(), QStringLiteral("12"));
    Txt3DBench::press(Qt::Key_Backspace);
    QCOMPARE(bench.angle(), QStringLiteral("1"));
    bench.dialogs.answer(Answer::Ok);
    Txt3DBench::type(QStringLiteral("."));
    QCOMPARE(bench.angle(), QStringLiteral("1."));
    QCOMPARE(bench.dialogs.messages.size(), 1);
}

void Txt3DAngleTest::keysForTheFieldItselfWork() {
    Txt3DBench bench;
    bench.show();
    bench.dialog->Check2->setChecked(true);
    bench.dialog->Text2->setFocus();
    QGuiApplication::clipboard()->setText(QStringLiteral("77"));
    // With Ctrl, keys type control characters.
    QTest::sendKeyEvent(QTest::Click, bench.dialog->Text2, Qt::Key_A, QStringLiteral("\u0001"),
                        Qt::ControlModifier);
    QTest::sendKeyEvent(QTest::Click, bench.dialog->Text2, Qt::Key_V, QStringLiteral("\u0016"),
                        Qt::ControlModifier);
    QCOMPARE(bench.angle(), QStringLiteral("77"));
    Txt3DBench::press(Qt::Key_Escape);
    QVERIFY(!bench.dialog->isVisible());
}

void Txt3DAngleTest::typedTurnIsReplacedAsAWhole() {
    Txt3DBench bench;
    bench.show();
    bench.dialog->Check2->setChecked(true);
    bench.dialog->Text2->setFocus();
    bench.dialog->Text2->lineEdit()->selectAll();
    Txt3DBench::press(Qt::Key_Delete);
    QCOMPARE(bench.angle(), QStringLiteral("0"));
    Txt3DBench::type(QStringLiteral("9"));
    QCOMPARE(bench.angle(), QStringLiteral("9"));
    Txt3DBench::type(QStringLiteral("0"));
    QCOMPARE(bench.angle(), QStringLiteral("90"));
}

void Txt3DAngleTest::listGoesOnFromWhatIsShown() {
    Txt3DBench bench;
    bench.show();
    bench.dialog->Check2->setChecked(true);
    bench.dialog->Text2->setFocus();
    bench.extrude(QStringLiteral("100"));
    Txt3DBench::press(Qt::Key_Down);
    QCOMPARE(bench.angle(), QStringLiteral("101"));
    QCOMPARE(bench.shown(), bench.expectedExtrusion(extrusionAngle(101)));
}

void Txt3DAngleTest::lastOfTheListIsZero() {
    Txt3DBench bench;
    bench.show();
    bench.extrude(QStringLiteral("359"));
    bench.dialog->Text2->setFocus();
    Txt3DBench::press(Qt::Key_Down);
    QCOMPARE(bench.angle(), QStringLiteral("0"));
    QCOMPARE(bench.shown(), bench.expectedExtrusion(extrusionAngle(359)));
    Txt3DBench::press(Qt::Key_Down);
    QCOMPARE(bench.angle(), QStringLiteral("1"));
}

OVRANO_TEST(Txt3DAngleTest)
#include "tst_txt3dangle.moc"
