#pragma once

#include "platform/colour.h"
#include "platform/raster.h"

#include <QFont>
#include <QImage>
#include <QRect>
#include <QString>

#include <optional>
#include <vector>

namespace ovrano {

/// The font that prints on surfaces: without smoothing (every pixel is ink or not, so that a mask cut from
/// it leaves no pale seam), with full hinting (whole-pixel advances, the same on every screen), its size in
/// pixels taken from points at 96 dots per inch whatever the screen.
QFont textFont(const QString& family, double points, bool bold, bool italic);

/// What a text can be besides large.
struct TextStyle {
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikeOut = false;
};

/// The font that prints with soft edges, where no mask is cut from the text later; otherwise as textFont().
QFont smoothTextFont(const QString& family, double points, const TextStyle& style = {});

/// The height in pixels of a font of so many points, halves to even and at least 1: 96 dots per inch whatever
/// the screen. More than 10,000 points count as 10,000, what is no number as the smallest.
int textPixelSize(double points);

/// Advance width and line height of a one-line text in pixels. A text too long for any surface is cut: only
/// the part that is measured is drawn.
QSize textExtent(const QFont& font, const QString& text);

/// The ink of a text printed once: horizontal runs of pixels relative to the upper-left corner of its cell.
/// Only the part inside a window is kept.
class TextMask {
public:
    /// Throws error::OutOfMemory when memory does not suffice.
    TextMask(const QFont& font, const QString& text, const QRect& window);

    const QRect& window() const { return m_window; }
    /// Where there is any ink; empty without ink.
    const QRect& ink() const { return m_ink; }

    /// Paints the ink with its cell's corner at `origin`.
    void paint(Raster& raster, QPoint origin, Colour colour) const;

private:
    struct Run {
        int y;
        int left;
        int right; // exclusive
    };
    QRect m_window;
    QRect m_ink;
    std::vector<Run> m_runs; // from top to bottom, left to right
};

/// The same for a text with soft edges: the coverage of each pixel, 0 to 255. Only the part inside a window
/// is kept.
class SmoothTextMask {
public:
    /// Throws error::OutOfMemory when memory does not suffice.
    SmoothTextMask(const QFont& font, const QString& text, const QRect& window);

    /// Where there is any ink, relative to the upper-left corner of the text's cell; empty without ink.
    const QRect& ink() const { return m_ink; }
    /// The ink's coverage, Format_Grayscale8, of the size of ink().
    const QImage& coverage() const { return m_coverage; }

private:
    QRect m_ink;
    QImage m_coverage;
};

/// Where a text can have ink at all, relative to the upper-left corner of its cell.
QRect inkBounds(const QFont& font, const QString& text);

/// Keeps the mask of the last text, so that the layers of an extrusion print their text once.
class TextMaskCache {
public:
    /// The mask whose window holds `needed` (relative to the text's corner).
    const TextMask& mask(const QFont& font, const QString& text, const QRect& needed);

    /// How many texts have been turned into a mask so far.
    int misses() const { return m_misses; }

private:
    QFont m_font;
    QString m_text;
    QRect m_bounds; // where this text can have ink
    std::optional<TextMask> m_mask;
    int m_misses = 0;
};

} // namespace ovrano
