#include "platform/textmask.h"
#include "support/processortime.h"
#include "support/testprogram.h"
#include "txt3dbench.h"

#include <QtTest>

using namespace ovrano;

namespace {

constexpr Colour Red = rgb(255, 0, 0);

/// Bold, italic, underline, strike-through.
QList<bool> styleOf(const QFont& font) {
    return {font.bold(), font.italic(), font.underline(), font.strikeOut()};
}

QList<bool> pressedOf(const Txt3D& dialog) {
    QList<bool> pressed;
    for (const int index : {BoldButton, ItalicButton, UnderlineButton, StrikeOutButton})
        pressed.append(dialog.Command3.at(static_cast<std::size_t>(index))->isChecked());
    return pressed;
}

} // namespace

class Txt3DTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void stateAtStart();
    void effectsAtStart();
    void listsAtStart();
    void firstOpeningHasNoText();
    void laterOpeningShowsTheTextLastApplied();
    void coloursStartAnewWithEachOpening();
    void textIsDrawnAtOnce();
    void outlineIsInTheSecondColour();
    void reliefIgnoresDepthAndAngle();
    void checkBoxesSwitchEachOther();
    void clearingTheExtrusionUnlocksTheOutline();
    void fontGoesToTheWorkPicture();
    void listedSizeGoesToTheWorkPicture();
    void badSizeKeepsTheOneBefore_data();
    void badSizeKeepsTheOneBefore();
    void stylesToggle();
    void normalEndsAllStyles();
    void coloursAreChosen();
    void cancelledColourChangesNothing();
    void manyCharacters();
    void manyVeryLargeCharacters();
    void charactersThatTheFontLacks();
};

void Txt3DTest::stateAtStart() {
    const Txt3DBench bench;
    const Txt3D& dialog = *bench.dialog;
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Texte 3D avec 2 couleurs"));
    QCOMPARE(dialog.ExamplePic.innerSize(), QSize(560, 220));
    QCOMPARE(dialog.Combo1->currentText(), QStringLiteral("Arial"));
    QCOMPARE(dialog.Text2->currentText(), QStringLiteral("250"));
    QVERIFY((dialog.ExamplePic.Font().styleStrategy() & QFont::PreferAntialias) != 0);
    QCOMPARE(dialog.ExamplePic.Font().pixelSize(), textPixelSize(dialog.Combo2->currentText().toDouble()));
    QCOMPARE(bench.shown(), bench.expected({}));
    QVERIFY(!bench.isBlank());
}

void Txt3DTest::effectsAtStart() {
    const Txt3DBench bench;
    const Txt3D& dialog = *bench.dialog;
    QCOMPARE(dialog.Slider1->minimum(), 1);
    QCOMPARE(dialog.Slider1->maximum(), 60);
    QCOMPARE(dialog.Slider1->value(), 12);
    QCOMPARE(dialog.lblDepth->text(), QStringLiteral("12"));
    QVERIFY(!dialog.Frame5->isEnabled());
    for (const QCheckBox* box : {dialog.Check1, dialog.Check2, dialog.Check3})
        QVERIFY(box->isEnabled() && !box->isChecked());
    QCOMPARE(pressedOf(dialog), QList<bool>(4, false));
}

void Txt3DTest::listsAtStart() {
    const Txt3DBench bench;
    const QComboBox& sizes = *bench.dialog->Combo2;
    QCOMPARE(sizes.count(), 94);
    QCOMPARE(sizes.itemText(0), QStringLiteral("6"));
    QCOMPARE(sizes.itemText(93), QStringLiteral("99"));
    const QComboBox& angles = *bench.dialog->Text2;
    QCOMPARE(angles.count(), 361);
    QCOMPARE(angles.itemText(0), QStringLiteral("0"));
    QCOMPARE(angles.itemText(360), QStringLiteral("360"));
    QVERIFY(bench.dialog->Combo1->findText(QStringLiteral("Liberation Sans")) >= 0);
}

void Txt3DTest::firstOpeningHasNoText() {
    const Txt3DBench bench{QString()};
    QCOMPARE(bench.dialog->Text1->text(), QString());
    QVERIFY(bench.isBlank());
}

void Txt3DTest::laterOpeningShowsTheTextLastApplied() {
    Txt3DBench bench{QString()};
    bench.dialog->Text1->setText(QStringLiteral("Joyeux Noël"));
    QCOMPARE(bench.memory.TwoColourText, QString());
    bench.dialog->Command1->click();
    QCOMPARE(bench.memory.TwoColourText, QStringLiteral("Joyeux Noël"));
    bench.open();
    QCOMPARE(bench.dialog->Text1->text(), QStringLiteral("Joyeux Noël"));
    bench.dialog->Text1->setText(QStringLiteral("Autre"));
    bench.dialog->Command2->click();
    QCOMPARE(bench.memory.TwoColourText, QStringLiteral("Joyeux Noël"));
}

void Txt3DTest::coloursStartAnewWithEachOpening() {
    Txt3DBench bench;
    const Colour face = bench.memory.TextColour, behind = bench.memory.Colour3D;
    QCOMPARE(face, bench.dialog->LblCoulT->BackColor());
    QCOMPARE(behind, bench.dialog->LblCoul3D->BackColor());
    QVERIFY(face != behind);
    bench.dialogs.pickColour(Red);
    bench.dialog->Command4->click();
    bench.open();
    QCOMPARE(bench.memory.TextColour, face);
    QCOMPARE(bench.dialog->LblCoulT->BackColor(), face);
}

void Txt3DTest::textIsDrawnAtOnce() {
    Txt3DBench bench;
    bench.dialog->Text1->setText(QStringLiteral("Autre"));
    QCOMPARE(bench.shown(), bench.expected({}));
    bench.dialog->Text1->clear();
    QVERIFY(bench.isBlank());
}

void Txt3DTest::outlineIsInTheSecondColour() {
    Txt3DBench bench;
    bench.dialog->Check1->click();
    QCOMPARE(bench.shown(), bench.expected(outlinePrints(bench.dialog->LblCoul3D->BackColor())));
    QVERIFY(!(bench.shown() == bench.expected({})));
    bench.dialog->Check1->click();
    QCOMPARE(bench.shown(), bench.expected({}));
}

void Txt3DTest::reliefIgnoresDepthAndAngle() {
    Txt3DBench bench;
    bench.dialog->Check3->click();
    const Raster relief = bench.shown();
    QCOMPARE(relief, bench.expected(reliefPrints()));
    bench.dialog->Slider1->setValue(60);
    bench.dialog->Text2->setEditText(QStringLiteral("370"));
    QCOMPARE(bench.angle(), QStringLiteral("370"));
    QCOMPARE(bench.shown(), relief);
    QCOMPARE(bench.memory.ExtrusionDepth, 0);
    QCOMPARE(bench.memory.ExtrusionAngle, 0.0);
}

void Txt3DTest::checkBoxesSwitchEachOther() {
    Txt3DBench bench;
    const Txt3D& dialog = *bench.dialog;
    const auto ticked = [&] {
        return QList<bool>{dialog.Check1->isChecked(), dialog.Check2->isChecked(),
                           dialog.Check3->isChecked()};
    };
    dialog.Check1->click();
    QCOMPARE(ticked(), QList<bool>({true, false, false}));
    dialog.Check3->click();
    QCOMPARE(ticked(), QList<bool>({false, false, true}));
    dialog.Check1->click();
    QCOMPARE(ticked(), QList<bool>({true, false, false}));
    dialog.Check2->click();
    QCOMPARE(ticked(), QList<bool>({false, true, false}));
    QVERIFY(!dialog.Check1->isEnabled() && dialog.Frame5->isEnabled());
    dialog.Check2->click();
    QVERIFY(dialog.Check1->isEnabled() && !dialog.Frame5->isEnabled());
    dialog.Check3->click();
    dialog.Check2->click(); // leaves the relief as it is
    QCOMPARE(ticked(), QList<bool>({false, true, true}));
    dialog.Check3->click(); // clears the extrusion also by being cleared
    QCOMPARE(ticked(), QList<bool>({false, false, false}));
}

void Txt3DTest::clearingTheExtrusionUnlocksTheOutline() {
    Txt3DBench bench;
    bench.dialog->Check2->click();
    bench.dialog->Check3->click();
    QVERIFY(!bench.dialog->Check2->isChecked());
    QVERIFY(bench.dialog->Check1->isEnabled());
    QVERIFY(!bench.dialog->Frame5->isEnabled());
    QCOMPARE(bench.shown(), bench.expected(reliefPrints()));
}

void Txt3DTest::fontGoesToTheWorkPicture() {
    Txt3DBench bench;
    const QFont before = bench.work.picDisp.Font();
    bench.dialog->Combo1->setEditText(QStringLiteral("Liberation Serif"));
    QCOMPARE(bench.work.picDisp.Font(), before);
    bench.dialog->Combo1_Click();
    QCOMPARE(bench.dialog->ExamplePic.Font().family(), QStringLiteral("Liberation Serif"));
    QCOMPARE(bench.work.picDisp.Font().family(), QStringLiteral("Liberation Serif"));
    QCOMPARE(bench.work.picDisp.Font().styleStrategy(), before.styleStrategy());
    QCOMPARE(bench.work.picDisp.Font().pixelSize(), before.pixelSize());
    QCOMPARE(bench.shown(), bench.expected({}));
}

void Txt3DTest::listedSizeGoesToTheWorkPicture() {
    Txt3DBench bench;
    const QString family = bench.work.picDisp.Font().family();
    bench.dialog->Combo2->setCurrentIndex(72 - 6);
    Q_EMIT bench.dialog->Combo2->activated(72 - 6);
    QCOMPARE(bench.dialog->ExamplePic.Font().pixelSize(), 96);
    QCOMPARE(bench.work.picDisp.Font().pixelSize(), 96);
    QCOMPARE(bench.work.picDisp.Font().family(), family);
    QCOMPARE(bench.shown(), bench.expected({}));
}

void Txt3DTest::badSizeKeepsTheOneBefore_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("pixels");
    QTest::addColumn<QString>("shown");
    QTest::newRow("empty") << QString() << 32 << QStringLiteral("24");
    QTest::newRow("letters") << QStringLiteral("abc") << 32 << QStringLiteral("24");
    QTest::newRow("negative") << QStringLiteral("-7") << 32 << QStringLiteral("24");
    QTest::newRow("a fraction") << QStringLiteral("7.5") << 10 << QStringLiteral("7.5");
    QTest::newRow("with its unit") << QStringLiteral("12 pt") << 16 << QStringLiteral("12");
    QTest::newRow("beyond the list") << QStringLiteral("150") << 200 << QStringLiteral("150");
    QTest::newRow("huge") << QStringLiteral("1e300") << 1332 << QStringLiteral("999");
}

void Txt3DTest::badSizeKeepsTheOneBefore() {
    QFETCH(QString, typed);
    Txt3DBench bench;
    for (const QString& size : {QStringLiteral("24"), typed}) {
        bench.dialog->Combo2->setEditText(size);
        bench.dialog->Combo2_Click();
    }
    QTEST(bench.dialog->ExamplePic.Font().pixelSize(), "pixels");
    QTEST(bench.dialog->Combo2->currentText(), "shown");
}

void Txt3DTest::stylesToggle() {
    Txt3DBench bench;
    QList<bool> expected(4, false);
    int flag = 0;
    for (const int index : {BoldButton, ItalicButton, UnderlineButton, StrikeOutButton}) {
        const Raster before = bench.shown();
        bench.dialog->Command3.at(static_cast<std::size_t>(index))->click();
        expected[flag++] = true;
        QCOMPARE(styleOf(bench.dialog->ExamplePic.Font()), expected);
        QCOMPARE(styleOf(bench.work.picDisp.Font()), expected);
        QCOMPARE(pressedOf(*bench.dialog), expected);
        QVERIFY(!(bench.shown() == before));
    }
    bench.dialog->Command3.at(ItalicButton)->click();
    expected[1] = false;
    QCOMPARE(styleOf(bench.work.picDisp.Font()), expected);
    QCOMPARE(pressedOf(*bench.dialog), expected);
    QCOMPARE(bench.shown(), bench.expected({}));
}

void Txt3DTest::normalEndsAllStyles() {
    Txt3DBench bench;
    const Raster plain = bench.shown();
    for (const int index : {BoldButton, ItalicButton, UnderlineButton, StrikeOutButton, NormalButton})
        bench.dialog->Command3.at(static_cast<std::size_t>(index))->click();
    QCOMPARE(styleOf(bench.dialog->ExamplePic.Font()), QList<bool>(4, false));
    QCOMPARE(styleOf(bench.work.picDisp.Font()), QList<bool>(4, false));
    QCOMPARE(pressedOf(*bench.dialog), QList<bool>(4, false));
    QVERIFY(!bench.dialog->Command3.at(NormalButton)->isChecked());
    QCOMPARE(bench.shown(), plain);
}

void Txt3DTest::coloursAreChosen() {
    Txt3DBench bench;
    Txt3D& dialog = *bench.dialog;
    const QList<Colour> before = {dialog.LblCoulT->BackColor(), dialog.LblCoul3D->BackColor(), White};
    bench.dialogs.pickColour(Red);
    bench.dialogs.pickColour(rgb(0, 200, 0));
    bench.dialogs.pickColour(rgb(10, 10, 60));
    dialog.Command4->click();
    dialog.Command5->click();
    dialog.Command6->click();
    QCOMPARE(bench.dialogs.colours, before);
    QCOMPARE(dialog.LblCoulT->BackColor(), Red);
    QCOMPARE(bench.memory.TextColour, Red);
    QCOMPARE(dialog.LblCoul3D->BackColor(), rgb(0, 200, 0));
    QCOMPARE(bench.memory.Colour3D, rgb(0, 200, 0));
    QCOMPARE(dialog.LblFond->BackColor(), rgb(10, 10, 60));
    QCOMPARE(dialog.ExamplePic.BackColor(), rgb(10, 10, 60));
    dialog.Check1->click();
    QCOMPARE(bench.shown(), bench.expected(outlinePrints(rgb(0, 200, 0))));
    // The captions stay readable.
    QCOMPARE(dialog.LblFond->palette().color(QPalette::WindowText), QColor(Qt::white));
}

void Txt3DTest::cancelledColourChangesNothing() {
    Txt3DBench bench;
    bench.dialog->Check1->click();
    const Raster before = bench.shown();
    const Colour face = bench.memory.TextColour, behind = bench.memory.Colour3D;
    for (QPushButton* button : {bench.dialog->Command4, bench.dialog->Command5, bench.dialog->Command6}) {
        bench.dialogs.cancelColour();
        button->click();
    }
    QCOMPARE(bench.dialogs.colours.size(), 3);
    QVERIFY(bench.dialogs.messages.isEmpty());
    QCOMPARE(bench.memory.TextColour, face);
    QCOMPARE(bench.memory.Colour3D, behind);
    QCOMPARE(bench.shown(), before);
}

void Txt3DTest::manyCharacters() {
    Txt3DBench bench;
    bench.extrude(QStringLiteral("45"));
    bench.dialog->Slider1->setValue(60);
    const testing::ProcessorTime time;
    bench.dialog->Text1->setText(QString(10000, u'M'));
    bench.dialog->DrawExample();
    QVERIFY2(time.milliseconds() < 1000, qPrintable(QString::number(time.milliseconds())));
    QVERIFY(bench.shown().pixel(559, 40) != White); // filled to the right edge
}

void Txt3DTest::manyVeryLargeCharacters() {
    Txt3DBench bench(QStringLiteral("ÉW").repeated(20));
    bench.dialog->Combo2->setEditText(QStringLiteral("999"));
    bench.dialog->Combo2_Click();
    const Raster few = bench.shown();
    QVERIFY(!bench.isBlank());
    const testing::ProcessorTime time;
    bench.dialog->Text1->setText(QStringLiteral("ÉW").repeated(16'383));
    QCOMPARE(bench.shown(), few);
    QVERIFY2(time.milliseconds() < 2000, qPrintable(QString::number(time.milliseconds())));
}

void Txt3DTest::charactersThatTheFontLacks() {
    Txt3DBench bench;
    bench.dialog->Check1->click();
    bench.dialog->Text1->setText(QStringLiteral("\u65e5\u672c \U0001F384 \u0e01"));
    QCOMPARE(bench.shown(), bench.expected(outlinePrints(bench.memory.Colour3D)));
    QVERIFY(!bench.isBlank());
}

OVRANO_TEST(Txt3DTest)
#include "tst_txt3d.moc"
