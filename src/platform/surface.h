#pragma once

#include "platform/colour.h"
#include "platform/raster.h"
#include "platform/textmask.h"

#include <QFont>
#include <QList>
#include <QObject>
#include <QRegion>
#include <QScopeGuard>

namespace ovrano {

/// What a raster surface measures coordinates in. 15 twips are one pixel (platform/screen.h).
enum class ScaleMode { Twips = 1, Pixels = 3 };

/// How a line meets what is there: its colour replaces it, or what is there is inverted (so that drawing
/// the same thing twice restores it).
enum class DrawMode { Invert = 6, CopyPen = 13 };

enum class DrawStyle { Solid = 0, Dotted = 2 };

enum class BoxStyle { Outline, Filled };

/// A raster surface: a size, a persistent Picture (possibly empty, with a size of its own) and the drawn
/// Image of the surface's inner size.
///
/// Image starts as the background colour with Picture laid over it from the upper-left corner. Drawing and
/// raster copies change Image only; Cls() makes Image what it started as, commit() makes Picture what Image
/// is. Enlarging shows in the new area what Cls() would show there; shrinking cuts. Drawing in the part that
/// stays survives.
///
/// An outline that is drawn alone is kept beside Image, as the pixels that it changes, until Image is read or
/// drawn on. The frame of a block is drawn and cleared at every step of a drag; in the raster its four lines
/// would copy every tile that they touch.
///
/// Width and Height are outer sizes and include the border, ScaleWidth and ScaleHeight are the inner ones,
/// in the units of the scale mode. Coordinates are rounded to pixels with halves to even in the pixel
/// scale and cut down to the pixel that holds them in the twip scale.
class Surface : public QObject {
    Q_OBJECT
    Q_PROPERTY(int BackColor READ BackColor WRITE setBackColor)

public:
    /// White, without border, with the default font.
    explicit Surface(const QString& name, QSize innerSize = QSize(0, 0), QObject* parent = nullptr);

    // Size. Outer sizes are always pixels; a fraction is rounded. Throws error::InvalidPropertyValue when
    // negative.
    int Width() const { return m_image.width() + 2 * m_border; }
    int Height() const { return m_image.height() + 2 * m_border; }
    void setWidth(double width);
    void setHeight(double height);
    double ScaleWidth() const;
    double ScaleHeight() const;
    QSize innerSize() const { return m_image.size(); }
    void setInnerSize(QSize size);
    int border() const { return m_border; }
    /// The width of the frame on each side, in pixels; the inner size stays.
    void setBorder(int border);
    /// With AutoSize, the surface takes the size of each picture that is given to it.
    bool AutoSize() const { return m_autoSize; }
    void setAutoSize(bool on);

    // The two layers.
    const Raster& Picture() const { return m_picture; }
    /// An empty raster empties the surface: it shows the background colour. Without memory
    /// (error::OutOfMemory) the surface stays what it was, as with a change of its size.
    void setPicture(const Raster& picture);
    const Raster& Image() const;
    void Cls();
    /// Picture becomes Image.
    void commit();
    class Contents;
    /// The surface's contents and scale mode, for putBack(). Copies references, no pixels.
    Contents contents() const;
    /// Restores these contents; needs no memory.
    void putBack(const Contents& contents);
    /// Shows at once what has been drawn; otherwise it appears when the event loop runs next.
    void Refresh() { Q_EMIT refreshed(); }

    // Drawing state.
    Colour BackColor() const { return m_backColor; }
    /// What is drawn and not committed is lost, as with Cls().
    void setBackColor(Colour colour);
    Colour ForeColor() const { return m_foreColor; }
    void setForeColor(Colour colour) { m_foreColor = colour; }
    QFont Font() const { return m_font; }
    /// The font as the surface draws with it: see textFont() in platform/textmask.h.
    void setFont(const QFont& font) { m_font = font; }
    ovrano::ScaleMode ScaleMode() const { return m_scaleMode; }
    void setScaleMode(ovrano::ScaleMode mode) { m_scaleMode = mode; }
    ovrano::DrawMode DrawMode() const { return m_drawMode; }
    void setDrawMode(ovrano::DrawMode mode) { m_drawMode = mode; }
    ovrano::DrawStyle DrawStyle() const { return m_drawStyle; }
    void setDrawStyle(ovrano::DrawStyle style) { m_drawStyle = style; }
    double CurrentX() const { return m_currentX; }
    double CurrentY() const { return m_currentY; }
    void setCurrentX(double x) { m_currentX = x; }
    void setCurrentY(double y) { m_currentY = y; }

    // Drawing and reading, in units of the scale mode.
    /// InvalidColour outside.
    Colour Point(double x, double y) const;
    /// A box, both corners included, in the current draw mode and style. Every pixel of an outline is
    /// drawn once, also when the box is a line or a point, so an inverted box drawn twice is gone.
    void Line(QPointF from, QPointF to, Colour colour, BoxStyle style);
    /// The text as one line with its upper-left corner at the current position, in ForeColor and without
    /// smoothing; the position then moves to the start of the next line.
    void Print(const QString& text);
    double TextWidth(const QString& text) const;
    double TextHeight(const QString& text) const;

    // Whole-pixel access for the pixel algorithms of the upper rooms, which need no scale.
    /// Calls visit(const QImage& pixels, QRect part, QPoint at) for all that has to be painted, in this
    /// order, to show an area of Image: `part` of the pixels belongs at `at`.
    template<typename Visit>
    void readShown(const QRect& area, Visit&& visit) const {
        readStrip({QPoint(0, 0), m_image}, area, visit);
        for (const Strip& strip : m_outline)
            readStrip(strip, area, visit);
    }
    /// Copies a part of another surface's Image to here (both in pixels), clipped.
    void copyFrom(const Surface& source, const QRect& from, QPoint to);
    /// Lets a function change the pixels of Image inside an area: edit(Raster&, QRect clippedArea).
    template<typename Edit>
    void editImage(const QRect& area, Edit&& edit) {
        const QRect inside = area & m_image.rect();
        if (inside.isEmpty())
            return;
        settle();
        const auto marked = qScopeGuard([&] { drawn(inside); }); // also what an edit that fails has done
        edit(m_image, inside);
    }
    /// Editing and commit() in one step: edit(Raster&) may change pixels inside the area, then Image becomes
    /// Picture. Tiles that no other surface shares are written in place; in two steps they would be copied,
    /// because Picture shares them until the commit.
    template<typename Edit>
    void editCommitted(const QRegion& area, Edit&& edit) {
        settle();
        m_picture = m_base = Raster();
        const auto committed = qScopeGuard([&] {
            commit();
            Q_EMIT changed(area & m_image.rect());
        });
        edit(m_image);
    }

Q_SIGNALS:
    /// Pixels inside the area may show otherwise now.
    void changed(const QRegion& area);
    void innerSizeChanged(QSize size);
    void refreshed();

private:
    /// Pixels whose upper-left one lies at `corner`.
    struct Strip {
        QPoint corner;
        Raster pixels;
    };

    template<typename Visit>
    static void readStrip(const Strip& strip, const QRect& area, Visit&& visit) {
        strip.pixels.readTiles(area.translated(-strip.corner), [&](const QImage& tile, const QRect& place) {
            const QPoint inTile(place.left() % Raster::TileSide, place.top() % Raster::TileSide);
            visit(tile, QRect(inTile, place.size()), place.topLeft() + strip.corner);
        });
    }

    QPoint pixelAt(double x, double y) const;
    void settle() const;
    void drawn(const QRegion& area);
    void rebuild(const Raster& picture, QSize size, bool keepDrawn);

    int m_border = 0;
    bool m_autoSize = false;
    Raster m_picture;
    Raster m_base; // what Image starts as: the background with Picture laid over it
    // Image is the two together; reading it brings the outline into the raster.
    mutable Raster m_image;
    mutable QList<Strip> m_outline; // pixels that lie over m_image, none over another
    QRegion m_drawn;                // where Image may differ from its start
    Colour m_backColor = White;
    Colour m_foreColor = Black;
    QFont m_font;
    ovrano::ScaleMode m_scaleMode = ovrano::ScaleMode::Pixels;
    ovrano::DrawMode m_drawMode = ovrano::DrawMode::CopyPen;
    ovrano::DrawStyle m_drawStyle = ovrano::DrawStyle::Solid;
    double m_currentX = 0;
    double m_currentY = 0;
    TextMaskCache m_textCache;
};

class Surface::Contents {
    friend class Surface;

    Raster picture;
    Raster base;
    Raster image;
    QList<Strip> outline;
    QRegion drawn;
    ovrano::ScaleMode scaleMode = ovrano::ScaleMode::Pixels;
};

} // namespace ovrano
