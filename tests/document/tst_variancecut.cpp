#include "document/paletterefinement.h"
#include "document/palettetools.h"
#include "document/variancecut.h"
#include "support/testprogram.h"

#include <QTest>

#include <algorithm>
#include <array>
#include <map>

using namespace ovrano;

class VarianceCutTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void fewColoursAreAllThere();
    void cutsWhereItGainsMost();
    void meansCountPixels();
    void refiningBringsThePaletteNearer();
    void refinedColoursAreTheMeansOfWhatTheyServe();
    void unusedColourStays();
    void flatColourIsKept_data();
    void flatColourIsKept();
    void countsLikeAMap_data();
    void countsLikeAMap();
    void countsOfSeveralAddUp();
    void binsHaveExactMeans_data();
    void binsHaveExactMeans();
};

namespace {

/// A histogram in which the places of the points vary and so do their counts.
ColourHistogram strewn(int count) {
    QRandomGenerator random(5);
    ColourHistogram histogram;
    for (int i = 0; i < count; ++i) {
        const auto red = static_cast<float>(random.bounded(256));
        const auto green = static_cast<float>(random.bounded(256));
        const auto blue = static_cast<float>(random.bounded(256));
        histogram.push_back({{red, green, blue}, static_cast<float>(random.bounded(1, 50))});
    }
    return histogram;
}

std::size_t nearestOf(const std::vector<ColourPoint>& palette, const ColourPoint& point) {
    const auto nearer = [&](const ColourPoint& a, const ColourPoint& b) {
        return squaredDistance(a, point) < squaredDistance(b, point);
    };
    return static_cast<std::size_t>(std::min_element(palette.begin(), palette.end(), nearer) -
                                    palette.begin());
}

/// Sum of the pixels' squared distances to their nearest palette colours.
double error(const ColourHistogram& histogram, const std::vector<ColourPoint>& palette) {
    double sum = 0;
    for (const ColourBin& bin : histogram)
        sum += double(bin.pixels) * double(squaredDistance(bin.mean, palette[nearestOf(palette, bin.mean)]));
    return sum;
}

} // namespace

void VarianceCutTest::fewColoursAreAllThere() {
    ColourHistogram histogram = strewn(40);
    for (ColourBin& bin : histogram)
        bin.pixels = bin.pixels < 25 ? 1 : 1'000'000; // rare ones too
    std::vector<ColourPoint> expected;
    for (const ColourBin& bin : histogram)
        expected.push_back(bin.mean);
    for (const std::size_t count : {40U, 41U, 256U}) {
        std::vector<ColourPoint> palette = varianceCut(histogram, count);
        std::sort(palette.begin(), palette.end());
        std::sort(expected.begin(), expected.end());
        QVERIFY(palette == expected);
    }
}

void VarianceCutTest::cutsWhereItGainsMost() {
    // Two groups far apart in blue; red varies within them.
    ColourHistogram histogram = {
        {{0, 9, 10}, 5}, {{40, 9, 10}, 5}, {{80, 9, 10}, 5}, {{0, 9, 250}, 5}, {{80, 9, 250}, 5}};
    std::vector<ColourPoint> palette = varianceCut(histogram, 2);
    std::sort(palette.begin(), palette.end());
    QVERIFY(palette == std::vector<ColourPoint>({{40, 9, 10}, {40, 9, 250}}));
}

void VarianceCutTest::meansCountPixels() {
    ColourHistogram histogram = {{{0, 0, 0}, 3}, {{8, 4, 0}, 1}};
    QVERIFY(varianceCut(histogram, 1) == std::vector<ColourPoint>({{2, 1, 0}}));
}

void VarianceCutTest::refiningBringsThePaletteNearer() {
    ColourHistogram histogram = strewn(3000);
    std::vector<ColourPoint> palette = varianceCut(histogram, 32);
    double before = error(histogram, palette);
    for (int pass = 0; pass < 4; ++pass) {
        refinePalette(histogram, palette, 1);
        const double after = error(histogram, palette);
        QVERIFY(after < before);
        before = after;
    }
}

void VarianceCutTest::refinedColoursAreTheMeansOfWhatTheyServe() {
    const ColourHistogram histogram = {
        {{10, 0, 0}, 3}, {{14, 0, 4}, 1}, {{200, 200, 0}, 2}, {{201, 200, 0}, 2}};
    std::vector<ColourPoint> palette = {{90, 0, 0}, {130, 200, 0}};
    refinePalette(histogram, palette, 1);
    QVERIFY(palette == std::vector<ColourPoint>({{11, 0, 1}, {200.5, 200, 0}}));
}

void VarianceCutTest::unusedColourStays() {
    const ColourHistogram histogram = {{{10, 0, 0}, 3}};
    std::vector<ColourPoint> palette = {{12, 0, 0}, {130, 200, 0}};
    refinePalette(histogram, palette, 3);
    keepFlatColours(histogram, palette);
    QVERIFY(palette == std::vector<ColourPoint>({{10, 0, 0}, {130, 200, 0}}));
}

void VarianceCutTest::flatColourIsKept_data() {
    QTest::addColumn<float>("others");
    QTest::addColumn<float>("red");
    QTest::newRow("paper and smoothed edges") << 49.0F << 255.0F;
    QTest::newRow("no one colour") << 51.0F << 250.0F;
}

void VarianceCutTest::flatColourIsKept() {
    QFETCH(float, others);
    QFETCH(float, red);
    const ColourHistogram histogram = {
        {{245, 250, 250}, others}, {{255, 250, 250}, 100}, {{241, 250, 250}, others}};
    std::vector<ColourPoint> palette = {{250, 250, 250}};
    keepFlatColours(histogram, palette);
    QCOMPARE(palette[0][0], red);
}

void VarianceCutTest::countsLikeAMap_data() {
    QTest::addColumn<int>("colours");
    QTest::addColumn<int>("run"); // pixels of a colour in a row
    for (const int colours : {1, 2, 3, 100, 4096})
        for (const int run : {1, 2, 7})
            QTest::addRow("%d in runs of %d", colours, run) << colours << run;
}

void VarianceCutTest::countsLikeAMap() {
    QFETCH(int, colours);
    QFETCH(int, run);
    ColourCounts counts;
    std::map<ColourPoint, float> expected;
    std::vector<QRgb> row(997);
    for (int y = 0; y < 40; ++y) {
        for (int x = 0; x < 997; ++x) {
            row[static_cast<std::size_t>(x)] = distinctColour((y * 997 + x) / run % colours);
            ++expected[toPoint(row[static_cast<std::size_t>(x)])];
        }
        counts.add(row.data(), 997);
    }
    std::map<ColourPoint, float> found;
    for (const ColourBin& bin : counts.histogram(1))
        found[bin.mean] += bin.pixels;
    QVERIFY(found == expected);
    QCOMPARE(counts.size(), expected.size());
}

/// Of which some have colours that the others lack, and one has none at all.
void VarianceCutTest::countsOfSeveralAddUp() {
    std::array<ColourCounts, 3> some;
    ColourCounts together;
    for (int y = 0; y < 40; ++y) {
        std::vector<QRgb> row;
        for (int x = 0; x < 997; ++x)
            row.push_back(distinctColour((y < 20 ? x : y * x) % 3000));
        some.at(y < 20 ? 0 : 2).add(row.data(), 997);
        together.add(row.data(), 997);
    }
    some[0].add(some[1]);
    some[0].add(some[2]);
    QCOMPARE(some[0].size(), together.size());
    for (const int side : {1, 2, 4}) {
        const ColourHistogram sum = some[0].histogram(side);
        const ColourHistogram expected = together.histogram(side);
        QCOMPARE(sum.size(), expected.size());
        for (std::size_t i = 0; i < sum.size(); ++i) {
            QVERIFY(sum[i].mean == expected[i].mean);
            QCOMPARE(sum[i].pixels, expected[i].pixels);
        }
    }
}

void VarianceCutTest::binsHaveExactMeans_data() {
    QTest::addColumn<int>("side");
    QTest::addColumn<ColourHistogram>("expected");
    QTest::newRow("4 x 4 x 4") << 4 << ColourHistogram{{{5.25F, 254, 129.75F}, 16}, {{7, 255, 132}, 4}};
    QTest::newRow("2 x 2 x 2") << 2
                               << ColourHistogram{{{4.5F, 254.5F, 128.5F}, 8},
                                                  {{5, 253, 131}, 4},
                                                  {{7, 254, 131}, 4},
                                                  {{7, 255, 132}, 4}};
    QTest::newRow("single colours") << 1
                                    << ColourHistogram{{{4, 255, 128}, 4},
                                                       {{5, 253, 131}, 4},
                                                       {{5, 254, 129}, 4},
                                                       {{7, 254, 131}, 4},
                                                       {{7, 255, 132}, 4}};
}

void VarianceCutTest::binsHaveExactMeans() {
    QFETCH(int, side);
    QFETCH(ColourHistogram, expected);
    const QRgb row[] = {qRgb(4, 255, 128), qRgb(5, 254, 129), qRgb(5, 253, 131), qRgb(7, 254, 131),
                        qRgb(7, 255, 132)};
    ColourCounts counts;
    for (int y = 0; y < 4; ++y)
        counts.add(row, 5);
    ColourHistogram histogram = counts.histogram(side);
    std::sort(histogram.begin(), histogram.end(),
              [](const ColourBin& a, const ColourBin& b) { return a.mean < b.mean; });
    QCOMPARE(histogram.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        QVERIFY(histogram[i].mean == expected[i].mean);
        QCOMPARE(histogram[i].pixels, expected[i].pixels);
    }
}

OVRANO_TEST_WITHOUT_WINDOWS(VarianceCutTest)
#include "tst_variancecut.moc"
