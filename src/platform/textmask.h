#pragma once

#include "platform/colour.h"
#include "platform/raster.h"

#include <QFont>
#include <QRect>
#include <QString>

#include <optional>
#include <vector>

namespace ovrano {

/// The font that prints on surfaces: without smoothing (every pixel is ink or not, so that a mask cut from
/// it leaves no pale seam), with full hinting (whole-pixel advances, the same on every screen), its size in
/// pixels taken from points at 96 dots per inch whatever the screen.
QFont textFont(const QString& family, double points, bool bold, bool italic);

/// Advance width and line height of a one-line text in pixels.
QSize textExtent(const QFont& font, const QString& text);

/// The ink of a text printed once: horizontal runs of pixels relative to the upper-left corner of its cell.
/// Only the part inside a window is kept.
class TextMask {
public:
    TextMask(const QFont& font, const QString& text, const QRect& window);

    const QRect& window() const { return m_window; }

    /// Paints the ink with its cell's corner at `origin`; gives the area that was painted.
    QRect paint(Raster& raster, QPoint origin, Colour colour) const;

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
