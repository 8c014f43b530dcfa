#include "wizards/modroundtext.h"

#include "platform/numbers.h"
#include "platform/runtimeerror.h"
#include "wizards/turnedcharacters.h"

#include <QTextBoundaryFinder>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace ovrano {

namespace {

constexpr double Pi = 3.141592654;

/// A coordinate as surfaces keep it.
float checkedPosition(double value) {
    if (!(std::abs(value) <= static_cast<double>(std::numeric_limits<float>::max())))
        throw RuntimeError(error::Overflow);
    return static_cast<float>(value);
}

/// The whole pixel of a coordinate. What lies far outside every surface may lie elsewhere outside.
int pixelOf(float coordinate) {
    constexpr double Far = 1 << 28;
    return static_cast<int>(std::clamp(roundHalfEven(static_cast<double>(coordinate)), -Far, Far));
}

/// The characters of a font; those of the last one are still there at the next drawing.
TurnedCharacters& turnedCharacters(const QFont& font) {
    static std::optional<TurnedCharacters> last;
    if (!last || !last->areOf(font))
        last.emplace(font);
    return *last;
}

void printCharacters(Surface& target, const QStringList& characters, std::int16_t count,
                     const RoundPath& path) {
    TurnedCharacters& font = turnedCharacters(target.Font());
    for (std::int16_t i = 0; i < count; ++i) {
        const RoundPlace place = path.place(i);
        target.setCurrentX(static_cast<double>(place.x));
        target.setCurrentY(static_cast<double>(place.y));
        font.print(target, characters.at(i), place.escapement, QPoint(pixelOf(place.x), pixelOf(place.y)));
    }
}

} // namespace

RoundPlace RoundPath::place(std::int16_t index) const {
    const auto before = static_cast<float>(index);
    const float escapement = startAngle * 10 - step * 10 * before;
    const float degrees = startAngle - 180 - before * step;
    const double phi = static_cast<double>(degrees) * Pi / 180;
    return {toInteger32(static_cast<double>(escapement)),
            checkedPosition(static_cast<double>(radius) * std::sin(phi) + centreX),
            checkedPosition(static_cast<double>(radius) * std::cos(phi) + centreY)};
}

QStringList charactersOf(const QString& text) {
    QStringList characters;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    for (qsizetype start = 0, end = finder.toNextBoundary(); end > start; end = finder.toNextBoundary()) {
        characters.append(text.mid(start, end - start));
        start = end;
    }
    return characters;
}

void PrintRoundText(Surface& target, const QString& text, float startAngle, float radius,
                    std::int16_t centreX, std::int16_t centreY, float sector) {
    const QStringList characters = charactersOf(text);
    if (characters.isEmpty())
        return;
    skipOnError([&] {
        const std::int16_t count = toInteger16(static_cast<double>(characters.size()));
        const float step = sector / static_cast<float>(count);
        printCharacters(target, characters, count, {startAngle, radius, centreX, centreY, step});
    });
}

} // namespace ovrano
