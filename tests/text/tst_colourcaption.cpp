#include "support/testprogram.h"
#include "text/colourcaption.h"

#include <QTest>

using namespace ovrano;

class ColourCaptionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void captionOfAColour_data();
    void captionOfAColour();
    void captionReadBack_data();
    void captionReadBack();
    void everyColourWithoutLettersAloneComesBack();
};

void ColourCaptionTest::captionOfAColour_data() {
    QTest::addColumn<int>("colour");
    QTest::addColumn<QString>("caption");

    QTest::newRow("black") << Black << "RVB(0, 0, 0)  Hex: #000000";
    QTest::newRow("white") << White << "RVB(255, 255, 255)  Hex: #FFFFFF";
    QTest::newRow("a digit is padded") << rgb(0, 64, 128) << "RVB(0, 64, 128)  Hex: #004080";
    QTest::newRow("9 is padded") << rgb(9, 16, 9) << "RVB(9, 16, 9)  Hex: #091009";
    QTest::newRow("a letter is not padded") << rgb(10, 20, 255) << "RVB(10, 20, 255)  Hex: #A14FF";
    QTest::newRow("three letters") << rgb(10, 15, 12) << "RVB(10, 15, 12)  Hex: #AFC";
}

void ColourCaptionTest::captionOfAColour() {
    QFETCH(int, colour);
    QFETCH(QString, caption);

    QCOMPARE(colourCaption(colour), caption);
}

void ColourCaptionTest::captionReadBack_data() {
    QTest::addColumn<QString>("caption");
    QTest::addColumn<int>("colour");

    QTest::newRow("red, green, blue") << "RVB(0, 64, 128)  Hex: #004080" << rgb(0, 64, 128);
    QTest::newRow("white") << "RVB(255, 255, 255)  Hex: #FFFFFF" << White;
    QTest::newRow("five characters: #A 14 FF") << "RVB(10, 20, 255)  Hex: #A14FF" << rgb(0, 20, 255);
    QTest::newRow("five characters: #F FC 05") << "RVB(255, 12, 5)  Hex: #FFC05" << rgb(0, 0xFC, 5);
    QTest::newRow("four characters: \" #\" AA FF") << "RVB(10, 10, 255)  Hex: #AAFF" << rgb(0, 0xAA, 255);
    QTest::newRow("three characters: \": \" #A FC") << "RVB(10, 15, 12)  Hex: #AFC" << rgb(0, 0, 0xFC);
}

void ColourCaptionTest::captionReadBack() {
    QFETCH(QString, caption);
    QFETCH(int, colour);

    QCOMPARE(colourFromCaption(caption), colour);
}

void ColourCaptionTest::everyColourWithoutLettersAloneComesBack() {
    for (int channel = 0; channel < 256; ++channel) {
        if (channel >= 10 && channel <= 15)
            continue;
        for (const Colour colour : {rgb(channel, 0, 255), rgb(31, channel, 2), rgb(160, 99, channel)})
            QCOMPARE(colourFromCaption(colourCaption(colour)), colour);
    }
}

OVRANO_TEST(ColourCaptionTest)
#include "tst_colourcaption.moc"
