#include "document/palettetable.h"
#include "document/palettetools.h"
#include "support/testprogram.h"

#include <QTest>

using namespace ovrano;

class PaletteTableTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void findsTheNearest_data();
    void findsTheNearest();
    void mapsRows();
    void nearestOfPointsBetweenTheColours();
};

namespace {

Palette randomPalette(int count, int lowest, int highest) {
    QRandomGenerator random(static_cast<quint32>(count + lowest));
    const auto channel = [&] { return random.bounded(lowest, highest + 1); };
    Palette palette;
    for (int i = 0; i < count; ++i) {
        const int red = channel();
        const int green = channel();
        palette.push_back(qRgb(red, green, channel()));
    }
    return palette;
}

Palette greys() {
    Palette palette;
    for (int level = 0; level < 256; ++level)
        palette.push_back(qRgb(level, level, level));
    return palette;
}

} // namespace

void PaletteTableTest::findsTheNearest_data() {
    QTest::addColumn<Palette>("palette");
    QTest::newRow("one colour") << Palette{qRgb(12, 200, 99)};
    QTest::newRow("black and white") << Palette{qRgb(0, 0, 0), qRgb(255, 255, 255)};
    QTest::newRow("the same twice") << Palette{qRgb(9, 9, 9), qRgb(80, 80, 80), qRgb(80, 80, 80)};
    QTest::newRow("corners of a cube") << Palette{qRgb(63, 63, 63), qRgb(64, 64, 64), qRgb(63, 64, 63),
                                                  qRgb(64, 63, 64), qRgb(63, 63, 64), qRgb(64, 64, 63)};
    QTest::newRow("all greys") << greys();
    QTest::newRow("strewn everywhere") << randomPalette(256, 0, 255);
    QTest::newRow("strewn in a corner") << randomPalette(256, 240, 255);
    QTest::newRow("seventeen") << randomPalette(17, 0, 255);
}

void PaletteTableTest::findsTheNearest() {
    QFETCH(Palette, palette);
    PaletteTable table(palette);
    const auto compare = [&](int red, int green, int blue) {
        const QRgb colour = qRgb(red, green, blue);
        const int found = table(colour);
        if (found != slowNearest(palette, colour))
            QFAIL(qPrintable(QString("%1 for %2 %3 %4").arg(found).arg(red).arg(green).arg(blue)));
    };
    for (int red = 0; red < 256; red += 15)
        for (int green = 0; green < 256; green += 7)
            for (int blue = 0; blue < 256; blue += 5)
                compare(red, green, blue);
    for (const QRgb colour : palette) // among the colours themselves, all of a cube and then some
        for (int offset = 0; offset < 7 * 7 * 7; ++offset)
            compare(qBound(0, qRed(colour) - 3 + offset / 49, 255),
                    qBound(0, qGreen(colour) - 3 + offset / 7 % 7, 255),
                    qBound(0, qBlue(colour) - 3 + offset % 7, 255));
}

void PaletteTableTest::mapsRows() {
    const Palette palette = randomPalette(40, 0, 255);
    PaletteTable table(palette);
    const QImage image = photo(QSize(150, 3), 3); // with runs of a colour
    std::vector<std::uint8_t> indices(150);
    for (int y = 0; y < 3; ++y) {
        table.map(reinterpret_cast<const QRgb*>(image.constScanLine(y)), 150, indices.data());
        for (int x = 0; x < 150; ++x)
            QCOMPARE(int{indices[static_cast<std::size_t>(x)]}, slowNearest(palette, image.pixel(x, y)));
    }
}

void PaletteTableTest::nearestOfPointsBetweenTheColours() {
    const std::vector<ColourPoint> colours = {
        {10.25F, 0, 0}, {10.75F, 0, 0}, {255, 255, 255}, {0, 15.9F, 16}};
    NearestColour nearest(colours);
    QCOMPARE(int{nearest({10.4F, 0, 0})}, 0);
    QCOMPARE(int{nearest({10.6F, 0, 0})}, 1);
    QCOMPARE(int{nearest({0, 15.99F, 15.99F})}, 3);
    QCOMPARE(int{nearest({255, 255, 255})}, 2);
    QCOMPARE(int{nearest({200, 254.5F, 0})}, 2);
}

OVRANO_TEST_WITHOUT_WINDOWS(PaletteTableTest)
#include "tst_palettetable.moc"
