#include "platform/screen.h"
#include "platform/textmask.h"
#include "support/testprogram.h"
#include "text/stylebench.h"
#include "text/stylepanel.h"

#include <QTest>

using namespace ovrano;

namespace {

void expectInputError(const MessageBox& box, const QString& text) {
    QCOMPARE(box.text, text);
    QCOMPARE(box.title, QStringLiteral("Erreur"));
    QCOMPARE(box.buttons, Buttons::Ok);
    QCOMPARE(box.icon, Icon::Information);
}

} // namespace

class StylePanelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void stateAtStart();
    void arialIsShownEvenWhenItIsNotListed();
    void fitsIntoItsPlace();
    void largeLettersAreShownSmallerNotCut();
    void controlsHaveNames();

    void missingPictureTextOrSizeIsReported_data();
    void missingPictureTextOrSizeIsReported();
    void sizesInRangeAreAccepted_data();
    void sizesInRangeAreAccepted();

    void sampleFollowsTheSize_data();
    void sampleFollowsTheSize();
    void sampleIsPrintedAsTheTextWillBe();
    void surfaceGetsFontAndColour();

    void unavailableFontIsReportedButStays();
    void availableFontIsNotReported_data();
    void availableFontIsNotReported();
    void choosingAFontFromTheListShowsIt();
    void typedFontIsShownAtOnce();
    void typedFontIsCheckedByReturn();

    void togglesFlip();
};

void StylePanelTest::stateAtStart() {
    StyleBench bench;
    const StylePanel& panel = bench.panel;

    QCOMPARE(panel.txbWriteText->text(), QStringLiteral("Votre texte"));
    QCOMPARE(bench.size(), QStringLiteral("24"));
    QCOMPARE(panel.txtFontSize->count(), 94);
    QCOMPARE(panel.txtFontSize->itemText(0), QStringLiteral("6"));
    QCOMPARE(panel.txtFontSize->itemText(93), QStringLiteral("99"));
    QCOMPARE(panel.imgBold->Appearance(), 0);
    QCOMPARE(panel.imgItalic->Appearance(), 0);
    QCOMPARE(panel.imgBold->toolTip(), QStringLiteral("Gras"));
    QCOMPARE(panel.imgItalic->toolTip(), QStringLiteral("Italique"));
    QCOMPARE(panel.lblTextSample->text(), QStringLiteral("Aa"));
    QCOMPARE(panel.lblTextSample->BackColor(), White);
    QCOMPARE(panel.picTextColor->BackColor(), Black);
    QCOMPARE(panel.lblTextColor->text(), QStringLiteral("RVB(0, 0, 0)  Hex: #000000"));
    QCOMPARE(panel.cmdTextColor->text(), QStringLiteral("..."));
    QVERIFY(bench.dialogs.messages.isEmpty());
}

void StylePanelTest::arialIsShownEvenWhenItIsNotListed() {
    StyleBench bench;

    QCOMPARE(bench.panel.cboFontName->currentText(), QStringLiteral("Arial"));
    QStringList listed;
    for (int i = 0; i < bench.panel.cboFontName->count(); ++i)
        listed.append(bench.panel.cboFontName->itemText(i));
    QCOMPARE(listed, screenFonts());
}

void StylePanelTest::fitsIntoItsPlace() {
    StyleBench bench;
    bench.panel.show();
    bench.panel.txtFontSize->setEditText(QStringLiteral("99"));
    bench.panel.DispDialogColor(White);

    QVERIFY2(bench.panel.sizeHint().height() <= 136,
             qPrintable(QString::number(bench.panel.sizeHint().height())));
    const int width = bench.panel.minimumSizeHint().width();
    QVERIFY2(width <= 440, qPrintable(QString::number(width)));
    const int sampleWidth = bench.panel.shpTextSample->width();
    QVERIFY2(sampleWidth >= 90 && sampleWidth <= 110, qPrintable(QString::number(sampleWidth)));
    bench.panel.resize(bench.panel.minimumSizeHint());
    QVERIFY(bench.panel.shpTextSample->height() >= 70);
}

void StylePanelTest::largeLettersAreShownSmallerNotCut() {
    StyleBench bench;
    bench.panel.show();
    const TextSample& sample = *bench.panel.lblTextSample;
    QCOMPARE(sample.shownFont(), sample.font()); // 24 points have room
    bench.panel.txtFontSize->setEditText(QStringLiteral("99"));
    QCOMPARE(sample.font(), textFont(QStringLiteral("Arial"), 99, false, false));
    const QRect ink = QFontMetrics(sample.shownFont()).boundingRect(sample.text());
    QVERIFY(ink.width() <= sample.contentsRect().width() && ink.height() <= sample.contentsRect().height());
    QVERIFY(ink.width() > sample.contentsRect().width() / 2);

    // Nothing of the letters touches the edges.
    const QImage shown = bench.panel.lblTextSample->grab().toImage().convertToFormat(QImage::Format_RGB32);
    for (int x = 0; x < shown.width(); ++x)
        for (const int y : {0, shown.height() - 1})
            QCOMPARE(shown.pixel(x, y), toPixel(White));
}

void StylePanelTest::controlsHaveNames() {
    StyleBench bench;
    QCOMPARE(bench.panel.objectName(), QStringLiteral("frafont"));
    for (const char* name :
         {"txbWriteText", "cboFontName", "lblFontSize1", "txtFontSize", "imgBold", "imgItalic",
          "lblTextSample", "shpTextSample", "picTextColor", "cmdTextColor", "lblTextColor"})
        QVERIFY2(bench.panel.findChild<QWidget*>(QLatin1String(name)), name);
    QCOMPARE(bench.panel.lblFontSize1->buddy(), bench.panel.txtFontSize);
    for (const QWidget* control :
         {static_cast<QWidget*>(bench.panel.txbWriteText), static_cast<QWidget*>(bench.panel.cboFontName),
          static_cast<QWidget*>(bench.panel.txtFontSize), static_cast<QWidget*>(bench.panel.imgBold),
          static_cast<QWidget*>(bench.panel.imgItalic), static_cast<QWidget*>(bench.panel.cmdTextColor),
          static_cast<QWidget*>(bench.panel.picTextColor)})
        QVERIFY2(!control->accessibleName().isEmpty(), qPrintable(control->objectName()));
}

void StylePanelTest::missingPictureTextOrSizeIsReported_data() {
    QTest::addColumn<bool>("loaded");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("size");
    QTest::addColumn<QString>("message");

    const QString noPicture = QStringLiteral("Pas d'image chargée !");
    const QString noText = QStringLiteral("Pas de texte !");
    const QString badSize = QStringLiteral("La taille du texte doit être comprise entre 6 et 99 !");
    QTest::newRow("no picture") << false << "A"
                                << "24" << noPicture;
    QTest::newRow("no picture comes before no text") << false << ""
                                                     << "5" << noPicture;
    QTest::newRow("no text") << true << ""
                             << "24" << noText;
    QTest::newRow("only spaces") << true << "   "
                                 << "24" << noText;
    QTest::newRow("no text comes before the size") << true << " "
                                                   << "100" << noText;
    QTest::newRow("5") << true << "A"
                       << "5" << badSize;
    QTest::newRow("100") << true << "A"
                         << "100" << badSize;
    QTest::newRow("99.6 rounds to 100") << true << "A"
                                        << "99.6" << badSize;
    QTest::newRow("beyond 16 bits") << true << "A"
                                    << "99999" << badSize;
    QTest::newRow("beyond 64 bits") << true << "A"
                                    << "9999999999999999999999" << badSize;
}

void StylePanelTest::missingPictureTextOrSizeIsReported() {
    QFETCH(bool, loaded);
    QFETCH(QString, text);
    QFETCH(QString, size);
    QFETCH(QString, message);
    StyleBench bench;
    bench.work.ImageLoaded = loaded;
    bench.panel.txbWriteText->setText(text);
    bench.panel.txtFontSize->setEditText(size);
    bench.dialogs.answer(Answer::Ok);

    QVERIFY(!bench.panel.CheckTextInputs());

    QCOMPARE(bench.dialogs.messages.size(), 1);
    expectInputError(bench.dialogs.messages.first(), message);
    QCOMPARE(bench.panel.txbWriteText->text(), text);
    QCOMPARE(bench.size(), size);
}

void StylePanelTest::sizesInRangeAreAccepted_data() {
    QTest::addColumn<QString>("size");
    for (const char* size : {"6", "24", "99", "99.4", "5.6"})
        QTest::newRow(size) << size;
}

void StylePanelTest::sizesInRangeAreAccepted() {
    QFETCH(QString, size);
    StyleBench bench;
    bench.panel.txtFontSize->setEditText(size);
    bench.panel.txbWriteText->setText(QStringLiteral("  a "));

    QVERIFY(bench.panel.CheckTextInputs());
}

void StylePanelTest::sampleFollowsTheSize_data() {
    QTest::addColumn<QString>("size");
    QTest::addColumn<QString>("sample");

    QTest::newRow("5") << "5"
                       << "";
    QTest::newRow("6") << "6"
                       << "Aa";
    QTest::newRow("99") << "99"
                        << "Aa";
    QTest::newRow("100") << "100"
                         << "";
    QTest::newRow("99999") << "99999"
                           << "";
}

void StylePanelTest::sampleFollowsTheSize() {
    QFETCH(QString, size);
    QFETCH(QString, sample);
    StyleBench bench;
    // From the other state, so that the change itself is seen.
    bench.panel.txtFontSize->setEditText(sample.isEmpty() ? QStringLiteral("24") : QStringLiteral("100"));

    bench.panel.txtFontSize->setEditText(size);

    QCOMPARE(bench.panel.lblTextSample->text(), sample);
}

void StylePanelTest::sampleIsPrintedAsTheTextWillBe() {
    StyleBench bench;
    bench.panel.cboFontName->setEditText(QStringLiteral("Liberation Serif"));
    bench.panel.txtFontSize->setEditText(QStringLiteral("36"));
    bench.panel.imgBold_Click();
    bench.panel.imgItalic_Click();
    Surface surface(QStringLiteral("picTemp"));
    bench.panel.ApplyTextFont(surface);

    QCOMPARE(bench.panel.lblTextSample->font(), surface.Font());
}

void StylePanelTest::surfaceGetsFontAndColour() {
    StyleBench bench;
    bench.panel.cboFontName->setEditText(QStringLiteral("Liberation Serif"));
    bench.panel.txtFontSize->setEditText(QStringLiteral("36"));
    bench.panel.imgItalic_Click();
    bench.panel.DispDialogColor(rgb(1, 2, 3));
    Surface surface(QStringLiteral("picTemp"));

    bench.panel.ApplyTextFont(surface);

    QCOMPARE(surface.Font(), textFont(QStringLiteral("Liberation Serif"), 36, false, true));
    QCOMPARE(surface.ForeColor(), rgb(1, 2, 3));
}

void StylePanelTest::unavailableFontIsReportedButStays() {
    StyleBench bench;
    bench.panel.cboFontName->setEditText(QStringLiteral("Écriture 7"));
    bench.dialogs.answer(Answer::Ok);

    bench.panel.cboFontName_Click();

    QCOMPARE(bench.dialogs.messages.size(), 1);
    expectInputError(bench.dialogs.messages.first(),
                     QStringLiteral("Écriture 7 Non disponible sur cet ordinateur !"));
    QCOMPARE(bench.panel.cboFontName->currentText(), QStringLiteral("Écriture 7"));
    QCOMPARE(bench.panel.lblTextSample->font().family(), QStringLiteral("Écriture 7"));
}

void StylePanelTest::availableFontIsNotReported_data() {
    QTest::addColumn<QString>("family");
    QTest::newRow("a metric alias") << "Arial";
    QTest::newRow("installed") << "Liberation Sans";
    QTest::newRow("installed, other case") << "liberation sans";
}

void StylePanelTest::availableFontIsNotReported() {
    QFETCH(QString, family);
    StyleBench bench;
    bench.panel.cboFontName->setEditText(family);

    bench.panel.cboFontName_Click();

    QVERIFY(bench.dialogs.messages.isEmpty());
    QCOMPARE(bench.panel.lblTextSample->font().family(), family);
}

void StylePanelTest::choosingAFontFromTheListShowsIt() {
    StyleBench bench;
    bench.panel.show();
    bench.panel.cboFontName->setCurrentIndex(0);
    const QString before = bench.panel.lblTextSample->font().family();

    QTest::keyClick(bench.panel.cboFontName, Qt::Key_Down);

    QCOMPARE(bench.panel.cboFontName->currentIndex(), 1);
    QVERIFY(bench.panel.lblTextSample->font().family() != before);
    QCOMPARE(bench.panel.lblTextSample->font().family(), bench.panel.cboFontName->itemText(1));
}

void StylePanelTest::typedFontIsShownAtOnce() {
    StyleBench bench;

    bench.panel.cboFontName->setEditText(QStringLiteral("Liberation Serif"));

    QCOMPARE(bench.panel.lblTextSample->font().family(), QStringLiteral("Liberation Serif"));
}

void StylePanelTest::typedFontIsCheckedByReturn() {
    StyleBench bench;
    bench.panel.show();
    QLineEdit* edit = bench.panel.cboFontName->lineEdit();
    edit->selectAll();
    bench.dialogs.answer(Answer::Ok);

    QTest::keyClicks(edit, QStringLiteral("Zzz 9"));
    QVERIFY(bench.dialogs.messages.isEmpty());
    QTest::keyClick(edit, Qt::Key_Return);

    QCOMPARE(bench.lastMessage(), QStringLiteral("Zzz 9 Non disponible sur cet ordinateur !"));
    QCOMPARE(bench.panel.cboFontName->count(), screenFonts().size());
}

void StylePanelTest::togglesFlip() {
    StyleBench bench;
    const auto sample = [&] { return bench.panel.lblTextSample->font(); };

    bench.panel.imgBold->click();
    QCOMPARE(bench.panel.imgBold->Appearance(), 1);
    QVERIFY(sample().bold() && !sample().italic());
    bench.panel.imgItalic->click();
    QCOMPARE(bench.panel.imgItalic->Appearance(), 1);
    QVERIFY(sample().bold() && sample().italic());
    bench.panel.imgBold->click();
    bench.panel.imgItalic->click();
    QCOMPARE(bench.panel.imgBold->Appearance() + bench.panel.imgItalic->Appearance(), 0);
    QVERIFY(!sample().bold() && !sample().italic());
}

OVRANO_TEST(StylePanelTest)
#include "tst_stylepanel.moc"
