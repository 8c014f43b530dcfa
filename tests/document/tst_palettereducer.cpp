#include "document/errordiffusion.h"
#include "document/filetools.h"
#include "document/palettereducer.h"
#include "document/palettetools.h"
#include "support/testprogram.h"

#include <QTest>

#include <set>

using namespace ovrano;

class PaletteReducerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void fewColoursStayAsTheyAre_data();
    void fewColoursStayAsTheyAre();
    void greysStayAsTheyAre();
    void ofOneColourTooManyTwoBecomeOne();
    void neverMoreThan256_data();
    void neverMoreThan256();
    void eachPixelGetsItsNearestColour_data();
    void eachPixelGetsItsNearestColour();
    void smallSizes_data();
    void smallSizes();
    void nearToThePicture_data();
    void nearToThePicture();
    void diffusionTakesTheBandsOut_data();
    void diffusionTakesTheBandsOut();
    void nearlyEqualColoursAreNotDiffused();
    void smallTextKeepsItsColour_data();
    void smallTextKeepsItsColour();
    void fourPixelsKeepTheirColour_data();
    void fourPixelsKeepTheirColour();
    void paperAndLettersOnAPhotoStayClean();
    void paperThatSharesItsPaletteColourKeepsIt();
    void errorOfTheRowsComesThrough_data();
    void errorOfTheRowsComesThrough();
    void diffusionTakesRowsOneAfterTheOther_data();
    void diffusionTakesRowsOneAfterTheOther();
};

namespace {

IndexedPicture reduce(const QImage& image, Diffusion diffusion = Diffusion::On) {
    ImageRows rows(image);
    return reduceTo256(rows, diffusion);
}

std::set<QRgb> coloursOf(const QImage& image) {
    std::set<QRgb> colours;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            colours.insert(image.pixel(x, y));
    return colours;
}

/// Mean of a block of 8 × 8 pixels.
std::array<double, 3> meanOf(const QImage& image, int left, int top) {
    std::array<double, 3> mean = {};
    for (int y = top; y < top + 8; ++y) {
        for (int x = left; x < left + 8; ++x) {
            const QRgb pixel = image.pixel(x, y);
            mean[0] += qRed(pixel) / 64.0;
            mean[1] += qGreen(pixel) / 64.0;
            mean[2] += qBlue(pixel) / 64.0;
        }
    }
    return mean;
}

/// How far the blocks' means lie apart: what is seen from where single pixels are not.
double distanceOfMeans(const QImage& a, const QImage& b) {
    double sum = 0;
    for (int top = 0; top + 8 <= a.height(); top += 8) {
        for (int left = 0; left + 8 <= a.width(); left += 8) {
            const auto one = meanOf(a, left, top);
            const auto other = meanOf(b, left, top);
            for (std::size_t i = 0; i < 3; ++i)
                sum += std::pow(one[i] - other[i], 2);
        }
    }
    return std::sqrt(sum);
}

/// A smooth sky of some thousand colours.
QImage sky(QSize size) {
    return painted(size, [&](int x, int y) {
        const double u = double(x) / size.width();
        const double v = double(y) / size.height();
        return qRgb(int(40 + 120 * v + 20 * u), int(80 + 120 * v), int(170 + 60 * v - 30 * u * v));
    });
}

/// Letters without smoothing.
void write(QImage& image, QPoint place, int pixels, QRgb colour) {
    QPainter painter(&image);
    QFont font("Liberation Sans");
    font.setPixelSize(pixels);
    font.setStyleStrategy(QFont::NoAntialias);
    painter.setFont(font);
    painter.setPen(QColor(colour));
    painter.drawText(place, "Petit texte");
}

QImage photoWithText(QRgb colour) {
    QImage image = photo(QSize(640, 480));
    write(image, QPoint(30, 440), 11, colour);
    return image;
}

QImage drawingWithText(QRgb colour) {
    QImage image(640, 480, QImage::Format_RGB32);
    image.fill(qRgb(240, 240, 235));
    for (int i = 0; i < 300; ++i) // 300 colours of a few related tones
        for (int y = 0; y < 200; ++y)
            image.setPixel(i, y, qRgb(20 + i * 2 / 3, 60 + i / 2, 200 - i / 2));
    write(image, QPoint(30, 440), 9, colour);
    return image;
}

/// Rows of which one cannot be read, by no reader.
class BrokenRows : public ImageRows {
public:
    BrokenRows(const QImage& image, int broken)
        : ImageRows(image)
        , m_image(image)
        , m_broken(broken) {}

    const QRgb* row(int y) override {
        if (y == m_broken)
            throw RuntimeError(error::DeviceIo);
        return ImageRows::row(y);
    }
    std::unique_ptr<PixelRows> anotherReader() const override {
        return std::make_unique<BrokenRows>(m_image, m_broken);
    }

private:
    QImage m_image;
    int m_broken;
};

} // namespace

void PaletteReducerTest::fewColoursStayAsTheyAre_data() {
    QTest::addColumn<int>("count");
    for (const int count : {1, 2, 3, 16, 255, 256})
        QTest::addRow("%d", count) << count;
}

void PaletteReducerTest::fewColoursStayAsTheyAre() {
    QFETCH(int, count);
    const QImage image = withColours(count, QSize(67, 41));
    QCOMPARE(static_cast<int>(coloursOf(image).size()), count);
    for (const Diffusion diffusion : {Diffusion::Off, Diffusion::On}) {
        const IndexedPicture reduced = reduce(image, diffusion);
        QCOMPARE(static_cast<int>(reduced.palette.size()), count);
        QCOMPARE(toImage(reduced), image);
    }
}

void PaletteReducerTest::greysStayAsTheyAre() {
    const QImage image = painted(QSize(300, 40), [](int x, int y) {
        const int level = (x + y * 3) & 255;
        return qRgb(level, level, level);
    });
    QCOMPARE(toImage(reduce(image)), image);
}

void PaletteReducerTest::ofOneColourTooManyTwoBecomeOne() {
    const QImage image = withColours(257, QSize(67, 41));
    for (const Diffusion diffusion : {Diffusion::Off, Diffusion::On}) {
        const IndexedPicture reduced = reduce(image, diffusion);
        QCOMPARE(reduced.palette.size(), std::size_t{256});
        const QImage result = toImage(reduced);
        std::set<QRgb> lost;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (result.pixel(x, y) != image.pixel(x, y))
                    lost.insert(image.pixel(x, y));
        QVERIFY(lost.size() == 1 || lost.size() == 2);
    }
}

void PaletteReducerTest::neverMoreThan256_data() {
    QTest::addColumn<QImage>("image");
    QTest::newRow("300 colours") << withColours(300, QSize(67, 41));
    QTest::newRow("as many as pixels") << withColours(200 * 300, QSize(200, 300));
    QTest::newRow("all the colours told apart") << withColours(32768, QSize(400, 300));
    QTest::newRow("and one more") << withColours(32769, QSize(400, 300));
    QTest::newRow("photo") << photo(QSize(300, 200));
    QTest::newRow("sky") << sky(QSize(300, 200));
}

void PaletteReducerTest::neverMoreThan256() {
    QFETCH(QImage, image);
    for (const Diffusion diffusion : {Diffusion::Off, Diffusion::On}) {
        const IndexedPicture reduced = reduce(image, diffusion);
        QCOMPARE(reduced.size, image.size());
        QCOMPARE(reduced.palette.size(), std::size_t{256});
        QVERIFY(*std::max_element(reduced.indices.begin(), reduced.indices.end()) > 250); // they are used
        const IndexedPicture again = reduce(image, diffusion);
        QVERIFY(again.palette == reduced.palette);
        QVERIFY(again.indices == reduced.indices);
    }
}

void PaletteReducerTest::eachPixelGetsItsNearestColour_data() {
    QTest::addColumn<QImage>("image");
    QTest::newRow("few colours") << withColours(5000, QSize(100, 80));
    QTest::newRow("many colours") << withColours(40'000, QSize(220, 200));
    QTest::newRow("photo") << photo(QSize(260, 200), 60);
}

void PaletteReducerTest::eachPixelGetsItsNearestColour() {
    QFETCH(QImage, image);
    const IndexedPicture reduced = reduce(image, Diffusion::Off);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            QCOMPARE(int{reduced.row(y)[x]}, slowNearest(reduced.palette, image.pixel(x, y)));
}

void PaletteReducerTest::smallSizes_data() {
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("colours");
    for (const QSize size :
         {QSize(1, 1), QSize(1, 2), QSize(2, 1), QSize(1, 600), QSize(600, 1), QSize(3, 200)})
        QTest::addRow("%d x %d", size.width(), size.height()) << size << size.width() * size.height();
}

void PaletteReducerTest::smallSizes() {
    QFETCH(QSize, size);
    QFETCH(int, colours);
    const QImage image = withColours(colours, size);
    const IndexedPicture reduced = reduce(image);
    QCOMPARE(reduced.size, size);
    QCOMPARE(static_cast<int>(reduced.palette.size()), qMin(colours, 256));
    if (colours <= 256)
        QCOMPARE(toImage(reduced), image);
    else
        QVERIFY(psnr(image, toImage(reduced)) > 24);
}

void PaletteReducerTest::nearToThePicture_data() {
    QTest::addColumn<QImage>("image");
    QTest::addColumn<double>("plain"); // decibels
    QTest::addColumn<double>("diffused");
    QTest::newRow("photo") << photo(QSize(400, 300)) << 38.02 << 37.35;
    QTest::newRow("sky") << sky(QSize(400, 300)) << 48.05 << 46.4;
    QTest::newRow("all corners of colour space") << withColours(40'000, QSize(220, 200)) << 26.62 << 25.95;
}

void PaletteReducerTest::nearToThePicture() {
    QFETCH(QImage, image);
    QFETCH(double, plain);
    QFETCH(double, diffused);
    const double withoutDiffusion = psnr(image, toImage(reduce(image, Diffusion::Off)));
    QVERIFY2(withoutDiffusion > plain, qPrintable(QString::number(withoutDiffusion)));
    const double withDiffusion = psnr(image, toImage(reduce(image, Diffusion::On)));
    QVERIFY2(withDiffusion > diffused, qPrintable(QString::number(withDiffusion)));
}

void PaletteReducerTest::diffusionTakesTheBandsOut_data() {
    QTest::addColumn<QImage>("image");
    QTest::newRow("sky of few colours") << sky(QSize(640, 480));
    QTest::newRow("photo of many colours") << photo(QSize(640, 480), 2);
}

void PaletteReducerTest::diffusionTakesTheBandsOut() {
    QFETCH(QImage, image);
    const double bands = distanceOfMeans(image, toImage(reduce(image, Diffusion::Off)));
    const double grain = distanceOfMeans(image, toImage(reduce(image, Diffusion::On)));
    QVERIFY2(grain < bands * 0.6, qPrintable(QString("%1 against %2").arg(grain).arg(bands)));
}

void PaletteReducerTest::nearlyEqualColoursAreNotDiffused() {
    const QImage image = painted(QSize(80, 60), [](int x, int y) {
        return qRgb(100 + x / 10, 120 + y / 10, 140 + (x + y) % 7); // 8 × 6 × 7 = 336 colours
    });
    const IndexedPicture reduced = reduce(image);
    QVERIFY(reduced.indices == reduce(image, Diffusion::Off).indices);
    int farthest = 0;
    for (int y = 0; y < 60; ++y)
        for (int x = 0; x < 80; ++x)
            farthest =
                qMax(farthest, squaredDistance(reduced.palette.at(reduced.row(y)[x]), image.pixel(x, y)));
    QVERIFY2(farthest <= 3, qPrintable(QString::number(farthest)));
}

void PaletteReducerTest::smallTextKeepsItsColour_data() {
    QTest::addColumn<QImage>("image");
    QTest::addColumn<QRgb>("colour");
    const std::pair<const char*, QRgb> colours[] = {
        {"red", qRgb(255, 0, 0)},      {"green", qRgb(0, 255, 0)}, {"magenta", qRgb(255, 0, 255)},
        {"yellow", qRgb(255, 255, 0)}, {"black", qRgb(0, 0, 0)},   {"white", qRgb(255, 255, 255)}};
    for (const auto& [name, colour] : colours) {
        QTest::addRow("%s on a photo", name) << photoWithText(colour) << colour;
        QTest::addRow("%s on a drawing", name) << drawingWithText(colour) << colour;
    }
}

void PaletteReducerTest::smallTextKeepsItsColour() {
    QFETCH(QImage, image);
    QFETCH(QRgb, colour);
    const QImage result = toImage(reduce(image));
    int pixels = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != colour)
                continue;
            ++pixels;
            const int distance = squaredDistance(result.pixel(x, y), colour);
            QVERIFY2(distance <= 20 * 20, qPrintable(QColor(result.pixel(x, y)).name()));
        }
    }
    QVERIFY(pixels > 50 && pixels < 400);
}

void PaletteReducerTest::fourPixelsKeepTheirColour_data() {
    QTest::addColumn<QRgb>("colour");
    QTest::newRow("red") << qRgb(255, 0, 0);
    QTest::newRow("green") << qRgb(0, 255, 0);
    QTest::newRow("magenta") << qRgb(255, 0, 255);
    QTest::newRow("yellow") << qRgb(255, 255, 0);
}

void PaletteReducerTest::fourPixelsKeepTheirColour() {
    QFETCH(QRgb, colour);
    QImage image = photo(QSize(640, 480));
    for (const QPoint place : {QPoint(20, 20), QPoint(100, 300), QPoint(500, 50), QPoint(600, 470)})
        image.setPixel(place, colour);
    const QImage result = toImage(reduce(image));
    QVERIFY(squaredDistance(result.pixel(100, 300), colour) <= 20 * 20);
}

void PaletteReducerTest::paperAndLettersOnAPhotoStayClean() {
    const QRgb paper = qRgb(255, 253, 246);
    const QRgb ink = qRgb(30, 40, 110);
    QImage image = photo(QSize(500, 400));
    QPainter(&image).fillRect(QRect(100, 100, 300, 60), QColor(paper));
    write(image, QPoint(120, 150), 40, ink);
    const QImage result = toImage(reduce(image));
    for (int y = 100; y < 160; ++y)
        for (int x = 100; x < 400; ++x)
            QCOMPARE(result.pixel(x, y), image.pixel(x, y));
}

void PaletteReducerTest::paperThatSharesItsPaletteColourKeepsIt() {
    const QRgb paper = qRgb(250, 250, 240);
    QImage image = withColours(20'000, QSize(200, 150)); // so motley that nothing is left for shades of paper
    for (int y = 0; y < 10; ++y)
        for (int x = 0; x < 200; ++x)
            image.setPixel(x, y, x % 3 == 0 ? qRgb(247, 248, 236) : paper);
    const QImage result = toImage(reduce(image));
    QCOMPARE(result.pixel(0, 0), paper);
    QCOMPARE(result.pixel(1, 0), paper);
}

void PaletteReducerTest::errorOfTheRowsComesThrough_data() {
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("broken");
    QTest::newRow("few rows") << QSize(20, 10) << 5;
    QTest::newRow("the last of many bands") << QSize(700, 600) << 599;
}

void PaletteReducerTest::errorOfTheRowsComesThrough() {
    QFETCH(QSize, size);
    QFETCH(int, broken);
    BrokenRows rows(photo(size), broken);
    QCOMPARE(errorOf([&] { reduceTo256(rows); }), error::DeviceIo);
}

void PaletteReducerTest::diffusionTakesRowsOneAfterTheOther_data() {
    QTest::addColumn<int>("height");
    for (const int height : {1, 2, 3, 4, 5, 60, 61, 62, 63})
        QTest::addRow("%d", height) << height;
}

/// However many of them are mapped together.
void PaletteReducerTest::diffusionTakesRowsOneAfterTheOther() {
    QFETCH(int, height);
    const QImage image = photo(QSize(700, height), 60);
    const IndexedPicture together = reduce(image);
    IndexedPicture apart{image.size(), together.palette, std::vector<std::uint8_t>(together.indices.size())};
    ErrorDiffusion diffusion(apart.palette, image.width());
    for (int y = 0; y < height; ++y)
        diffusion.map(reinterpret_cast<const QRgb*>(image.constScanLine(y)), apart.row(y));
    QVERIFY(together.indices == apart.indices);
}

OVRANO_TEST(PaletteReducerTest)
#include "tst_palettereducer.moc"
