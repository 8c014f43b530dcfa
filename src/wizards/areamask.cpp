#include "wizards/areamask.h"

#include "platform/runtimeerror.h"
#include "platform/vectorised.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace ovrano {

namespace {

/// From the part of a pixel that is inside, counted as often as outlines surround it and with a sign.
OVRANO_VECTORISED void toCoverage(const float* inside, int count, uchar* coverage) {
    constexpr float Full = 255;
    constexpr float ToBeCut = 0.5F; // so that cutting the fraction rounds
    for (int x = 0; x < count; ++x)
        coverage[x] =
            static_cast<uchar>(static_cast<int>(std::min(std::abs(inside[x]), 1.0F) * Full + ToBeCut));
}

} // namespace

AreaMask::AreaMask(const QRect& window)
    : m_window(window)
    , m_stride(static_cast<std::size_t>(window.width()) + 2)
    , m_areas(m_stride * static_cast<std::size_t>(window.height())) {}

void AreaMask::addEdge(QPointF from, QPointF to) {
    const float direction = from.y() < to.y() ? 1.0F : -1.0F;
    if (direction < 0)
        std::swap(from, to);
    const auto x0 = static_cast<float>(from.x() - m_window.left());
    const auto y0 = static_cast<float>(from.y() - m_window.top());
    const auto x1 = static_cast<float>(to.x() - m_window.left());
    const auto y1 = static_cast<float>(to.y() - m_window.top());
    if (y0 == y1)
        return;
    const float slope = (x1 - x0) / (y1 - y0);
    const int below = std::min(m_window.height(), static_cast<int>(std::ceil(y1)));
    for (int y = std::max(0, static_cast<int>(std::floor(y0))); y < below; ++y) {
        const float top = std::max(static_cast<float>(y), y0);
        const float bottom = std::min(static_cast<float>(y + 1), y1);
        addPiece(&m_areas[static_cast<std::size_t>(y) * m_stride], x0 + slope * (top - y0),
                 x0 + slope * (bottom - y0), direction * (bottom - top));
    }
}

void AreaMask::addPiece(float* row, float x0, float x1, float height) const {
    // What rounding could move out of the window comes back.
    const auto width = static_cast<float>(m_window.width());
    const float left = std::clamp(std::min(x0, x1), 0.0F, width);
    const float right = std::clamp(std::max(x0, x1), 0.0F, width);
    const int last = static_cast<int>(right);
    const float perPixel = right > left ? height / (right - left) : 0;
    for (int x = static_cast<int>(left); x <= last; ++x) {
        const float begin = std::max(left, static_cast<float>(x));
        const float end = std::min(right, static_cast<float>(x + 1));
        const float part = right > left ? perPixel * (end - begin) : height;
        const float beside = part * ((begin + end) / 2 - static_cast<float>(x));
        row[x] += part - beside;
        row[x + 1] += beside;
    }
}

QImage AreaMask::coverage() const {
    QImage mask(m_window.size(), QImage::Format_Grayscale8);
    if (mask.isNull() && !m_window.isEmpty())
        throw RuntimeError(error::OutOfMemory);
    const auto width = static_cast<std::size_t>(m_window.width());
    std::vector<float> inside(width);
    for (int y = 0; y < m_window.height(); ++y) {
        const float* areas = &m_areas[static_cast<std::size_t>(y) * m_stride];
        std::partial_sum(areas, areas + width, inside.begin());
        toCoverage(inside.data(), m_window.width(), mask.scanLine(y));
    }
    return mask;
}

} // namespace ovrano
