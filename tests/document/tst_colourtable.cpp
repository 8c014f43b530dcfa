#include "document/colourtable.h"
#include "document/palettetools.h"

#include <QTest>

#include <map>

using namespace ovrano;

class ColourTableTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void countsLikeAMap_data();
    void countsLikeAMap();
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

void ColourTableTest::countsLikeAMap_data() {
    QTest::addColumn<int>("colours");
    QTest::addColumn<int>("run"); // pixels of a colour in a row
    for (const int colours : {1, 2, 3, 100, 1000, 4096})
        for (const int run : {1, 2, 7})
            QTest::addRow("%d in runs of %d", colours, run) << colours << run;
}

void ColourTableTest::countsLikeAMap() {
    QFETCH(int, colours);
    QFETCH(int, run);
    ColourTable table(4096); // half of its slots are taken at most, so that colours do collide
    std::map<QRgb, std::uint32_t> expected;
    std::vector<QRgb> row(997);
    for (int y = 0; y < 40; ++y) {
        for (int x = 0; x < 997; ++x)
            ++expected[row[static_cast<std::size_t>(x)] = distinctColour((y * 997 + x) / run % colours)];
        QVERIFY(table.count(row.data(), 997));
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
        const QRgb row[] = {distinctColour(0), distinctColour(limit)};
        QVERIFY(table.count(row, 1));
        QVERIFY(!table.count(row, 2));
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

QTEST_GUILESS_MAIN(ColourTableTest)
#include "tst_colourtable.moc"
