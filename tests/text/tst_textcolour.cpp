#include "platform/runtimeerror.h"
#include "support/testprogram.h"
#include "text/stylebench.h"
#include "text/stylepanel.h"

#include <QApplication>
#include <QTest>

using namespace ovrano;

namespace {

/// A colour dialog that does not come up.
class BrokenColourDialog : public AnsweringDialogs {
public:
    std::optional<Colour> chooseColour(Colour) override { throw RuntimeError(error::OutOfMemory); }
};

/// What a widget shows, pixel by pixel, and around its text.
struct Shown {
    QSet<Colour> colours;
    Colour corner = InvalidColour;
};

Shown shownBy(QWidget& widget) {
    const QImage image = widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
    Shown shown;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            shown.colours.insert(fromPixel(image.pixel(x, y)));
    shown.corner = fromPixel(image.pixel(1, 1));
    return shown;
}

void expectSample(const StylePanel& panel, Colour ink, Colour background) {
    const Shown shown = shownBy(*panel.lblTextSample);
    QCOMPARE(shown.corner, background);
    QVERIFY(shown.colours.contains(ink));
}

} // namespace

class TextColourTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void whiteSampleStandsOnBlue();
    void sampleIgnoresTheDesktopsColours();

    void colourIsShownWithItsChannels_data();
    void colourIsShownWithItsChannels();
    void noColourChangesNothing();

    void colourDialogStartsFromTheTextColour();
    void cancelledColourDialogChangesNothing();
    void failedColourDialogIsReported();
    void menuEntryOpensTheColourDialog();
    void moreButtonOpensTheColourDialog();
};

void TextColourTest::init() {
    QApplication::setPalette(QPalette());
}

void TextColourTest::whiteSampleStandsOnBlue() {
    StyleBench bench;
    bench.panel.txtFontSize->setEditText(QStringLiteral("36"));

    bench.panel.DispDialogColor(White);
    QCOMPARE(bench.panel.lblTextSample->BackColor(), rgb(0, 0, 255));
    expectSample(bench.panel, White, rgb(0, 0, 255));

    bench.panel.DispDialogColor(rgb(255, 255, 254));
    QCOMPARE(bench.panel.lblTextSample->BackColor(), White);
    expectSample(bench.panel, rgb(255, 255, 254), White);
}

void TextColourTest::sampleIgnoresTheDesktopsColours() {
    QPalette dark(QColor(40, 40, 40));
    dark.setColor(QPalette::WindowText, Qt::yellow);
    QApplication::setPalette(dark);
    StyleBench bench;
    bench.panel.DispDialogColor(rgb(200, 0, 0));

    expectSample(bench.panel, rgb(200, 0, 0), White);
    QApplication::setPalette(QPalette());
    expectSample(bench.panel, rgb(200, 0, 0), White);
}

void TextColourTest::colourIsShownWithItsChannels_data() {
    QTest::addColumn<int>("colour");
    QTest::addColumn<QList<int>>("channels");
    QTest::addColumn<QString>("caption");

    QTest::newRow("five hexadecimal characters")
        << rgb(10, 20, 255) << QList<int>{10, 20, 255} << "RVB(10, 20, 255)  Hex: #A14FF";
    QTest::newRow("what a new window shows")
        << rgb(0, 64, 128) << QList<int>{0, 64, 128} << "RVB(0, 64, 128)  Hex: #004080";
    QTest::newRow("more than 24 bits")
        << (0x7F000000 | rgb(1, 2, 3)) << QList<int>{1, 2, 3} << "RVB(1, 2, 3)  Hex: #010203";
}

void TextColourTest::colourIsShownWithItsChannels() {
    QFETCH(int, colour);
    QFETCH(QList<int>, channels);
    QFETCH(QString, caption);
    StyleBench bench;

    bench.panel.DispDialogColor(colour);

    QCOMPARE((QList<int>{bench.panel.ColorRed, bench.panel.ColorGreen, bench.panel.ColorBlue}), channels);
    QCOMPARE(bench.panel.picTextColor->BackColor(), rgb(channels[0], channels[1], channels[2]));
    QCOMPARE(bench.panel.lblTextColor->text(), caption);
    QCOMPARE(bench.focusRequested.count(), 1);
}

void TextColourTest::noColourChangesNothing() {
    StyleBench bench;
    bench.panel.DispDialogColor(rgb(1, 2, 3));

    bench.panel.DispDialogColor(InvalidColour);

    QCOMPARE(bench.panel.picTextColor->BackColor(), rgb(1, 2, 3));
    QCOMPARE(bench.panel.ColorRed, std::int16_t(1));
    QCOMPARE(bench.panel.lblTextColor->text(), QStringLiteral("RVB(1, 2, 3)  Hex: #010203"));
}

void TextColourTest::colourDialogStartsFromTheTextColour() {
    StyleBench bench;
    bench.panel.DispDialogColor(rgb(1, 2, 3));
    bench.focusRequested.clear();
    bench.dialogs.pickColour(rgb(9, 8, 7));

    bench.panel.cmdTextColor_Click();

    QCOMPARE(bench.dialogs.colours, QList<Colour>{rgb(1, 2, 3)});
    QCOMPARE(bench.panel.picTextColor->BackColor(), rgb(9, 8, 7));
    QCOMPARE(bench.panel.lblTextColor->text(), QStringLiteral("RVB(9, 8, 7)  Hex: #090807"));
    QCOMPARE(bench.pickerReleased.count(), 1);
    QVERIFY(bench.focusRequested.count() >= 1);
}

void TextColourTest::cancelledColourDialogChangesNothing() {
    StyleBench bench;
    bench.panel.DispDialogColor(rgb(1, 2, 3));
    bench.focusRequested.clear();
    bench.dialogs.cancelColour();

    bench.panel.cmdTextColor_Click();

    QCOMPARE(bench.panel.picTextColor->BackColor(), rgb(1, 2, 3));
    QCOMPARE(bench.panel.lblTextColor->text(), QStringLiteral("RVB(1, 2, 3)  Hex: #010203"));
    QVERIFY(bench.dialogs.messages.isEmpty());
    QCOMPARE(bench.focusRequested.count(), 1);
}

void TextColourTest::failedColourDialogIsReported() {
    BrokenColourDialog dialogs;
    WorkPicture work(dialogs);
    StylePanel panel(work, dialogs);
    dialogs.answer(Answer::Ok);

    panel.cmdTextColor_Click();

    QCOMPARE(dialogs.messages.size(), 1);
    QVERIFY2(dialogs.messages.first().text.startsWith(QStringLiteral("cmdTextColor_click\r\n7     ")),
             qPrintable(dialogs.messages.first().text));
    QCOMPARE(panel.picTextColor->BackColor(), Black);
}

void TextColourTest::menuEntryOpensTheColourDialog() {
    StyleBench bench;
    bench.dialogs.pickColour(rgb(9, 8, 7));

    bench.panel.Mnu_ChoixCouleur_Click();

    QCOMPARE(bench.panel.picTextColor->BackColor(), rgb(9, 8, 7));
}

void TextColourTest::moreButtonOpensTheColourDialog() {
    StyleBench bench;
    bench.dialogs.pickColour(rgb(9, 8, 7));

    bench.panel.cmdTextColor->click();

    QCOMPARE(bench.panel.picTextColor->BackColor(), rgb(9, 8, 7));
}

OVRANO_TEST(TextColourTest)
#include "tst_textcolour.moc"
