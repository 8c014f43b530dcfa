#include "platform/numbers.h"

#include "platform/runtimeerror.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <limits>

namespace ovrano {

namespace {

template<typename Integer>
Integer rounded(double value) {
    const double nearest = roundHalfEven(value);
    // Written so that a NaN fails as well.
    if (!(nearest >= std::numeric_limits<Integer>::min() && nearest <= std::numeric_limits<Integer>::max()))
        throw RuntimeError(error::Overflow);
    return static_cast<Integer>(nearest);
}

QString withoutBlanks(const QString& text) {
    QString kept;
    for (const QChar c : text)
        if (!c.isSpace())
            kept += c;
    return kept;
}

} // namespace

double roundHalfEven(double value) {
    const double below = std::floor(value);
    const double fraction = value - below;
    if (fraction < 0.5)
        return below;
    if (fraction > 0.5)
        return below + 1;
    return std::fmod(below, 2) == 0 ? below : below + 1;
}

std::int16_t toInteger16(double value) {
    return rounded<std::int16_t>(value);
}

std::int32_t toInteger32(double value) {
    return rounded<std::int32_t>(value);
}

int pixelOf(double coordinate) {
    constexpr double Far = 1 << 28;
    return std::isnan(coordinate) ? 0 : static_cast<int>(std::clamp(roundHalfEven(coordinate), -Far, Far));
}

float toSingle(double value) {
    // Written so that a NaN fails as well.
    if (!(std::abs(value) <= static_cast<double>(std::numeric_limits<float>::max())))
        throw RuntimeError(error::Overflow);
    return static_cast<float>(value);
}

double numericValue(const QString& text) {
    static const QRegularExpression hexadecimal(QStringLiteral("^&[Hh]([0-9A-Fa-f]{1,8})"));
    static const QRegularExpression decimal(
        QStringLiteral(R"(^[+-]?(?:[0-9]+\.?[0-9]*|\.[0-9]+)(?:[eEdD][+-]?[0-9]+)?)"));
    const QString compact = withoutBlanks(text);
    if (const auto match = hexadecimal.match(compact); match.hasMatch())
        return static_cast<double>(match.captured(1).toUInt(nullptr, 16));
    const auto match = decimal.match(compact);
    if (!match.hasMatch())
        return 0;
    QString number = match.captured();
    number.replace(QLatin1Char('d'), QLatin1Char('e'), Qt::CaseInsensitive);
    return number.toDouble();
}

std::int16_t integerValue(const QString& text) {
    return toInteger16(numericValue(text));
}

float singleValue(const QString& text) {
    return toSingle(numericValue(text));
}

} // namespace ovrano
