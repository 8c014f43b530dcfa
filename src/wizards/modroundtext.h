#pragma once

#include "platform/surface.h"

#include <QString>
#include <QStringList>

#include <cstdint>

namespace ovrano {
inline namespace modRoundText {

/// Where and how far turned one character of a circular text is printed.
struct RoundPlace {
    std::int32_t escapement; // tenths of a degree, counter-clockwise
    float x;                 // of the upper-left corner of the character's cell, in pixels
    float y;

    friend bool operator==(const RoundPlace& a, const RoundPlace& b) = default;
};

/// A circle along which a text runs clockwise. Lengths are pixels, angles degrees counter-clockwise.
struct RoundPath {
    float startAngle; // of the first character; 0 is the top of the circle
    float radius;     // from the centre to the upper-left corner of each character's cell
    std::int16_t centreX;
    std::int16_t centreY;
    float step; // the angle from one character to the next

    /// The place of a character, counted from 0. Throws error::Overflow where a number overflows or is none.
    RoundPlace place(std::int16_t index) const;
};

/// The characters of a text as a reader counts them: a letter with its accents is one, an emoji is one.
QStringList charactersOf(const QString& text);

/// Prints a text along an arc of a circle, each character turned so that it stands tangent to the circle.
///
/// Read from the target are its font's family and size (no other style: the characters are neither bold nor
/// italic) and its ForeColor. What is there stays; letters are smoothed against it. The target measures in
/// pixels; printing positions are rounded to whole ones, halves to even.
///
/// `startAngle` is the angle of the first character in degrees (0: upright at the top; 180: at the bottom,
/// upside down; growing counter-clockwise), `radius` the distance of each character's upper-left corner from
/// the centre in pixels, `sector` the angle that the whole text spans, clockwise, in degrees: with 360 the
/// text goes once around. A negative sector runs counter-clockwise.
///
/// The current position of the target moves as printing the last character alone would move it: to the left
/// edge, a line below that character's corner.
///
/// A number that overflows or is NaN, and more than 32,767 characters, end the drawing quietly; what has been
/// printed by then stays.
void PrintRoundText(Surface& target, const QString& text, float startAngle, float radius,
                    std::int16_t centreX, std::int16_t centreY, float sector);

} // namespace modRoundText
} // namespace ovrano
