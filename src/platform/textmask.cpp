#include "platform/textmask.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace ovrano {

namespace {

/// How far beyond what is asked a cached mask reaches, in pixels: more than the deepest extrusion moves.
constexpr int WindowMargin = 16;

/// Where ink can be at all: the cell and as much again around it for overhanging letters and accents.
QRect inkBounds(const QFont& font, const QString& text) {
    const QSize cell = textExtent(font, text);
    const int overhang = cell.height() + 1;
    return QRect(QPoint(0, 0), cell).adjusted(-overhang, -overhang, overhang, overhang);
}

QImage printed(const QFont& font, const QString& text, const QRect& window) {
    QImage page(window.size(), QImage::Format_Grayscale8);
    page.fill(255);
    QPainter painter(&page);
    painter.setPen(Qt::black);
    painter.setFont(font);
    painter.drawText(QPoint(0, QFontMetrics(font).ascent()) - window.topLeft(), text);
    return page;
}

} // namespace

QFont textFont(const QString& family, double points, bool bold, bool italic) {
    QFont font(family);
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(std::min(points, 10000.0) * 96 / 72))));
    font.setBold(bold);
    font.setItalic(italic);
    font.setStyleStrategy(QFont::NoAntialias);
    font.setHintingPreference(QFont::PreferFullHinting);
    return font;
}

QSize textExtent(const QFont& font, const QString& text) {
    const QFontMetrics metrics(font);
    return QSize(metrics.horizontalAdvance(text), metrics.height());
}

TextMask::TextMask(const QFont& font, const QString& text, const QRect& window)
    : m_window(window) {
    if (window.isEmpty() || text.isEmpty())
        return;
    const QImage page = printed(font, text, window);
    for (int y = 0; y < page.height(); ++y) {
        const uchar* row = page.constScanLine(y);
        const uchar* const end = row + page.width();
        const auto isInk = [](uchar value) { return value < 128; };
        for (const uchar* at = std::find_if(row, end, isInk); at != end; at = std::find_if(at, end, isInk)) {
            const uchar* const after = std::find_if_not(at, end, isInk);
            const Run run{y + window.top(), static_cast<int>(at - row) + window.left(),
                          static_cast<int>(after - row) + window.left()};
            m_runs.push_back(run);
            m_ink |= QRect(QPoint(run.left, run.y), QPoint(run.right - 1, run.y));
            at = after;
        }
    }
}

QRect TextMask::paint(Raster& raster, QPoint origin, Colour colour) const {
    const QRect area = m_ink.translated(origin) & raster.rect();
    const QRgb pixel = toPixel(colour);
    raster.writeTiles(area, [&](QImage& tile, const QRect& place) {
        uchar* bits = tile.bits();
        const qsizetype stride = tile.bytesPerLine();
        const auto above = [](const Run& run, int y) { return run.y < y; };
        auto run = std::lower_bound(m_runs.begin(), m_runs.end(), place.top() - origin.y(), above);
        for (; run != m_runs.end() && run->y + origin.y() <= place.bottom(); ++run) {
            const int left = std::max(run->left + origin.x(), place.left());
            const int right = std::min(run->right + origin.x(), place.right() + 1);
            if (left >= right)
                continue;
            auto* row = reinterpret_cast<QRgb*>(bits + ((run->y + origin.y()) % Raster::TileSide) * stride);
            std::fill_n(row + left % Raster::TileSide, right - left, pixel);
        }
    });
    return area;
}

const TextMask& TextMaskCache::mask(const QFont& font, const QString& text, const QRect& needed) {
    if (!m_mask || m_font != font || m_text != text) {
        m_font = font;
        m_text = text;
        m_bounds = inkBounds(font, text);
        m_mask.reset();
    }
    const QRect wanted = needed & m_bounds;
    if (!m_mask || !(wanted.isEmpty() || m_mask->window().contains(wanted))) {
        const QRect roomy = needed.adjusted(-WindowMargin, -WindowMargin, WindowMargin, WindowMargin);
        m_mask.emplace(font, text, roomy & m_bounds);
        ++m_misses;
    }
    return *m_mask;
}

} // namespace ovrano
