#include "wizards/modroundtext.h"

#include "platform/memoryerror.h"
#include "platform/numbers.h"
#include "wizards/turnedcharacters.h"

#include <QCoreApplication>
#include <QTextBoundaryFinder>

#include <cmath>
#include <optional>
#include <vector>

namespace ovrano {
inline namespace modRoundText {

namespace {

constexpr double Pi = 3.141592654;

/// The characters of a font; those of the last one are still there at the next drawing, until the program
/// ends.
TurnedCharacters& turnedCharacters(const QFont& font) {
    static std::optional<TurnedCharacters> last;
    if (!last)
        qAddPostRoutine([] { last.reset(); }); // before the fonts that it was made with
    if (!last || !last->areOf(font))
        last.emplace(font);
    return *last;
}

void printCharacters(Surface& target, const QStringList& characters, std::int16_t count,
                     const RoundPath& path) {
    std::vector<TurnedCharacter> placed;
    skipUnlessMemory([&] {
        for (std::int16_t i = 0; i < count; ++i) {
            const RoundPlace place = path.place(i);
            placed.push_back(
                {characters.at(i), place.escapement,
                 QPoint(pixelOf(static_cast<double>(place.x)), pixelOf(static_cast<double>(place.y)))});
        }
    });
    if (placed.empty())
        return;
    turnedCharacters(target.Font()).print(target, placed);
    target.setCurrentX(0);
    target.setCurrentY(placed.back().corner.y() + target.TextHeight(placed.back().text));
}

} // namespace

RoundPlace RoundPath::place(std::int16_t index) const {
    const auto before = static_cast<float>(index);
    const float escapement = startAngle * 10 - step * 10 * before;
    const float degrees = startAngle - 180 - before * step;
    const double phi = static_cast<double>(degrees) * Pi / 180;
    return {toInteger32(static_cast<double>(escapement)),
            toSingle(static_cast<double>(radius) * std::sin(phi) + centreX),
            toSingle(static_cast<double>(radius) * std::cos(phi) + centreY)};
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
    skipUnlessMemory([&] {
        const std::int16_t count = toInteger16(static_cast<double>(characters.size()));
        const float step = sector / static_cast<float>(count);
        printCharacters(target, characters, count, {startAngle, radius, centreX, centreY, step});
    });
}

} // namespace modRoundText
} // namespace ovrano
