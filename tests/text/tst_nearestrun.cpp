#include "support/testprogram.h"
#include "text/nearestrun.h"

#include <QTest>

#include <cmath>
#include <random>
#include <vector>

using namespace ovrano;

namespace {

constexpr QSize PatchSize(200, 180);
constexpr Colour Skipped = rgb(255, 255, 255);
constexpr int Margin = 3; // pixels beside a run that must stay as they are

enum class Content { Pixels, PixelsAndNothing, Nothing };

/// No two of its pixels are equal, but for those that are skipped.
Raster picture(Content content) {
    std::minstd_rand random(7);
    QImage image(PatchSize, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const bool isSkipped =
                content == Content::Nothing || (content == Content::PixelsAndNothing && random() % 3 == 0);
            image.setPixel(x, y, isSkipped ? toPixel(Skipped) : qRgb(x, y, 5));
        }
    return Raster::fromImage(image);
}

RotationMap::Fixed toFixed(double coordinate) {
    return std::llround(std::ldexp(coordinate, RotationMap::FractionBits));
}

std::vector<QRgb> background(int count) {
    std::vector<QRgb> pixels(static_cast<std::size_t>(count));
    int number = 0;
    for (QRgb& pixel : pixels)
        pixel = qRgb(200, number++ % 256, 100);
    return pixels;
}

/// Pixel by pixel.
std::vector<QRgb> laidSlowly(std::vector<QRgb> pixels, const SourcePatch& patch, int count,
                             RotationMap::Point from, RotationMap::Point step) {
    auto pixel = pixels.begin() + Margin;
    for (int i = 0; i < count; ++i, ++pixel) {
        const QRgb sample = *patch.at(static_cast<int>((from.x + i * step.x) / RotationMap::One),
                                      static_cast<int>((from.y + i * step.y) / RotationMap::One));
        if (sample != SourcePatch::Nothing)
            *pixel = sample;
    }
    return pixels;
}

} // namespace

class TestNearestRun : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void equalsPixelByPixel_data();
    void equalsPixelByPixel();
};

void TestNearestRun::equalsPixelByPixel_data() {
    QTest::addColumn<int>("content");
    QTest::addColumn<double>("degrees");
    const std::pair<const char*, Content> contents[] = {{"pixels", Content::Pixels},
                                                        {"pixels and nothing", Content::PixelsAndNothing},
                                                        {"nothing", Content::Nothing}};
    for (const auto& [name, content] : contents)
        for (const double degrees : {0.0, 37.0, 90.0, 135.5, 180.0, 217.0, 301.25})
            QTest::addRow("%s, %g degrees", name, degrees) << static_cast<int>(content) << degrees;
}

void TestNearestRun::equalsPixelByPixel() {
    QFETCH(int, content);
    QFETCH(double, degrees);
    const Raster source = picture(static_cast<Content>(content));
    SourcePatch patch(Skipped);
    patch.load(source, source.rect());
    QCOMPARE(patch.isWhole(), static_cast<Content>(content) == Content::Pixels);
    const double angle = degrees / 180 * RotationMap::Pi;
    const RotationMap::Point step = {toFixed(std::cos(angle)), toFixed(std::sin(angle))};
    for (int count = 0; count <= 80; ++count) {
        const RotationMap::Point from = {toFixed(100.3 + count * 0.17), toFixed(90.8 - count * 0.09)};
        const std::vector<QRgb> before = background(count + 2 * Margin);
        std::vector<QRgb> pixels = before;
        layNearestOver(pixels.data() + Margin, count, patch, from, step);
        QCOMPARE(pixels, laidSlowly(before, patch, count, from, step));
    }
}

OVRANO_TEST_WITHOUT_WINDOWS(TestNearestRun)
#include "tst_nearestrun.moc"
