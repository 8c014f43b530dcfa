#pragma once

#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QSize>

#include <cstdint>

namespace ovrano {

/// Diagonal of a picture in pixels, with the margin of two that keeps rounded corners inside.
double diagonalAndMargin(double width, double height);

/// Where the pixels of a turned picture come from.
///
/// The pixel at an offset (dx, dy) from the centre reads the picture at (dx cos − dy sin, dx sin + dy cos)
/// from the picture's middle pixel, rounded to the nearest pixel. y runs downwards, so that positive angles
/// turn the picture counter-clockwise.
///
/// The map is linear: along a row, a source coordinate grows by the same step from pixel to pixel. It is
/// computed in fixed-point numbers, so that the steps add up without error and a column has the same
/// coordinates however they are computed.
class RotationMap {
public:
    /// Pixels with 47 fractional bits, which leaves room for 16-bit coordinates and keeps the error under
    /// 1e-9 pixel on the longest way. Whole numbers are where pixels begin.
    using Fixed = std::int64_t;
    static constexpr int FractionBits = 47;
    static constexpr Fixed One = Fixed(1) << FractionBits;
    struct Point {
        Fixed x;
        Fixed y;
    };

    /// Columns of a row, both included; none when last is before first.
    struct Columns {
        int first;
        int last;
    };

    /// Throws error::Overflow when the diagonal exceeds 16 bits, error::InvalidCall when the angle is not
    /// finite.
    RotationMap(QSize picture, double degrees);

    /// The digits matter: they decide how a coordinate that lies exactly between two pixels is rounded.
    static constexpr double Pi = 3.14159265359;

    double radians() const { return m_angle; }
    /// The picture's middle pixel, about which it turns.
    QPoint middle() const { return m_middle; }
    /// No offset with a counterpart in the picture is farther from the centre, in either direction.
    int reach() const { return m_reach; }

    Point sourceOf(QPoint offset) const {
        return {m_middle.x() * One + One / 2 + offset.x() * m_step.x - offset.y() * m_step.y,
                m_middle.y() * One + One / 2 + offset.x() * m_step.y + offset.y() * m_step.x};
    }
    /// What both source coordinates grow by from one column to the next.
    Point step() const { return m_step; }

    /// Whether the row or the column of the centre has a coordinate so close to the border between two pixels
    /// that rounding errors decide between them, as at multiples of 30 degrees.
    bool hasTiesOnAxes() const;

    /// Offsets among which are all that read a part of the picture.
    QRect offsetsOf(const QRect& part) const;
    /// Those of the columns of a row of offsets that read the part.
    Columns columnsOf(const QRect& part, int row, Columns among) const;

private:
    QPoint m_middle;
    int m_reach;
    double m_angle;
    Point m_step;
    QPointF m_columnsPerUnit; // how many columns a coordinate takes to grow by 1 in its fixed-point numbers
};

} // namespace ovrano
