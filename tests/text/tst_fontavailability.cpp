#include "platform/screen.h"
#include "support/testprogram.h"
#include "text/fontavailability.h"

#include <QTest>

using namespace ovrano;

Q_DECLARE_METATYPE(ovrano::FontAvailability)

class FontAvailabilityTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void availability_data();
    void availability();
    void everyListedFontIsPresent();
    void anInventedFontIsMissing();
};

void FontAvailabilityTest::availability_data() {
    using enum FontAvailability;
    QTest::addColumn<QString>("family");
    QTest::addColumn<QStringList>("installed");
    QTest::addColumn<FontAvailability>("expected");

    const QStringList liberation{"DejaVu Sans", "Liberation Sans", "Liberation Serif", "Liberation Mono"};
    QTest::newRow("listed") << "DejaVu Sans" << liberation << Present;
    QTest::newRow("other case") << "dejavu SANS" << liberation << Present;
    QTest::newRow("typed with blanks around") << " DejaVu Sans " << liberation << Present;
    QTest::newRow("listed with a foundry") << "Nimbus Sans" << QStringList{"Nimbus Sans [urw]"} << Present;
    QTest::newRow("asked with a foundry") << "Nimbus Sans [URW ]" << QStringList{"Nimbus Sans"} << Present;
    QTest::newRow("an alias that is installed itself") << "Arial" << QStringList{"Arial"} << Present;
    QTest::newRow("part of a name") << "DejaVu" << liberation << Missing;
    QTest::newRow("unknown") << "Comic Sans MS" << liberation << Missing;
    QTest::newRow("nothing") << "" << liberation << Missing;
    QTest::newRow("Arial") << "Arial" << liberation << MetricAlias;
    QTest::newRow("arial") << "arial" << liberation << MetricAlias;
    QTest::newRow("Arial by Arimo") << "Arial" << QStringList{"Arimo"} << MetricAlias;
    QTest::newRow("Arial without a stand-in") << "Arial" << QStringList{"Liberation Serif"} << Missing;
    QTest::newRow("Times New Roman") << "Times New Roman" << liberation << MetricAlias;
    QTest::newRow("Times New Roman by Tinos") << "Times New Roman" << QStringList{"Tinos"} << MetricAlias;
    QTest::newRow("Courier New") << "Courier New" << liberation << MetricAlias;
    QTest::newRow("Courier New by Cousine") << "Courier New" << QStringList{"Cousine"} << MetricAlias;
    QTest::newRow("Helvetica") << "Helvetica" << QStringList{"Nimbus Sans [urw]"} << MetricAlias;
    QTest::newRow("Times") << "Times" << liberation << MetricAlias;
    QTest::newRow("Courier") << "Courier" << liberation << MetricAlias;
    QTest::newRow("Calibri") << "Calibri" << QStringList{"Carlito"} << MetricAlias;
    QTest::newRow("Calibri without Carlito") << "Calibri" << liberation << Missing;
    QTest::newRow("Cambria") << "Cambria" << QStringList{"Caladea"} << MetricAlias;
    QTest::newRow("Cambria without Caladea") << "Cambria" << liberation << Missing;
    QTest::newRow("no font at all") << "Arial" << QStringList{} << Missing;
}

void FontAvailabilityTest::availability() {
    QFETCH(QString, family);
    QFETCH(QStringList, installed);
    QFETCH(FontAvailability, expected);

    QCOMPARE(fontAvailability(family, installed), expected);
}

void FontAvailabilityTest::everyListedFontIsPresent() {
    for (const QString& family : screenFonts())
        QCOMPARE(fontAvailability(family), FontAvailability::Present);
}

void FontAvailabilityTest::anInventedFontIsMissing() {
    QCOMPARE(fontAvailability(QStringLiteral("No Such Typeface 7")), FontAvailability::Missing);
}

OVRANO_TEST(FontAvailabilityTest)
#include "tst_fontavailability.moc"
