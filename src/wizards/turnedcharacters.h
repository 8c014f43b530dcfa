#pragma once

#include "platform/surface.h"

#include <QCache>
#include <QFont>
#include <QHash>
#include <QImage>
#include <QList>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <QRect>
#include <QString>
#include <QTransform>

#include <cstdint>
#include <utility>
#include <vector>

namespace ovrano {

/// A character and its place.
struct TurnedCharacter {
    QString text;
    std::int32_t escapement; // tenths of a degree, counter-clockwise
    QPoint corner;           // of its cell, the upper-left one, in pixels
};

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

    /// Draws characters in the surface's ForeColor, one after the other. Throws error::OutOfMemory when
    /// memory does not suffice; what has been drawn by then stays.
    void print(Surface& target, const std::vector<TurnedCharacter>& characters);

private:
    /// Coordinates are pixels from the cell's upper-left corner, y down.
    struct Character {
        QString text;
        QPainterPath outline;
        QList<QPolygonF> contours; // the outline without curves
        QRectF ink;
        bool pictured; // in colours of its own
        bool masked;   // drawn through a mask that is kept; otherwise painted anew
    };
    /// What is painted rather than masked, and where.
    struct Painting {
        Character character;
        QTransform place;
        QRect area; // of the surface, where there can be ink
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
    void paint(QPainter& painter, const Painting& painting) const;
    /// Paints in one go what stands there, and empties it.
    void paintAll(Surface& target, std::vector<Painting>& paintings) const;

    const QString m_family;
    const int m_pixelSize;
    const int m_ascent;
    QHash<QString, Character> m_known;
    QCache<std::pair<QString, int>, Mask> m_masks; // by text and angle in tenths of a degree; costs are bytes
};

} // namespace ovrano
