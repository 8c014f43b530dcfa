#include "platform/numbers.h"
#include "platform/screen.h"
#include "support/processortime.h"
#include "support/testprogram.h"
#include "wizards/rotfontsbench.h"
#include "wizards/screenofsize.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTest>

#include <cmath>
#include <limits>

using namespace ovrano;

class RotFontsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void stateAtStart();
    void fieldsAtStart();
    void textsAreThoseOfTheDialog();
    void listsAreFilled();
    void everyControlHasItsName();
    void controlsAreReadAloud();
    void tabGoesThroughTheFieldsInOrder();
    void mnemonicsDiffer();
    void fitsOnASmallScreen();
    void captionsCanBeReadOnEveryColour();

    void pictureGrowsWithTheWindow();
    void smallerWindowLosesNothingForGood();
    void defaultCentreIsTheMiddleOfThePicture();
    void halfPixelOfTheCentreIsRoundedToTheEvenOne();

    void drawsWithTheSettings();
    void largestSizeIs999Points();
    void badNumbersNeverFail_data();
    void badNumbersNeverFail();
    void numbersAreReadAsFarAsTheyGo();
    void lettersTheFontDoesNotHaveAndLongTextsAreDrawn();
    void waitForWaits();
};

void RotFontsTest::stateAtStart() {
    RotFontsBench bench;
    const RotFonts& dialog = bench.dialog;
    QCOMPARE(dialog.objectName(), QStringLiteral("RotFonts"));
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Texte Circulaire"));
    QCOMPARE(dialog.Picture1.innerSize(), QSize(420, 420));
    QCOMPARE(dialog.LblCoulTexte->BackColor(), rgb(0, 64, 128));
    QCOMPARE(dialog.LblFond->BackColor(), White);
    QVERIFY(!dialog.Check1->isChecked());
    QCOMPARE(dialog.AutoRefresh, 0);
    QCOMPARE(bench.memory.Cancelled, 0);
}

void RotFontsTest::fieldsAtStart() {
    RotFontsBench bench;
    const RotFonts& dialog = bench.dialog;
    const QStringList texts = {dialog.Text1->text(),
                               dialog.txtRaggio->currentText(),
                               dialog.txtSettore->currentText(),
                               dialog.txtDegree->currentText(),
                               dialog.txtSize->currentText(),
                               dialog.txtFont->currentText(),
                               dialog.TxtCX->text(),
                               dialog.TxtCY->text()};
    const QStringList expected = {
        "EXEMPLE DE TEXTE - Circulaire - ", "120", "360", "0", "18", "Arial", "210", "210"};
    QCOMPARE(texts, expected);
}

void RotFontsTest::textsAreThoseOfTheDialog() {
    RotFontsBench bench;
    const RotFonts& d = bench.dialog;
    const std::pair<const QLabel*, const char*> labels[] = {
        {d.Label3, "Texte : "},           {d.Label1, "Rayon : "},   {d.Label2, "Secteur angulaire : "},
        {d.Label4, "Angle de départ : "}, {d.Label5, "Coord X : "}, {d.Label6, "Coord Y : "},
        {d.LblCoulTexte, "Texte"},        {d.LblFond, "Fond"},      {d.Label7, "Taille de la police : "}};
    for (const auto& [label, text] : labels)
        QCOMPARE(label->text(), QString::fromUtf8(text));
    const std::pair<const QGroupBox*, const char*> frames[] = {{d.Frame1, "Paramètres "},
                                                               {d.Frame2, "Couleurs "},
                                                               {d.Frame3, "Police"},
                                                               {d.Frame4, "Coordonnées Centre "},
                                                               {d.Frame5, "Angles && Rayon"}};
    for (const auto& [frame, title] : frames)
        QCOMPARE(frame->title(), QString::fromUtf8(title));
    const std::tuple<const QPushButton*, const char*, const char*> buttons[] = {
        {d.Command1, "Dessiner", "Dessine avec les paramètres en cours"},
        {d.Command3, "&Appliquer...", "Applique avec l'image en cours"},
        {d.Command4, "Défaut", "Coordonnées du centre à défaut"},
        {d.Command5, "Fermer", "Ferme l'ovrano de texte circulaire"},
        {d.cmdColor, "...", "Changer la couleur de texte"},
        {d.Command2, "...", "Changer la couleur de fond"}};
    for (const auto& [button, text, toolTip] : buttons) {
        QCOMPARE(button->text(), QString::fromUtf8(text));
        QCOMPARE(button->toolTip(), QString::fromUtf8(toolTip));
    }
    QCOMPARE(d.Check1->text(), QStringLiteral("Actualisation automatique"));
}

void RotFontsTest::listsAreFilled() {
    RotFontsBench bench;
    const auto items = [](const QComboBox& box) {
        QStringList texts;
        for (int i = 0; i < box.count(); ++i)
            texts.append(box.itemText(i));
        return texts;
    };
    const auto numbers = [](int first, int last, int step) {
        QStringList texts;
        for (int number = first; number <= last; number += step)
            texts.append(QString::number(number));
        return texts;
    };
    QCOMPARE(items(*bench.dialog.txtRaggio), numbers(10, 200, 2));
    QCOMPARE(items(*bench.dialog.txtSettore), numbers(10, 360, 5));
    QCOMPARE(items(*bench.dialog.txtDegree), numbers(0, 360, 1));
    QCOMPARE(items(*bench.dialog.txtSize), numbers(6, 60, 1));
    QCOMPARE(items(*bench.dialog.txtFont), screenFonts());
}

void RotFontsTest::everyControlHasItsName() {
    RotFontsBench bench;
    const QStringList names = {
        "Text1",    "Label3",    "Frame1",     "Frame2",    "Frame3",        "Frame4",       "Frame5",
        "Frame6",   "txtRaggio", "txtSettore", "txtDegree", "TxtCX",         "TxtCY",        "Command1",
        "Command2", "Command3",  "Command4",   "Command5",  "cmdColor",      "LblCoulTexte", "LblFond",
        "Check1",   "txtFont",   "txtSize",    "Picture1",  "lblPictureSize"};
    for (const QString& name : names)
        QVERIFY2(bench.dialog.findChildren<QWidget*>(name).size() == 1, qPrintable(name));
}

void RotFontsTest::controlsAreReadAloud() {
    RotFontsBench bench;
    const RotFonts& d = bench.dialog;
    for (const QWidget* control : std::initializer_list<const QWidget*>{
             d.Text1, d.txtRaggio, d.txtSettore, d.txtDegree, d.TxtCX, d.TxtCY, d.txtFont, d.txtSize,
             d.cmdColor, d.Command2, d.Frame6->picture})
        QVERIFY2(!control->accessibleName().isEmpty(), qPrintable(control->objectName()));
    QVERIFY(d.TxtCX->accessibleName() != d.TxtCY->accessibleName());
    QCOMPARE(d.Label3->buddy(), d.Text1);
    QCOMPARE(d.Label1->buddy(), d.txtRaggio);
    QCOMPARE(d.Label2->buddy(), d.txtSettore);
    QCOMPARE(d.Label4->buddy(), d.txtDegree);
    QCOMPARE(d.Label5->buddy(), d.TxtCX);
    QCOMPARE(d.Label6->buddy(), d.TxtCY);
    QCOMPARE(d.Label7->buddy(), d.txtSize);
}

void RotFontsTest::tabGoesThroughTheFieldsInOrder() {
    RotFontsBench bench;
    const RotFonts& d = bench.dialog;
    bench.open();
    const QWidget* const order[] = {d.Text1,    d.txtRaggio, d.txtSettore, d.txtDegree, d.TxtCX,
                                    d.TxtCY,    d.Command4,  d.txtFont,    d.txtSize,   d.cmdColor,
                                    d.Command2, d.Check1,    d.Command1,   d.Command3,  d.Command5};
    for (const QWidget* control : order) {
        QCOMPARE(QApplication::focusWidget(), control);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(QApplication::focusWidget(), d.Text1);
}

void RotFontsTest::mnemonicsDiffer() {
    RotFontsBench bench;
    QStringList keys;
    for (const QAbstractButton* button : bench.dialog.findChildren<QAbstractButton*>())
        if (!button->shortcut().isEmpty())
            keys.append(button->shortcut().toString());
    QCOMPARE(keys, QStringList{QStringLiteral("Alt+A")});
}

void RotFontsTest::fitsOnASmallScreen() {
    RotFontsBench bench;
    bench.open();
    constexpr QSize Frame(16, 60); // what a desktop adds around a window, generously
    const QSize size = bench.dialog.size() + Frame;
    QVERIFY(size.width() <= 1366 && size.height() <= 728);
    QCOMPARE(bench.preview().innerSize(), QSize(420, 420));
}

void RotFontsTest::captionsCanBeReadOnEveryColour() {
    RotFontsBench bench;
    ColourBox& box = *bench.dialog.LblFond;
    for (const Colour colour : {White, Black, rgb(255, 255, 0), rgb(0, 0, 255), rgb(128, 128, 128)}) {
        box.setBackColor(colour);
        const QColor caption = box.palette().color(QPalette::WindowText);
        QVERIFY(std::abs(qGray(caption.rgb()) - qGray(toPixel(colour))) > 100);
    }
}

void RotFontsTest::pictureGrowsWithTheWindow() {
    RotFontsBench bench;
    bench.open();
    QCOMPARE(bench.dialog.lblPictureSize->text(), QStringLiteral("Nouvelle image : 420 × 420 pixels"));
    bench.enlarge(QSize(101, 50));
    QCOMPARE(bench.preview().innerSize(), QSize(521, 470));
    QCOMPARE(bench.dialog.Frame6->picture->size(), QSize(521, 470));
    QCOMPARE(bench.dialog.lblPictureSize->text(), QStringLiteral("Nouvelle image : 521 × 470 pixels"));
    QCOMPARE(bench.dialog.TxtCX->text(), QStringLiteral("210"));
    QVERIFY(!bench.isBlank());
}

void RotFontsTest::smallerWindowLosesNothingForGood() {
    RotFontsBench bench;
    bench.dialog.TxtCX->setText(QStringLiteral("500"));
    bench.open();
    bench.enlarge(QSize(300, 100));
    const Raster before = bench.preview().Image();
    QVERIFY(inkBox(before).right() > 450);
    bench.dialog.TxtCX->setText(QStringLiteral("100")); // typed and not drawn yet
    bench.enlarge(QSize(-300, -100));
    bench.enlarge(QSize(300, 100));
    QCOMPARE(bench.preview().Image(), before);
}

void RotFontsTest::defaultCentreIsTheMiddleOfThePicture() {
    RotFontsBench bench;
    bench.open();
    bench.enlarge(QSize(101, 50));
    QVERIFY(!bench.draws([&] { bench.dialog.Command4->click(); }));
    QCOMPARE(bench.dialog.TxtCX->text(), QStringLiteral("260.5"));
    QCOMPARE(bench.dialog.TxtCY->text(), QStringLiteral("235"));
    bench.dialog.Check1->setChecked(true);
    bench.dialog.TxtCX->setText(QStringLiteral("7"));
    QVERIFY(bench.draws([&] { bench.dialog.Command4->click(); }));
    QCOMPARE(bench.dialog.TxtCX->text(), QStringLiteral("260.5"));
}

void RotFontsTest::halfPixelOfTheCentreIsRoundedToTheEvenOne() {
    RotFontsBench bench;
    bench.dialog.Check1->setChecked(true);
    bench.dialog.TxtCX->setText(QStringLiteral("260.5"));
    const Raster half = bench.preview().Image();
    bench.dialog.TxtCX->setText(QStringLiteral("261"));
    QVERIFY(!(bench.preview().Image() == half));
    bench.dialog.TxtCX->setText(QStringLiteral("260"));
    QCOMPARE(bench.preview().Image(), half);
}

void RotFontsTest::drawsWithTheSettings() {
    RotFontsBench bench;
    RotFonts& d = bench.dialog;
    d.Text1->setText(QStringLiteral("Été !"));
    d.txtDegree->setEditText(QStringLiteral("12.5"));
    d.txtRaggio->setEditText(QStringLiteral("77.25"));
    d.txtSettore->setEditText(QStringLiteral("-200"));
    d.TxtCX->setText(QStringLiteral("180"));
    d.TxtCY->setText(QStringLiteral("222"));
    d.txtSize->setEditText(QStringLiteral("31"));
    d.txtFont->setEditText(QStringLiteral("Liberation Serif"));
    d.LblCoulTexte->setBackColor(rgb(200, 10, 60));
    d.Command1->click();

    Surface expected(QStringLiteral("expected"), QSize(420, 420));
    expected.setFont(textFont(QStringLiteral("Liberation Serif"), 31, false, false));
    expected.setForeColor(rgb(200, 10, 60));
    PrintRoundText(expected, QStringLiteral("Été !"), 12.5F, 77.25F, 180, 222, -200);
    QVERIFY(!isBlank(expected.Image()));
    QCOMPARE(d.Picture1.Image(), expected.Image());

    d.Command1->click(); // draws over nothing that was there
    QCOMPARE(d.Picture1.Image(), expected.Image());
}

void RotFontsTest::largestSizeIs999Points() {
    RotFontsBench bench;
    for (const char* size : {"999", "1000", "1e9", "1e999"}) {
        bench.dialog.txtSize->setEditText(QLatin1String(size));
        bench.dialog.Command1_Click();
        QCOMPARE(bench.preview().Font().pixelSize(), 1332);
    }
    bench.dialog.txtSize->setEditText(QStringLiteral("7.875"));
    bench.dialog.Command1_Click();
    QCOMPARE(bench.preview().Font().pixelSize(), 10); // 10.5
}

void RotFontsTest::badNumbersNeverFail_data() {
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("text");
    for (const char* field : {"txtRaggio", "txtSettore", "txtDegree", "TxtCX", "TxtCY", "txtSize"})
        for (const char* text :
             {"", "   ", "abc", "-5", "0", "1e9", "-99999", "1e39", "-1e308", "1e999", "12,5", "&HFF"})
            QTest::addRow("%s \"%s\"", field, text)
                << QString::fromLatin1(field) << QString::fromLatin1(text);
}

void RotFontsTest::badNumbersNeverFail() {
    QFETCH(const QString, field);
    QFETCH(const QString, text);
    RotFontsBench bench;
    if (auto* box = bench.dialog.findChild<QComboBox*>(field))
        box->setEditText(text);
    else
        bench.dialog.findChild<QLineEdit*>(field)->setText(text);
    QVERIFY(bench.draws([&] { bench.dialog.Command1->click(); }));
    QVERIFY(bench.dialogs.messages.isEmpty());
    const bool overflow = numericValue(text) > 32'767 || numericValue(text) < -32'768;
    if (overflow && field.startsWith(QStringLiteral("TxtC")))
        QVERIFY(bench.isBlank());
    if (!overflow && field == QStringLiteral("txtSettore"))
        QVERIFY(!bench.isBlank());
    bench.dialog.Command3->click();
    QVERIFY(bench.dialogs.messages.isEmpty());
    QCOMPARE(bench.work.picDisp.Image(), bench.preview().Image());
}

void RotFontsTest::numbersAreReadAsFarAsTheyGo() {
    RotFontsBench bench;
    bench.dialog.Command1_Click();
    const Raster expected = bench.preview().Image();
    bench.dialog.txtRaggio->setEditText(QStringLiteral(" 1 20 px"));
    bench.dialog.TxtCX->setText(QStringLiteral("209.6"));
    bench.dialog.txtDegree->setEditText(QStringLiteral("abc"));
    bench.dialog.Command1_Click();
    QCOMPARE(bench.preview().Image(), expected);
}

void RotFontsTest::lettersTheFontDoesNotHaveAndLongTextsAreDrawn() {
    RotFontsBench bench;
    const testing::ProcessorTime time;
    for (const QString& text :
         {QString::fromUtf8("\xE3\x81\x82\xF0\x9F\x91\x8D"), QString(10'000, QLatin1Char('w'))}) {
        bench.dialog.Text1->setText(text);
        bench.dialog.Command1_Click();
        QVERIFY(!bench.isBlank());
    }
    QVERIFY(time.milliseconds() < 5000);
    bench.dialog.Text1->clear();
    bench.dialog.Command1_Click();
    QVERIFY(bench.isBlank());
}

void RotFontsTest::waitForWaits() {
    QElapsedTimer timer;
    timer.start();
    RotFonts::waitFor(0.15F);
    QVERIFY(timer.elapsed() >= 150);
    QVERIFY(timer.elapsed() < 10'000);
    for (const float delay : {0.0F, -3.0F, std::numeric_limits<float>::infinity(), std::nanf("")}) {
        timer.restart();
        RotFonts::waitFor(delay);
        QVERIFY(timer.elapsed() < 1000);
    }
}

OVRANO_TEST_RUN((runOnScreen<RotFontsTest, 1366, 768>))
#include "tst_rotfonts.moc"
