#include "support/testprogram.h"
#include "txt3dbench.h"

#include <QtTest>

using namespace ovrano;

namespace {

void expectNumbersOnly(const MessageBox& box) {
    QCOMPARE(box.text, QStringLiteral("Entrez uniquement des nombres !"));
    QCOMPARE(box.title, QStringLiteral("Erreur"));
    QCOMPARE(box.buttons, Buttons::Ok);
    QCOMPARE(box.icon, Icon::Critical);
}

} // namespace

/// What happens to an angle that is no whole number: the example stays empty, and the user is told of it when
/// it has to do with what was just done.
class Txt3DBadAngleTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void otherThanDigitsIsReported_data();
    void otherThanDigitsIsReported();
    void onlyAnExtrusionLooksAtTheAngle();
    void badAngleIsNotReportedByEnlarging();
    void badAngleIsReportedOnceForEachChoice_data();
    void badAngleIsReportedOnceForEachChoice();
    void badAngleIsNotReportedByTheWay_data();
    void badAngleIsNotReportedByTheWay();
    void reportsNeverStack();
};

void Txt3DBadAngleTest::otherThanDigitsIsReported_data() {
    QTest::addColumn<QString>("put");
    QTest::newRow("a point") << QStringLiteral("12.5");
    QTest::newRow("blank") << QStringLiteral(" ");
    QTest::newRow("blank behind") << QStringLiteral("12 ");
    QTest::newRow("letters") << QStringLiteral("abc");
    QTest::newRow("negative") << QStringLiteral("-90");
    QTest::newRow("exponent") << QStringLiteral("1E+20");
}

void Txt3DBadAngleTest::otherThanDigitsIsReported() {
    QFETCH(QString, put);
    Txt3DBench bench;
    bench.extrude(QStringLiteral("90"));
    bench.dialogs.answer(Answer::Ok);
    bench.extrude(put);
    QCOMPARE(bench.dialogs.messages.size(), 1);
    expectNumbersOnly(bench.dialogs.messages.first());
    QVERIFY(bench.isBlank());
    QCOMPARE(bench.angle(), put);
    QCOMPARE(bench.memory.ExtrusionAngle, extrusionAngle(90));
    bench.extrude(QStringLiteral("45"));
    QCOMPARE(bench.shown(), bench.expectedExtrusion(extrusionAngle(45)));
}

void Txt3DBadAngleTest::onlyAnExtrusionLooksAtTheAngle() {
    Txt3DBench bench;
    bench.dialog->Text2->setEditText(QStringLiteral("abc"));
    QCOMPARE(bench.shown(), bench.expected({}));
    bench.dialog->Check3->click();
    bench.dialog->Check2->click(); // the relief goes first
    QVERIFY(bench.dialog->Check2->isChecked() && bench.dialog->Check3->isChecked());
    QCOMPARE(bench.shown(), bench.expected(reliefPrints()));
    QVERIFY(bench.dialogs.messages.isEmpty());
}

void Txt3DBadAngleTest::badAngleIsNotReportedByEnlarging() {
    Txt3DBench bench;
    bench.show();
    bench.dialogs.answer(Answer::Ok);
    bench.extrude(QStringLiteral("12.5"));
    bench.dialog->resize(bench.dialog->size() + QSize(40, 30));
    QCoreApplication::processEvents();
    QCOMPARE(bench.dialogs.messages.size(), 1);
    QCOMPARE(bench.dialog->ExamplePic.innerSize(), QSize(600, 250));
    QVERIFY(bench.isBlank());
}

void Txt3DBadAngleTest::badAngleIsReportedOnceForEachChoice_data() {
    QTest::addColumn<QString>("choice");
    for (const char* choice : {"another bad angle", "effect", "Return in the size", "Return in the font",
                               "size left", "style", "listed size"})
        QTest::newRow(choice) << QString::fromLatin1(choice);
}

void Txt3DBadAngleTest::badAngleIsReportedOnceForEachChoice() {
    QFETCH(const QString, choice);
    Txt3DBench bench;
    bench.show();
    Txt3D& dialog = *bench.dialog;
    bench.dialogs.answer(Answer::Ok);
    bench.extrude(QStringLiteral("12.5"));
    bench.dialogs.answer(Answer::Ok);
    if (choice == QStringLiteral("another bad angle")) {
        dialog.Text2->setFocus();
        Txt3DBench::type(QStringLiteral("7"));
    } else if (choice == QStringLiteral("effect")) {
        dialog.Check2->click(); // off: nothing to report
        QVERIFY(!bench.isBlank());
        dialog.Check2->click();
    } else if (choice == QStringLiteral("style")) {
        dialog.Command3.at(BoldButton)->click();
    } else if (choice == QStringLiteral("listed size")) {
        dialog.Combo2->setFocus();
        Txt3DBench::press(Qt::Key_Down);
    } else {
        QComboBox& box = choice.endsWith(QStringLiteral("font")) ? *dialog.Combo1 : *dialog.Combo2;
        box.setFocus();
        box.lineEdit()->selectAll();
        Txt3DBench::type(&box == dialog.Combo1 ? QStringLiteral("Liberation Mono") : QStringLiteral("33"));
        Txt3DBench::press(choice.startsWith(QStringLiteral("Return")) ? Qt::Key_Return : Qt::Key_Tab);
    }
    QCOMPARE(bench.dialogs.messages.size(), 2);
    QVERIFY(bench.isBlank());
}

void Txt3DBadAngleTest::badAngleIsNotReportedByTheWay_data() {
    QTest::addColumn<int>("way");
    QTest::newRow("letters of the text") << 0;
    QTest::newRow("slider by keys") << 1;
    QTest::newRow("slider by the mouse") << 2;
    QTest::newRow("Return without a change") << 3;
    QTest::newRow("size left by a press on the slider") << 4;
    QTest::newRow("colour") << 5;
}

void Txt3DBadAngleTest::badAngleIsNotReportedByTheWay() {
    QFETCH(const int, way);
    Txt3DBench bench;
    bench.show();
    Txt3D& dialog = *bench.dialog;
    bench.dialogs.answer(Answer::Ok);
    bench.extrude(QStringLiteral("12.5"));
    if (way == 0) {
        dialog.Text1->setFocus();
        Txt3DBench::type(QStringLiteral("abc"));
    } else if (way == 1) {
        dialog.Slider1->setFocus();
        Txt3DBench::press(Qt::Key_Right);
    } else if (way == 2) {
        QTest::mousePress(dialog.Slider1, Qt::LeftButton, {}, QPoint(dialog.Slider1->width() - 5, 8));
        QTest::mouseRelease(dialog.Slider1, Qt::LeftButton);
    } else if (way == 3) {
        dialog.Combo2->setFocus();
        Txt3DBench::press(Qt::Key_Return);
    } else if (way == 4) {
        dialog.Combo2->setFocus();
        dialog.Combo2->lineEdit()->selectAll();
        Txt3DBench::type(QStringLiteral("33"));
        QTest::mousePress(dialog.windowHandle(), Qt::LeftButton, {},
                          dialog.Slider1->mapTo(&dialog, dialog.Slider1->rect().center()));
        QCOMPARE(dialog.ExamplePic.Font().pixelSize(), 44); // taken all the same
        QTest::mouseRelease(dialog.windowHandle(), Qt::LeftButton, {},
                            dialog.Slider1->mapTo(&dialog, dialog.Slider1->rect().center()));
    } else {
        bench.dialogs.pickColour(rgb(1, 2, 3));
        dialog.Command4->click();
    }
    QCOMPARE(bench.dialogs.messages.size(), 1);
    QVERIFY(bench.isBlank());
}

void Txt3DBadAngleTest::reportsNeverStack() {
    // While the box is shown, something draws again.
    struct Redrawing : AnsweringDialogs {
        Txt3D* dialog = nullptr;
        Answer messageBox(const MessageBox& box) override {
            const Answer given = AnsweringDialogs::messageBox(box);
            dialog->DrawExample();
            return given;
        }
    } dialogs;
    Txt3DBench bench;
    Txt3D dialog(bench.handover, bench.memory, dialogs);
    dialogs.dialog = &dialog;
    dialogs.answer(Answer::Ok);
    dialog.Check2->setChecked(true);
    dialog.Text2->setEditText(QStringLiteral("1.5"));
    QCOMPARE(dialogs.messages.size(), 1);
}

OVRANO_TEST(Txt3DBadAngleTest)
#include "tst_txt3dbadangle.moc"
