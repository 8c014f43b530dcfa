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

/// The smallest k with start + k × step ≥ bound, cut to ±Limit, where no column is; step is positive.
int firstFrom(Fixed start, Fixed step, Fixed bound) {
    constexpr double Limit = 1 << 16;
    const double estimate = std::ceil(static_cast<double>(bound - start) / static_cast<double>(step));
    // The quotient of two rounded numbers may be one off; whether a column is in or out must be exact.
    int k = static_cast<int>(std::clamp(estimate, -Limit, Limit)) - 1;
    while (k < Limit && start + k * step < bound)
        ++k;
    return k;
}

/// Leaves the columns k with 0 ≤ start + k × step < end.
void clip(RotationMap::Columns& columns, Fixed start, Fixed step, Fixed end) {
    if (step < 0) {
        start = end - 1 - start;
        step = -step;
    }
    if (step == 0) {
        if (start < 0 || start >= end)
            columns.last = columns.first - 1;
        return;
    }
    columns.first = std::max(columns.first, firstFrom(start, step, 0));
    columns.last = std::min(columns.last, firstFrom(start, step, end) - 1);
}

} // namespace

double diagonalAndMargin(double width, double height) {
    return std::sqrt(width * width + height * height) + 2;
}

RotationMap::RotationMap(QSize picture, double degrees)
    : m_middle(picture.width() / 2, picture.height() / 2)
    , m_reach(toInteger16(diagonalAndMargin(picture.width(), picture.height())) / 2)
    , m_angle(toRadians(degrees))
    , m_step{toFixed(std::cos(m_angle)), toFixed(std::sin(m_angle))} {}

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
    clip(among, start.x - part.left() * One, m_step.x, part.width() * One);
    clip(among, start.y - part.top() * One, m_step.y, part.height() * One);
    return among;
}

} // namespace ovrano
