#include "platform/textmask.h"
#include "support/ratiotable.h"
#include "wizards/modroundtext.h"
#include "wizards/twocolourtext.h"

#include <QGuiApplication>
#include <QPainter>

#include <cmath>
#include <numbers>

using namespace ovrano;

// One redraw of the two text dialogs, at their largest settings, beside the plain loop: the toolkit's painter
// asked for each print.

namespace {

constexpr QSize ExampleSize(560, 220);
constexpr int Depth = 60;
constexpr double ExamplePoints = 72;
constexpr double Degrees = 250;
const QString Line = QStringLiteral("Votre texte");

QFont letters(double points) {
    return smoothTextFont(QStringLiteral("Liberation Sans"), points);
}

void exampleOurs(benchmark::State& state) {
    Surface example(QStringLiteral("example"), ExampleSize);
    example.setFont(letters(ExamplePoints));
    for ([[maybe_unused]] auto _ : state) {
        example.Cls();
        auto prints = extrusionPrints(rgb(160, 184, 208), Depth, extrusionAngle(Degrees));
        prints.push_back(facePrint(rgb(0, 64, 128)));
        printTextLayers(example, Line, prints);
    }
}

void examplePlain(benchmark::State& state) {
    QImage example(ExampleSize, QImage::Format_RGB32);
    const QFont font = letters(ExamplePoints);
    const int ascent = QFontMetrics(font).ascent();
    for ([[maybe_unused]] auto _ : state) {
        example.fill(Qt::white);
        auto prints = extrusionPrints(rgb(160, 184, 208), Depth, extrusionAngle(Degrees));
        prints.push_back(facePrint(rgb(0, 64, 128)));
        QPainter painter(&example);
        painter.setFont(font);
        for (const TextPrint& print : prints) {
            painter.setPen(QColor(toPixel(print.colour)));
            painter.drawText(QPoint(qRound(print.x), qRound(print.y) + ascent), Line);
        }
    }
}

constexpr QSize CircleSize(420, 420);
constexpr float Radius = 120;
const QString Circle = QStringLiteral("EXEMPLE DE TEXTE - Circulaire - ").repeated(4).left(100);

/// The start angle of each redraw: the same again and again, or another one as while a slider is dragged.
float startOf(int redraw, bool turning) {
    return turning ? float(redraw % 3600) / 10 : 0;
}

void circleOurs(benchmark::State& state, double points, bool turning) {
    Surface circle(QStringLiteral("circle"), CircleSize);
    circle.setFont(letters(points));
    int redraw = 0;
    for ([[maybe_unused]] auto _ : state) {
        circle.Cls();
        PrintRoundText(circle, Circle, startOf(redraw++, turning), Radius, 210, 210, 360);
    }
}

/// A font of its own for each character, as the method is written down.
void circlePlain(benchmark::State& state, double points, bool turning) {
    QImage circle(CircleSize, QImage::Format_RGB32);
    int redraw = 0;
    for ([[maybe_unused]] auto _ : state) {
        circle.fill(Qt::white);
        const double start = double(startOf(redraw++, turning));
        const double step = 360.0 / double(Circle.size());
        QPainter painter(&circle);
        for (qsizetype i = 0; i < Circle.size(); ++i) {
            const QFont font = letters(points);
            const double angle = start - double(i) * step;
            const double phi = (angle - 180) * std::numbers::pi / 180;
            painter.setFont(font);
            painter.save();
            painter.translate(qRound(double(Radius) * std::sin(phi) + 210),
                              qRound(double(Radius) * std::cos(phi) + 210));
            painter.rotate(-angle);
            painter.drawText(QPoint(0, QFontMetrics(font).ascent()), Circle.mid(i, 1));
            painter.restore();
        }
    }
}

BENCHMARK(exampleOurs)->Name("two-colour example, depth 60, 72 points/ours");
BENCHMARK(examplePlain)->Name("two-colour example, depth 60, 72 points/plain");
BENCHMARK_CAPTURE(circleOurs, still, 18, false)->Name("circular text, 100 characters, 18 points, again/ours");
BENCHMARK_CAPTURE(circlePlain, still, 18, false)
    ->Name("circular text, 100 characters, 18 points, again/plain");
BENCHMARK_CAPTURE(circleOurs, large, 60, false)->Name("circular text, 100 characters, 60 points, again/ours");
BENCHMARK_CAPTURE(circlePlain, large, 60, false)
    ->Name("circular text, 100 characters, 60 points, again/plain");
BENCHMARK_CAPTURE(circleOurs, turning, 60, true)
    ->Name("circular text, 100 characters, 60 points, turning/ours");
BENCHMARK_CAPTURE(circlePlain, turning, 60, true)
    ->Name("circular text, 100 characters, 60 points, turning/plain");

} // namespace

OVRANO_BENCH_MAIN(QGuiApplication)
