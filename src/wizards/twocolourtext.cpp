#include "wizards/twocolourtext.h"

#include "platform/coverage.h"
#include "platform/numbers.h"
#include "platform/textmask.h"
#include "wizards/layeredcoverage.h"

#include <algorithm>
#include <cmath>

namespace ovrano {

namespace {

constexpr int FullTurn = 360; // degrees
constexpr double HalfTurnRadians = 3.1416;
constexpr double FullTurnRadians = 6.2832;

/// The pixel that a print's corner falls on.
QPoint cornerOf(const TextPrint& print) {
    return QPoint(pixelOf(static_cast<double>(print.x)), pixelOf(static_cast<double>(print.y)));
}

void addSquare(std::vector<TextPrint>& prints, int first, int last, Colour colour) {
    for (int x = TextOriginX + first; x <= TextOriginX + last; ++x)
        for (int y = TextOriginY + first; y <= TextOriginY + last; ++y)
            prints.push_back({static_cast<float>(x), static_cast<float>(y), colour});
}

/// The part of the text, relative to its cell, that some print shows on the surface.
QRect shownPart(const Surface& surface, const std::vector<TextPrint>& prints) {
    QRect shown;
    for (const TextPrint& print : prints)
        shown |= surface.Image().rect().translated(-cornerOf(print));
    return shown;
}

/// Lays down prints of one colour.
void printInOneColour(Surface& surface, const SmoothTextMask& mask, const std::vector<QPoint>& origins,
                      Colour colour) {
    QRect touched;
    for (const QPoint origin : origins)
        touched |= mask.ink().translated(origin);
    const QRect area = touched & surface.Image().rect();
    blendCoverage(surface, layeredCoverage(mask, origins, area), area.topLeft(), colour);
}

} // namespace

std::vector<TextPrint> reliefPrints() {
    std::vector<TextPrint> prints;
    addSquare(prints, -1, 0, White);
    addSquare(prints, 0, 1, Black);
    return prints;
}

std::vector<TextPrint> outlinePrints(Colour colour) {
    std::vector<TextPrint> prints;
    addSquare(prints, -1, 1, colour);
    return prints;
}

std::vector<TextPrint> extrusionPrints(Colour colour, std::int32_t depth, double angle) {
    std::vector<TextPrint> prints;
    for (std::int32_t k = 1; k <= depth; ++k)
        prints.push_back({static_cast<float>(TextOriginX + k * std::cos(angle)),
                          static_cast<float>(TextOriginY + k * std::sin(angle)), colour});
    return prints;
}

TextPrint facePrint(Colour colour) {
    return {TextOriginX, TextOriginY, colour};
}

double extrusionAngle(double degrees) {
    return HalfTurnRadians / 2 + FullTurnRadians / (FullTurn / degrees);
}

bool isDigitsOnly(const QString& text) {
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

QString withoutFullTurns(const QString& digits) {
    bool turns = false;
    int rest = 0;
    for (const QChar digit : digits) {
        rest = rest * 10 + (digit.unicode() - u'0');
        turns = turns || rest >= FullTurn;
        rest %= FullTurn;
    }
    return turns ? QString::number(rest) : digits;
}

void printTextLayers(Surface& surface, const QString& text, const std::vector<TextPrint>& prints) {
    const QRect window = shownPart(surface, prints) & inkBounds(surface.Font(), text);
    const SmoothTextMask mask(surface.Font(), text, window);
    for (auto run = prints.begin(); run != prints.end();) {
        const Colour colour = run->colour;
        const auto end = std::find_if_not(
            run, prints.end(), [colour](const TextPrint& print) { return print.colour == colour; });
        std::vector<QPoint> origins;
        std::transform(run, end, std::back_inserter(origins), cornerOf);
        printInOneColour(surface, mask, origins, colour);
        run = end;
    }
}

} // namespace ovrano
