#pragma once

#include <QImage>
#include <QPointF>
#include <QRect>

#include <vector>

namespace ovrano {

/// Fills closed outlines into a mask that says exactly how much of each pixel lies inside, 0 to 255.
///
/// Every edge adds to each pixel that it crosses the share of the pixel to its right, positive if it runs
/// down, negative if up; the running sum along a row is then the share of each pixel that is inside. Outlines
/// that overlap in the same direction count once.
class AreaMask {
public:
    /// For outlines that lie inside `window`, in pixels.
    explicit AreaMask(const QRect& window);

    /// Adds one straight edge of an outline. The edges of each outline have to close it.
    void addEdge(QPointF from, QPointF to);

    /// Format_Grayscale8, of the window's size. Throws error::OutOfMemory when memory does not suffice.
    QImage coverage() const;

private:
    void addPiece(float* row, float x0, float x1, float height) const;

    QRect m_window;
    std::size_t m_stride;
    std::vector<float> m_areas; // row by row, two columns more than the window has
};

} // namespace ovrano
