#include "document/colourset.h"
#include "support/testprogram.h"

#include <QTest>

#include <random>
#include <set>
#include <vector>

using namespace ovrano;

class ColourSetTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void tellsWhatIsInIt_data();
    void tellsWhatIsInIt();
};

namespace {

constexpr QRgb Opaque = 0xFF000000U;

std::vector<QRgb> steps(QRgb step) {
    std::vector<QRgb> colours;
    for (QRgb i = 0; i < 256; ++i)
        colours.push_back(Opaque | i * step);
    return colours;
}

std::vector<QRgb> anyColours(std::size_t count) {
    std::mt19937 numbers(1);
    std::vector<QRgb> colours;
    while (colours.size() < count)
        colours.push_back(Opaque | (numbers() & 0xFFFFFFU));
    return colours;
}

} // namespace

void ColourSetTest::tellsWhatIsInIt_data() {
    QTest::addColumn<std::vector<QRgb>>("colours");
    QTest::newRow("none") << std::vector<QRgb>();
    QTest::newRow("black") << std::vector<QRgb>{Opaque};
    QTest::newRow("twice the same") << std::vector<QRgb>{qRgb(1, 2, 3), qRgb(1, 2, 3), qRgb(4, 5, 6)};
    QTest::newRow("blues") << steps(0x000001);
    QTest::newRow("greens") << steps(0x000100);
    QTest::newRow("reds") << steps(0x010000);
    QTest::newRow("greys") << steps(0x010101);
    QTest::newRow("any") << anyColours(256);
}

/// Also of all neighbours of its colours, and of others.
void ColourSetTest::tellsWhatIsInIt() {
    QFETCH(std::vector<QRgb>, colours);
    const ColourSet set(colours);
    const std::set<QRgb> expected(colours.begin(), colours.end());
    std::vector<QRgb> asked = anyColours(100'000);
    for (const QRgb colour : colours)
        for (const QRgb step : {0x000000U, 0x000001U, 0x000100U, 0x010000U})
            asked.push_back(Opaque | (colour + step));
    for (const QRgb colour : asked)
        QCOMPARE(set.contains(colour), expected.count(colour) == 1);
}

OVRANO_TEST_WITHOUT_WINDOWS(ColourSetTest)
#include "tst_colourset.moc"
