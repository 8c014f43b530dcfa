#include "support/testprogram.h"
#include "txt3dbench.h"

#include <QSignalSpy>
#include <QtTest>

using namespace ovrano;

class Txt3DApplyTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void applyHandsThePictureOver();
    void applyTellsTheWindow();
    void applyTouchesNeitherUndoNorModification();
    void leavingChangesNothing_data();
    void leavingChangesNothing();
    void typedFontAndSizeAreTakenFirst_data();
    void typedFontAndSizeAreTakenFirst();
    void leavingTakesNothing_data() { leavingChangesNothing_data(); }
    void leavingTakesNothing();
    void closesWhileAFieldHasTheKeyboard();
    void picturesFrameGoesBeforeThePicture();
};

void Txt3DApplyTest::applyHandsThePictureOver() {
    Txt3DBench bench;
    bench.extrude(QStringLiteral("90"));
    const Raster shown = bench.shown();
    bench.dialog->Command1->click();
    QCOMPARE(bench.dialog->result(), int(QDialog::Accepted));
    QCOMPARE(bench.work.picDisp.Image(), shown);
    QCOMPARE(bench.work.picDisp.Picture(), shown);
    QCOMPARE(bench.work.picDisp.innerSize(), QSize(560, 220));
    QCOMPARE(bench.work.picSnap.innerSize(), bench.work.picDisp.innerSize());
    QCOMPARE(bench.work.picMask.innerSize(), QSize(560, 560));
    QCOMPARE(bench.memory.Cancelled, std::int16_t{0});
}

void Txt3DApplyTest::applyTellsTheWindow() {
    Txt3DBench bench;
    QSignalSpy size(&bench.work, &WorkPicture::imageSizeShown);
    QSignalSpy picker(&bench.handover, &Handover::pickerReleased);
    QSignalSpy locked(&bench.handover, &Handover::backgroundColourLocked);
    QSignalSpy replaced(&bench.handover, &Handover::pictureReplaced);
    bench.view.HScroll1->setRange(0, 1000);
    bench.view.HScroll1->setValue(7);
    bench.dialog->Command1->click();
    QCOMPARE(size.last().first().toString(), QStringLiteral("L=560  H=220"));
    QCOMPARE(bench.view.HScroll1->value(), 0);
    QCOMPARE(bench.view.VScroll1->value(), 0);
    QCOMPARE(picker.size(), 1);
    QCOMPARE(locked.size(), 1);
    QCOMPARE(replaced.size(), 1);
}

void Txt3DApplyTest::applyTouchesNeitherUndoNorModification() {
    for (const bool modified : {false, true}) {
        Txt3DBench bench;
        bench.work.ImageModified = modified;
        bench.work.picUndo.setInnerSize(QSize(3, 4));
        bench.dialog->Command1->click();
        QCOMPARE(bench.work.ImageModified, modified);
        QVERIFY(!bench.work.UndoAvailable);
        QCOMPARE(bench.work.picUndo.innerSize(), QSize(3, 4));
    }
}

void Txt3DApplyTest::leavingChangesNothing_data() {
    QTest::addColumn<int>("way");
    QTest::newRow("button") << 0;
    QTest::newRow("close box") << 1;
    QTest::newRow("Escape") << 2;
}

void Txt3DApplyTest::leavingChangesNothing() {
    QFETCH(int, way);
    Txt3DBench bench;
    const Raster before = bench.work.picDisp.Image();
    bench.show();
    bench.dialog->Text1->setText(QStringLiteral("Autre"));
    QCOMPARE(bench.memory.Cancelled, std::int16_t{0});
    if (way == 0)
        bench.dialog->Command2->click();
    else if (way == 1)
        bench.dialog->close();
    else
        Txt3DBench::press(Qt::Key_Escape);
    QVERIFY(!bench.dialog->isVisible());
    QCOMPARE(bench.memory.Cancelled, std::int16_t{1});
    QCOMPARE(bench.work.picDisp.Image(), before);
    QCOMPARE(bench.memory.TwoColourText, QStringLiteral("Été"));
}

void Txt3DApplyTest::typedFontAndSizeAreTakenFirst_data() {
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("typed");
    QTest::newRow("size") << "Combo2"
                          << "33";
    QTest::newRow("font") << "Combo1"
                          << "Liberation Mono";
}

void Txt3DApplyTest::typedFontAndSizeAreTakenFirst() {
    QFETCH(const QString, box);
    QFETCH(const QString, typed);
    Txt3DBench bench;
    bench.show();
    const Raster before = bench.shown();
    auto* field = bench.dialog->findChild<QComboBox*>(box);
    field->setFocus();
    field->lineEdit()->selectAll();
    Txt3DBench::type(typed);
    QCOMPARE(bench.shown(), before); // not taken yet
    Txt3DBench::press(Qt::Key_A, Qt::AltModifier);
    QTRY_COMPARE(bench.dialog->result(), int(QDialog::Accepted));
    QVERIFY(!(bench.shown() == before));
    QCOMPARE(bench.work.picDisp.Image(), bench.shown());
}

void Txt3DApplyTest::leavingTakesNothing() {
    QFETCH(int, way);
    Txt3DBench bench;
    bench.show();
    bench.dialogs.answer(Answer::Ok);
    bench.extrude(QStringLiteral("12.5")); // would be reported by each drawing
    bench.dialog->Combo2->setFocus();
    bench.dialog->Combo2->lineEdit()->selectAll();
    Txt3DBench::type(QStringLiteral("33"));
    const QFont before = bench.work.picDisp.Font();
    if (way == 0)
        bench.dialog->Command2->click();
    else if (way == 1)
        bench.dialog->close();
    else
        Txt3DBench::press(Qt::Key_Escape);
    QVERIFY(!bench.dialog->isVisible());
    QCOMPARE(bench.work.picDisp.Font(), before);
    QCOMPARE(bench.dialogs.messages.size(), 1);
}

void Txt3DApplyTest::closesWhileAFieldHasTheKeyboard() {
    Txt3DBench bench;
    bench.show();
    bench.dialogs.answer(Answer::Ok);
    bench.extrude(QStringLiteral("12.5"));
    bench.dialog->Combo2->setFocus();
    bench.dialog->Combo2->setEditText(QStringLiteral("33"));
    const QFont before = bench.work.picDisp.Font();
    bench.dialog.reset(); // the field loses the keyboard meanwhile
    QCOMPARE(bench.work.picDisp.Font(), before);
    QCOMPARE(bench.dialogs.messages.size(), 1);
}

void Txt3DApplyTest::picturesFrameGoesBeforeThePicture() {
    Txt3DBench bench;
    QStringList gone;
    connect(bench.dialog->Frame6, &QObject::destroyed, this, [&] { gone.append(QStringLiteral("frame")); });
    connect(&bench.dialog->ExamplePic, &QObject::destroyed, this,
            [&] { gone.append(QStringLiteral("picture")); });
    bench.dialog.reset();
    QCOMPARE(gone, QStringList({QStringLiteral("frame"), QStringLiteral("picture")}));
}

OVRANO_TEST(Txt3DApplyTest)
#include "tst_txt3dapply.moc"
