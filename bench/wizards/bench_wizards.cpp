#include "platform/textmask.h"
#include "support/comparison.h"
#include "wizards/modroundtext.h"
#include "wizards/twocolourtext.h"

#include <QApplication>
#include <QPainter>

#include <cmath>
#include <memory>
#include <numbers>

using namespace ovrano;
using namespace ovrano::bench;

// One redraw of the two text dialogs, at their largest settings, beside the plain loop: the toolkit's painter
// asked for each print.

namespace {

constexpr double Frame = 16; // milliseconds
constexpr double ToPlain = 0.15;

constexpr QSize ExampleSize(560, 220);
constexpr int Depth = 60;
constexpr double ExamplePoints = 72;
constexpr double Degrees = 250;
const QString Line = QStringLiteral("Votre texte");

QFont letters(double points) {
    return smoothTextFont(QStringLiteral("Liberation Sans"), points);
}

std::vector<TextPrint> examplePrints() {
    auto prints = extrusionPrints(rgb(160, 184, 208), Depth, extrusionAngle(Degrees));
    prints.push_back(facePrint(rgb(0, 64, 128)));
    return prints;
}

void exampleOurs(Surface& example) {
    example.Cls();
    printTextLayers(example, Line, examplePrints());
}

void examplePlain(QImage& example) {
    example.fill(Qt::white);
    const QFont font = letters(ExamplePoints);
    const int ascent = QFontMetrics(font).ascent();
    QPainter painter(&example);
    painter.setFont(font);
    for (const TextPrint& print : examplePrints()) {
        painter.setPen(QColor(toPixel(print.colour)));
        painter.drawText(QPoint(qRound(print.x), qRound(print.y) + ascent), Line);
    }
}

void twoColours() {
    compare("two-colour example, depth 60, 72 points", [](Comparison& ways) {
        const auto example = std::make_shared<Surface>(QStringLiteral("example"), ExampleSize);
        example->setFont(letters(ExamplePoints));
        const auto plain = std::make_shared<QImage>(ExampleSize, QImage::Format_RGB32);
        ways.ours(timed([=] { exampleOurs(*example); })).within(Frame);
        ways.against("the plain loop", timed([=] { examplePlain(*plain); }), ToPlain);
    });
}

constexpr QSize CircleSize(420, 420);
constexpr float Radius = 120;
const QString Circle = QStringLiteral("EXEMPLE DE TEXTE - Circulaire - ").repeated(4).left(100);

/// The start angles of the redraws: the same again and again, or another one as while a slider is dragged.
struct Turns {
    bool turning;
    int redraw = 0;

    float next() { return turning ? float(redraw++ % 3600) / 10 : 0; }
};

void circleOurs(Surface& circle, float start) {
    circle.Cls();
    PrintRoundText(circle, Circle, start, Radius, 210, 210, 360);
}

/// A font of its own for each character, as the method is written down.
void circlePlain(QImage& circle, double points, double start) {
    circle.fill(Qt::white);
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

void circle(const std::string& variant, double points, bool turning) {
    compare("circular text, 100 characters, " + variant, [=](Comparison& ways) {
        const auto surface = std::make_shared<Surface>(QStringLiteral("circle"), CircleSize);
        surface->setFont(letters(points));
        const auto plain = std::make_shared<QImage>(CircleSize, QImage::Format_RGB32);
        const auto turns = std::make_shared<Turns>(Turns{turning});
        ways.ours(timed([=] { circleOurs(*surface, turns->next()); })).within(Frame);
        ways.against("the plain loop", timed([=] { circlePlain(*plain, points, double(turns->next())); }),
                     ToPlain);
    });
}

} // namespace

OVRANO_BENCH_MAIN(QApplication) {
    twoColours();
    circle("18 points, again", 18, false);
    circle("60 points, again", 60, false);
    circle("60 points, turning", 60, true);
}
