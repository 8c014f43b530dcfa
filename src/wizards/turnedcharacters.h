#pragma once

#include "platform/surface.h"

#include <QCache>
#include <QFont>
#include <QHash>
#include <QImage>
#include <QList>
#include <QPolygonF>
#include <QString>

#include <cstdint>
#include <utility>

namespace ovrano {

/// The characters of one font, drawn smoothed and turned about the upper-left corner of their cell.
///
/// What is turned by quarter turns alone is as sharp as upright text; a further quarter turn gives the same
/// pixels, turned. Outlines and turned characters are kept, so that drawing them again only lays them over
/// what is there.
class TurnedCharacters {
public:
    /// Only the font's family and its size in pixels count: the characters are neither bold nor italic.
    explicit TurnedCharacters(const QFont& font);

    /// Whether these are the characters of that font.
    bool areOf(const QFont& font) const;

    /// Draws a character in the surface's ForeColor. `escapement` is in tenths of a degree,
    /// counter-clockwise; `corner` is where the cell's upper-left corner lies, in pixels.
    void print(Surface& target, const QString& character, std::int32_t escapement, QPoint corner);

private:
    /// Coordinates are pixels from the cell's upper-left corner, y down.
    struct Character {
        QString text;
        QList<QPolygonF> outline;
        QRectF ink;
        int reach;      // no ink is farther from the corner, however it is turned
        bool byOutline; // otherwise the toolkit draws it: pictures in colours, and very large letters
    };
    struct Mask {
        QImage coverage;
        QPoint at;
    };

    /// Made anew each time: a font that is kept would outlive the application that fonts belong to.
    QFont font() const;
    const Character& known(const QString& text);
    Character measured(const QString& text) const;
    const Mask& mask(const Character& character, int angle);
    Mask upright(const Character& character) const;
    static Mask turned(const Character& character, double degrees);
    static Mask quarterTurned(Mask mask, int quarters);
    void paint(Surface& target, const Character& character, double degrees, QPoint corner) const;

    const QString m_family;
    const int m_pixelSize;
    const int m_ascent;
    QHash<QString, Character> m_known;
    QCache<std::pair<QString, int>, Mask> m_masks; // by text and angle in tenths of a degree; costs are bytes
};

} // namespace ovrano
