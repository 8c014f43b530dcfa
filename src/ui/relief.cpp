#include "ui/relief.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace ovrano {

namespace {

constexpr int LeastDifference = 8; // of 255, in the channel that differs most

} // namespace

bool canBeToldApart(const QColor& one, const QColor& other) {
    return std::max({std::abs(one.red() - other.red()), std::abs(one.green() - other.green()),
                     std::abs(one.blue() - other.blue())}) >= LeastDifference;
}

QColor between(const QColor& first, const QColor& second, double share) {
    const auto mix = [share](int from, int to) { return qRound(from + (to - from) * share); };
    return QColor(mix(first.red(), second.red()), mix(first.green(), second.green()),
                  mix(first.blue(), second.blue()));
}

Relief reliefOf(const QPalette& palette) {
    const QColor face = palette.color(QPalette::Button);
    const QColor light = palette.color(QPalette::Light);
    const QColor dark = palette.color(QPalette::Dark);
    if (canBeToldApart(light, face) || canBeToldApart(dark, face))
        return {face, light, dark};
    QColor lighter = palette.color(QPalette::ButtonText);
    QColor darker = between(face, lighter, 0.5);
    if (qGray(lighter.rgb()) < qGray(darker.rgb()))
        std::swap(lighter, darker);
    return {face, lighter, darker};
}

void drawEdge(QPainter& painter, const QRect& rect, const QColor& topLeft, const QColor& bottomRight) {
    if (rect.width() < 2 || rect.height() < 2)
        return;
    painter.fillRect(rect.left(), rect.top(), rect.width() - 1, 1, topLeft);
    painter.fillRect(rect.left(), rect.top(), 1, rect.height() - 1, topLeft);
    painter.fillRect(rect.left(), rect.bottom(), rect.width(), 1, bottomRight);
    painter.fillRect(rect.right(), rect.top(), 1, rect.height(), bottomRight);
}

} // namespace ovrano
