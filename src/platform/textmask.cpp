#include "platform/textmask.h"

#include "platform/numbers.h"
#include "platform/runtimeerror.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <iterator>

namespace ovrano {

namespace {

/// How far beyond what is asked a cached mask reaches, in pixels, so that prints close to each other share
/// it.
constexpr int WindowMargin = 16;

/// A text that is wider than this many pixels cannot be measured: lengths are kept in 64ths of a pixel.
constexpr qsizetype WidestText = 8'000'000;

/// The part of a text that is measured and drawn: far more than any surface shows of it, and no more than
/// lengths can hold.
QString measurable(const QFont& font, const QString& text) {
    const qsizetype most = WidestText / std::max(1, QFontMetrics(font).height());
    if (text.size() <= most)
        return text;
    return text.isRightToLeft() ? text.right(most) : text.left(most); // what stands at the left edge
}

/// A page as large as a window with a text in black on it. `window` is relative to the upper-left corner of
/// the text's cell.
QImage printed(const QFont& font, const QString& text, const QRect& window, QImage::Format format,
               uint paper) {
    QImage page(window.size(), format);
    if (page.isNull())
        throw RuntimeError(error::OutOfMemory);
    page.fill(paper);
    QPainter painter(&page);
    painter.setPen(Qt::black);
    painter.setFont(font);
    painter.drawText(QPoint(0, QFontMetrics(font).ascent()) - window.topLeft(), measurable(font, text));
    painter.end();
    return page;
}

/// Soft edges leave their exact coverage in an alpha channel alone.
QImage coverageOf(const QFont& font, const QString& text, const QRect& window) {
    QImage page = printed(font, text, window, QImage::Format_Alpha8, 0);
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

int textPixelSize(double points) {
    constexpr double LargestSize = 10'000;
    return std::max(1, pixelOf(std::min(points, LargestSize) * 96 / 72));
}

QSize textExtent(const QFont& font, const QString& text) {
    const QFontMetrics metrics(font);
    return QSize(metrics.horizontalAdvance(measurable(font, text)), metrics.height());
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
    const QImage page = printed(font, text, window, QImage::Format_Grayscale8, 255);
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

void TextMask::paint(Raster& raster, QPoint origin, Colour colour) const {
    const QRect area = m_ink.translated(origin) & raster.rect();
    const QRgb pixel = toPixel(colour);
    raster.writeTiles(area, [&](Tile& tile, const QRect& place) {
        QRgb* pixels = tile.pixels();
        const auto above = [](const Run& run, int y) { return run.y < y; };
        auto run = std::lower_bound(m_runs.begin(), m_runs.end(), place.top() - origin.y(), above);
        for (; run != m_runs.end() && run->y + origin.y() <= place.bottom(); ++run) {
            const int left = std::max(run->left + origin.x(), place.left());
            const int right = std::min(run->right + origin.x(), place.right() + 1);
            if (left >= right)
                continue;
            QRgb* row = pixels + (run->y + origin.y()) % Raster::TileSide * tile.pixelsPerRow();
            std::fill_n(row + left % Raster::TileSide, right - left, pixel);
        }
    });
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

SmoothTextMask::SmoothTextMask(const QFont& font, const QString& text, const QRect& window) {
    if (window.isEmpty() || text.isEmpty())
        return;
    const QImage page = coverageOf(font, text, window);
    const QRect ink = inkIn(page);
    if (ink.isEmpty())
        return;
    m_ink = ink.translated(window.topLeft());
    m_coverage = page.copy(ink);
    if (m_coverage.isNull())
        throw RuntimeError(error::OutOfMemory);
}

} // namespace ovrano
