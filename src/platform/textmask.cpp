#include "platform/textmask.h"

#include "platform/runtimeerror.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace ovrano {

namespace {

QImage printed(const QFont& font, const QString& text, const QRect& window) {
    QImage page(window.size(), QImage::Format_Grayscale8);
    page.fill(255);
    QPainter painter(&page);
    painter.setPen(Qt::black);
    painter.setFont(font);
    painter.drawText(QPoint(0, QFontMetrics(font).ascent()) - window.topLeft(), text);
    return page;
}

/// Soft edges leave their exact coverage in an alpha channel alone.
QImage coverageOf(const QFont& font, const QString& text, const QRect& window) {
    QImage page(window.size(), QImage::Format_Alpha8);
    if (page.isNull())
        throw RuntimeError(error::OutOfMemory);
    page.fill(0);
    QPainter painter(&page);
    painter.setPen(Qt::black);
    painter.setFont(font);
    painter.drawText(QPoint(0, QFontMetrics(font).ascent()) - window.topLeft(), text);
    painter.end();
    page.reinterpretAsFormat(QImage::Format_Grayscale8);
    return page;
}

/// The part of a page outside of which everything is 0.
QRect inkIn(const QImage& page) {
    QRect ink;
    for (int y = 0; y < page.height(); ++y) {
        const uchar* const row = page.constScanLine(y);
        const uchar* const end = row + page.width();
        const auto isInk = [](uchar value) { return value != 0; };
        const uchar* const first = std::find_if(row, end, isInk);
        if (first == end)
            continue;
        const uchar* const last =
            std::find_if(std::reverse_iterator(end), std::reverse_iterator(first), isInk).base() - 1;
        ink |= QRect(QPoint(static_cast<int>(first - row), y), QPoint(static_cast<int>(last - row), y));
    }
    return ink;
}

QFont fontOf(const QString& family, double points, const TextStyle& style, QFont::StyleStrategy strategy) {
    QFont font(family);
    font.setPixelSize(textPixelSize(points));
    font.setBold(style.bold);
    font.setItalic(style.italic);
    font.setUnderline(style.underline);
    font.setStrikeOut(style.strikeOut);
    font.setStyleStrategy(strategy);
    font.setHintingPreference(QFont::PreferFullHinting);
    return font;
}

} // namespace

QFont textFont(const QString& family, double points, bool bold, bool italic) {
    return fontOf(family, points, {.bold = bold, .italic = italic}, QFont::NoAntialias);
}

QFont smoothTextFont(const QString& family, double points, const TextStyle& style) {
    constexpr int Soft = QFont::PreferAntialias | QFont::NoSubpixelAntialias;
    return fontOf(family, points, style, static_cast<QFont::StyleStrategy>(Soft));
}

bool isSmooth(const QFont& font) {
    return (font.styleStrategy() & QFont::PreferAntialias) != 0;
}

int textPixelSize(double points) {
    return std::max(1, static_cast<int>(std::lround(std::min(points, 10000.0) * 96 / 72)));
}

QSize textExtent(const QFont& font, const QString& text) {
    const QFontMetrics metrics(font);
    return QSize(metrics.horizontalAdvance(text), metrics.height());
}

QRect inkBounds(const QFont& font, const QString& text) {
    // The cell and as much again around it for overhanging letters and accents.
    const QSize cell = textExtent(font, text);
    const int overhang = cell.height() + 1;
    return QRect(QPoint(0, 0), cell).adjusted(-overhang, -overhang, overhang, overhang);
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

SmoothTextMask::SmoothTextMask(const QFont& font, const QString& text, const QRect& window)
    : m_window(window) {
    if (window.isEmpty() || text.isEmpty())
        return;
    const QImage page = coverageOf(font, text, window);
    const QRect ink = inkIn(page);
    if (ink.isEmpty())
        return;
    m_ink = ink.translated(window.topLeft());
    m_coverage = page.copy(ink);
}

} // namespace ovrano
