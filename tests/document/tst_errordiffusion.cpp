#include "document/errordiffusion.h"
#include "document/palettetools.h"
#include "support/testprogram.h"

#include <QTest>

#include <array>

using namespace ovrano;

class ErrorDiffusionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void sameAsTheSlowWay_data();
    void sameAsTheSlowWay();
    void rowsAtOnceAreTheSame_data();
    void rowsAtOnceAreTheSame();
    void extremesAreTheSame_data();
    void extremesAreTheSame();
    void areaHasTheRightColourOnTheAverage_data();
    void areaHasTheRightColourOnTheAverage();
    void nearlyRightAreaStaysClean();
    void paperBesideAPhotoStaysClean();
};

namespace {

std::size_t pixelsOf(const QImage& image) {
    return static_cast<std::size_t>(image.width()) * static_cast<std::size_t>(image.height());
}

IndexedPicture diffused(const QImage& image, const Palette& palette) {
    IndexedPicture picture{image.size(), palette, {}};
    picture.indices.resize(pixelsOf(image));
    ImageRows rows(image);
    ErrorDiffusion diffusion(picture.palette, image.width());
    for (int y = 0; y < image.height(); ++y)
        diffusion.map(rows.row(y), picture.row(y));
    return picture;
}

/// The same, as many rows at once as go together. The height must be a multiple of that.
IndexedPicture diffusedInGroups(const QImage& image, const Palette& palette) {
    IndexedPicture picture{image.size(), palette, {}};
    picture.indices.resize(pixelsOf(image));
    ErrorDiffusion diffusion(picture.palette, image.width());
    for (int y = 0; y < image.height();) {
        std::array<const QRgb*, ErrorDiffusion::RowsAtOnce> rows;
        std::array<std::uint8_t*, ErrorDiffusion::RowsAtOnce> indices;
        for (std::size_t i = 0; i < rows.size(); ++i, ++y) {
            rows[i] = reinterpret_cast<const QRgb*>(image.constScanLine(y));
            indices[i] = picture.row(y);
        }
        diffusion.map(rows, indices);
    }
    return picture;
}

/// Error diffusion on a whole picture of sums, as one would first write it down.
class SlowDiffusion {
public:
    SlowDiffusion(const QImage& image, const Palette& palette)
        : m_image(image)
        , m_palette(palette)
        , m_sums(pixelsOf(image)) {}

    QImage map() {
        return painted(m_image.size(), [this](int x, int y) { return mapPixel(x, y); });
    }

private:
    using Sums = std::array<int, 3>; // red, green, blue, in 64ths

    Sums& sums(int x, int y) {
        return m_sums[static_cast<std::size_t>(y) * static_cast<std::size_t>(m_image.width()) +
                      static_cast<std::size_t>(x)];
    }

    static Sums channels(QRgb colour) { return {qRed(colour), qGreen(colour), qBlue(colour)}; }

    QRgb mapPixel(int x, int y) {
        const QRgb pixel = m_image.pixel(x, y);
        if (std::find(m_palette.begin(), m_palette.end(), pixel) != m_palette.end())
            return pixel;
        Sums wanted = channels(pixel);
        for (std::size_t i = 0; i < 3; ++i)
            wanted[i] = qBound(0, wanted[i] + static_cast<int>(std::floor((sums(x, y)[i] + 32) / 64.0)), 255);
        const QRgb got = m_palette.at(
            static_cast<std::size_t>(slowNearest(m_palette, qRgb(wanted[0], wanted[1], wanted[2]))));
        for (std::size_t i = 0; i < 3; ++i)
            spread(x, y, i, wanted[i] - channels(got)[i]);
        return got;
    }

    void spread(int x, int y, std::size_t channel, int error) {
        add(x + 1, y, channel, 21 * error);
        add(x - 1, y + 1, channel, 9 * error);
        add(x, y + 1, channel, 15 * error);
        add(x + 1, y + 1, channel, 3 * error);
    }

    void add(int x, int y, std::size_t channel, int error) {
        if (m_image.rect().contains(x, y))
            sums(x, y)[channel] += error;
    }

    const QImage& m_image;
    const Palette& m_palette;
    std::vector<Sums> m_sums;
};

const Palette SomeColours = {qRgb(0, 0, 0),     qRgb(255, 255, 255), qRgb(220, 40, 30),  qRgb(90, 120, 200),
                             qRgb(130, 90, 80), qRgb(160, 170, 90),  qRgb(200, 180, 150)};

} // namespace

void ErrorDiffusionTest::sameAsTheSlowWay_data() {
    QTest::addColumn<QSize>("size");
    for (const QSize size : {QSize(1, 1), QSize(1, 2), QSize(2, 1), QSize(1, 40), QSize(40, 1), QSize(2, 2),
                             QSize(3, 5), QSize(4, 4), QSize(31, 17), QSize(120, 90)})
        QTest::addRow("%d x %d", size.width(), size.height()) << size;
}

void ErrorDiffusionTest::sameAsTheSlowWay() {
    QFETCH(QSize, size);
    const QImage image = photo(size, 60);
    QCOMPARE(toImage(diffused(image, SomeColours)), SlowDiffusion(image, SomeColours).map());
}

void ErrorDiffusionTest::rowsAtOnceAreTheSame_data() {
    QTest::addColumn<int>("width");
    for (const int width : {1, 2, 3, 4, 5, 6, 7, 8, 31, 120})
        QTest::addRow("%d", width) << width;
}

void ErrorDiffusionTest::rowsAtOnceAreTheSame() {
    QFETCH(int, width);
    const QImage image = photo(QSize(width, 40), 60);
    QCOMPARE(toImage(diffusedInGroups(image, SomeColours)), SlowDiffusion(image, SomeColours).map());
}

void ErrorDiffusionTest::extremesAreTheSame_data() {
    constexpr QRgb Black = qRgb(0, 0, 0);
    constexpr QRgb White = qRgb(255, 255, 255);
    QTest::addColumn<Palette>("palette");
    QTest::newRow("black") << Palette{Black};
    QTest::newRow("white") << Palette{White};
    QTest::newRow("both") << Palette{Black, White};
    QTest::newRow("greys, each twice") << [] {
        Palette greys;
        for (int i = 0; i < 256; ++i)
            greys.push_back(qRgb(i / 2 * 2, i / 2 * 2, i / 2 * 2));
        return greys;
    }();
}

/// With pixels that are as far from the palette as can be, and among them some that are in it.
void ErrorDiffusionTest::extremesAreTheSame() {
    QFETCH(Palette, palette);
    const QImage image = painted(QSize(61, 40), [&](int x, int y) {
        const int place = x * 7 + y * 13;
        if (place % 3 == 0)
            return palette.at(static_cast<std::size_t>(place) % palette.size());
        return qRgb(place & 1 ? 255 : 0, place & 2 ? 255 : 0, place & 4 ? 255 : 0);
    });
    QCOMPARE(toImage(diffusedInGroups(image, palette)), SlowDiffusion(image, palette).map());
}

void ErrorDiffusionTest::areaHasTheRightColourOnTheAverage_data() {
    QTest::addColumn<int>("level");
    for (int level = 98; level <= 110; level += 2)
        QTest::addRow("%d", level) << level;
}

void ErrorDiffusionTest::areaHasTheRightColourOnTheAverage() {
    QFETCH(int, level);
    QImage image(64, 64, QImage::Format_RGB32);
    image.fill(qRgb(level, level, level));
    const QImage result = toImage(diffused(image, {qRgb(96, 96, 96), qRgb(112, 112, 112)}));
    double sum = 0;
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x)
            sum += qGreen(result.pixel(x, y));
    const double off = std::abs(sum / (64 * 64) - level);
    QVERIFY2(off < 2.2, qPrintable(QString::number(off))); // without diffusion up to 8
}

void ErrorDiffusionTest::nearlyRightAreaStaysClean() {
    QImage image(64, 64, QImage::Format_RGB32);
    image.fill(qRgb(97, 97, 97));
    const IndexedPicture result = diffused(image, {qRgb(96, 96, 96), qRgb(112, 112, 112)});
    QCOMPARE(result.indices, std::vector<std::uint8_t>(pixelsOf(image), 0));
}

void ErrorDiffusionTest::paperBesideAPhotoStaysClean() {
    const QRgb paper = qRgb(250, 248, 240);
    QImage image = photo(QSize(80, 60), 40);
    QPainter(&image).fillRect(QRect(40, 10, 40, 50), QColor(paper));
    const QImage result =
        toImage(diffused(image, {paper, qRgb(255, 255, 255), qRgb(235, 240, 230), qRgb(0, 0, 0)}));
    for (int y = 10; y < 60; ++y)
        for (int x = 40; x < 80; ++x)
            QCOMPARE(result.pixel(x, y), paper);
}

OVRANO_TEST_WITHOUT_WINDOWS(ErrorDiffusionTest)
#include "tst_errordiffusion.moc"
