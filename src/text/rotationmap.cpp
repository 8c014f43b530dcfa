#include "text/rotationmap.h"

#include "platform/numbers.h"
#include "platform/runtimeerror.h"

#include <algorithm>
#include <cmath>

namespace ovrano {

namespace {

using Fixed = RotationMap::Fixed;

double toRadians(double degrees) {
    if (!std::isfinite(degrees))
        throw RuntimeError(error::InvalidCall);
    return degrees / 360 * 2 * RotationMap::Pi;
}

Fixed toFixed(double value) {
    return std::llround(std::ldexp(value, RotationMap::FractionBits));
}

double inverse(Fixed step) {
    return step == 0 ? 0 : 1 / static_cast<double>(step);
}

/// Whether one of so many source coordinates, `step` apart from the middle of a pixel on, comes within a
/// millionth of a border between pixels: the formulas differ by far less, at up to a million million degrees.
bool hasTies(Fixed step, int count) {
    constexpr Fixed Near = RotationMap::One >> 20;
    Fixed at = RotationMap::One / 2;
    for (int k = 0; k <= count; ++k, at += step)
        if (((at + Near) & (RotationMap::One - 1)) <= 2 * Near)
            return true;
    return false;
}

/// The smallest k with start + k × step ≥ bound, cut to ±Limit, where no column is. step is positive, perUnit
/// is 1 / step: this is asked for often, and dividing takes long.
int firstFrom(Fixed start, Fixed step, double perUnit, Fixed bound) {
    constexpr double Limit = 1 << 16;
    const double estimate = static_cast<double>(bound - start) * perUnit;
    // Cut to a whole number, which may be one off besides; whether a column is in or out must be exact.
    int k = static_cast<int>(std::clamp(estimate, -Limit, Limit)) - 1;
    while (k < Limit && start + k * step < bound)
        ++k;
    return k;
}

/// Leaves the columns k with 0 ≤ start + k × step < end.
void clip(RotationMap::Columns& columns, Fixed start, Fixed step, double perUnit, Fixed end) {
    if (step < 0) {
        start = end - 1 - start;
        step = -step;
        perUnit = -perUnit;
    }
    if (step == 0) {
        if (start < 0 || start >= end)
            columns.last = columns.first - 1;
        return;
    }
    columns.first = std::max(columns.first, firstFrom(start, step, perUnit, 0));
    columns.last = std::min(columns.last, firstFrom(start, step, perUnit, end) - 1);
}

} // namespace

double diagonalAndMargin(double width, double height) {
    return std::sqrt(width * width + height * height) + 2;
}

RotationMap::RotationMap(QSize picture, double degrees)
    : m_middle(picture.width() / 2, picture.height() / 2)
    , m_reach(toInteger16(diagonalAndMargin(picture.width(), picture.height())) / 2)
    , m_angle(toRadians(degrees))
    , m_step{toFixed(std::cos(m_angle)), toFixed(std::sin(m_angle))}
    , m_columnsPerUnit(inverse(m_step.x), inverse(m_step.y)) {}

/// The sines and cosines of the four arms of the cross differ in their signs alone, and points on either side
/// of a middle lie as far from where pixels meet.
bool RotationMap::hasTiesOnAxes() const {
    return hasTies(m_step.x, m_reach) || hasTies(m_step.y, m_reach);
}

QRect RotationMap::offsetsOf(const QRect& part) const {
    const double cosine = std::cos(m_angle);
    const double sine = std::sin(m_angle);
    const double middleX = (part.left() + part.right()) / 2.0 - m_middle.x();
    const double middleY = (part.top() + part.bottom()) / 2.0 - m_middle.y();
    const double x = middleX * cosine + middleY * sine;
    const double y = middleY * cosine - middleX * sine;
    const double toSide = (part.width() * std::abs(cosine) + part.height() * std::abs(sine)) / 2;
    const double toTop = (part.width() * std::abs(sine) + part.height() * std::abs(cosine)) / 2;
    return QRect(QPoint(static_cast<int>(std::floor(x - toSide)), static_cast<int>(std::floor(y - toTop))),
                 QPoint(static_cast<int>(std::ceil(x + toSide)), static_cast<int>(std::ceil(y + toTop))));
}

RotationMap::Columns RotationMap::columnsOf(const QRect& part, int row, Columns among) const {
    const Point start = sourceOf(QPoint(0, row));
    clip(among, start.x - part.left() * One, m_step.x, m_columnsPerUnit.x(), part.width() * One);
    clip(among, start.y - part.top() * One, m_step.y, m_columnsPerUnit.y(), part.height() * One);
    return among;
}

} // namespace ovrano
