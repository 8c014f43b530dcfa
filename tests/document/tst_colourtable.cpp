#include "document/colourtable.h"
#include "document/palettetools.h"
#include "support/testprogram.h"

#include <QTest>

#include <map>

using namespace ovrano;

class ColourTableTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void keepsNumbersLikeAMap_data();
    void keepsNumbersLikeAMap();
    void isFullAtItsLimit();
    void readsNumbersBack();
};

namespace {

std::map<QRgb, std::uint32_t> contentOf(const ColourTable& table) {
    std::map<QRgb, std::uint32_t> content;
    table.forEach([&](QRgb colour, std::uint32_t number) { content[colour] += number; });
    return content;
}

} // namespace

void ColourTableTest::keepsNumbersLikeAMap_data() {
    QTest::addColumn<int>("colours");
    for (const int colours : {1, 2, 3, 100, 1000, 4096})
        QTest::addRow("%d", colours) << colours;
}

void ColourTableTest::keepsNumbersLikeAMap() {
    QFETCH(int, colours);
    ColourTable table(4096); // half of its slots are taken at most, so that colours do collide
    std::map<QRgb, std::uint32_t> expected;
    for (int n = 0; n < 40'000; ++n) {
        const QRgb colour = distinctColour(n % colours);
        ++expected[colour];
        ++*table.insert(colour);
    }
    QVERIFY(contentOf(table) == expected);
    QCOMPARE(table.size(), static_cast<int>(expected.size()));
}

void ColourTableTest::isFullAtItsLimit() {
    for (const int limit : {1, 2, 255, 256, 257}) {
        ColourTable table(limit);
        for (int n = 0; n < limit; ++n)
            QVERIFY(table.insert(distinctColour(n)));
        QVERIFY(!table.insert(distinctColour(limit)));
        QVERIFY(table.insert(distinctColour(limit - 1))); // what is there is still found
        QCOMPARE(table.size(), limit);
    }
}

void ColourTableTest::readsNumbersBack() {
    ColourTable table(300);
    std::vector<QRgb> row;
    for (int n = 0; n < 300; ++n) {
        *table.insert(distinctColour(n)) = static_cast<std::uint32_t>(n) % 256;
        row.insert(row.end(), static_cast<std::size_t>(n % 3 + 1), distinctColour(n));
    }
    std::vector<std::uint8_t> indices(row.size());
    table.read(row.data(), static_cast<int>(row.size()), indices.data());
    for (std::size_t x = 0; x < row.size(); ++x)
        QCOMPARE(std::uint32_t{indices[x]}, *table.insert(row[x]));
}

OVRANO_TEST_WITHOUT_WINDOWS(ColourTableTest)
#include "tst_colourtable.moc"
