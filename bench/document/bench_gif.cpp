#include "document/reductions.h"
#include "document/topics.h"
#include "support/comparison.h"
#include "support/pictures.h"
#include "support/table.h"
#include "text/extrusion.h"

#include <QPainter>

#include <cmath>

namespace ovrano::bench {

namespace {

/// The speeds of libimagequant, 1 the slowest and 11 the fastest.
constexpr int FastSpeed = 10;
constexpr int GoodSpeed = 4;

/// Extruded texts as the program writes them, on white.
QImage drawing(QSize size) {
    constexpr int LineHeight = 220; // pixels
    constexpr int TwipsPerPixel = 15;
    Surface surface(QStringLiteral("drawing"), size);
    surface.setScaleMode(ScaleMode::Twips);
    const auto depth = extrusionDepth(9);
    for (int i = 0; LineHeight * (i + 1) < size.height(); ++i) {
        surface.setFont(
            textFont(QStringLiteral("Liberation Sans"), 60 + 10 * (i % 9), i % 2 == 0, i % 3 == 0));
        const Colour colour = rgb(40 * i % 200, 90 * i % 180, 130 * i % 220);
        for (const TextLayer& layer :
             visibleLayers(extrusionLayers(colour, depth, static_cast<Direction>(1 + i % 4))))
            PrintTextLayer(surface, layer.x + float(40 * TwipsPerPixel),
                           layer.y + float(LineHeight * i * TwipsPerPixel), layer.colour,
                           QStringLiteral("Votre texte décoratif en trois dimensions"));
    }
    return surface.Image().toImage();
}

struct Kind {
    const char* name;
    QImage (*picture)(QSize size);
};

constexpr Kind Kinds[] = {{"photo", photo},
                          {"portrait", portrait},
                          {"sky", gradientSky},
                          {"screenshot", screenshot},
                          {"drawing with texts", drawing}};

double squaredDifference(QRgb a, QRgb b) {
    const int red = qRed(a) - qRed(b);
    const int green = qGreen(a) - qGreen(b);
    const int blue = qBlue(a) - qBlue(b);
    return red * red + green * green + blue * blue;
}

/// Peak signal to noise ratio in decibels; 99 for equal pictures.
double psnr(const QImage& a, const QImage& b) {
    double sum = 0;
    for (int y = 0; y < a.height(); ++y) {
        const auto* one = reinterpret_cast<const QRgb*>(a.constScanLine(y));
        const auto* other = reinterpret_cast<const QRgb*>(b.constScanLine(y));
        for (int x = 0; x < a.width(); ++x)
            sum += squaredDifference(one[x], other[x]);
    }
    return sum == 0 ? 99 : 10 * std::log10(255.0 * 255 * 3 * a.width() * a.height() / sum);
}

#ifdef OVRANO_BENCH_IMAGEQUANT

void compareQuality(const std::string& work, const QImage& picture, Diffusion diffusion) {
    constexpr double Allowed = -0.3; // decibels
    const double ours = psnr(picture, reducedByUs(picture, diffusion));
    const double theirs = psnr(picture, reducedByImagequant(picture, GoodSpeed, diffusion));
    printRow({work, threeDigits(ours) + " dB", "libimagequant, speed 4", threeDigits(theirs) + " dB",
              threeDigits(ours - theirs), ">= " + threeDigits(Allowed), ours - theirs >= Allowed});
}

void addImagequant(Comparison& ways, const QImage& picture, Diffusion diffusion) {
    ways.against("libimagequant, speed 10", imagequantReduction(picture, FastSpeed, diffusion), 0.1,
                 Comparison::Few);
}

#else

void compareQuality(const std::string& work, const QImage& picture, Diffusion diffusion) {
    printRow({work, threeDigits(psnr(picture, reducedByUs(picture, diffusion))) + " dB", "", "", "", "", {}});
}

void addImagequant(Comparison& ways, const QImage&, Diffusion) {
    ways.without("libimagequant", "which was not found when this was built");
}

#endif

#ifdef OVRANO_BENCH_LEPTONICA
void addLeptonica(Comparison& ways, const QImage& picture, Diffusion diffusion) {
    ways.against("leptonica, median cut", leptonicaReduction(picture, diffusion), {}, Comparison::Few);
}
#else
void addLeptonica(Comparison& ways, const QImage&, Diffusion) {
    ways.without("leptonica", "which was not found when this was built");
}
#endif

void reduceKind(const Kind& kind, Diffusion diffusion) {
    const std::string how = diffusion == Diffusion::On ? ", diffusion" : ", no diffusion";
    const std::string work = std::string("256 colours, 12 MP, ") + kind.name + how;
    if (isWanted(work + ", PSNR"))
        compareQuality(work + ", PSNR", kind.picture(TwelveMegapixels), diffusion);
    compare(work, [&](Comparison& ways) {
        const QImage picture = kind.picture(TwelveMegapixels);
        ways.ours(ourReduction(picture, diffusion), 5);
        addImagequant(ways, picture, diffusion);
        addLeptonica(ways, picture, diffusion);
        ways.against("the toolkit, a fixed palette", toolkitReduction(picture, diffusion), {},
                     Comparison::Few);
    });
}

/// The pictures that are compared, side by side, enlarged parts of them.
void saveSheet(const Kind& kind, const QString& folder) {
    constexpr QSize Part(200, 150);
    constexpr int Times = 2;
    const QImage picture = kind.picture(TwelveMegapixels / 4);
    QList<QImage> shown = {picture, reducedByUs(picture, Diffusion::Off),
                           reducedByUs(picture, Diffusion::On)};
#ifdef OVRANO_BENCH_IMAGEQUANT
    shown << reducedByImagequant(picture, GoodSpeed, Diffusion::Off)
          << reducedByImagequant(picture, GoodSpeed, Diffusion::On);
#endif
    const QRect part(QPoint(picture.width() / 2 - 100, picture.height() / 3), Part);
    QImage sheet(Part.width() * Times * int(shown.size()), Part.height() * Times, QImage::Format_RGB32);
    QPainter painter(&sheet);
    for (int i = 0; i < shown.size(); ++i)
        painter.drawImage(QRect(QPoint(i * Part.width() * Times, 0), Part * Times), shown.at(i), part);
    painter.end();
    sheet.save(folder +
               QStringLiteral("/256-colours-%1.png").arg(QString::fromLatin1(kind.name).section(u' ', 0, 0)));
}

} // namespace

void gif() {
    for (const Kind& kind : Kinds)
        for (const Diffusion diffusion : {Diffusion::Off, Diffusion::On})
            reduceKind(kind, diffusion);
}

void saveGifSheets(const QString& folder) {
    for (const Kind& kind : Kinds)
        saveSheet(kind, folder);
}

} // namespace ovrano::bench
