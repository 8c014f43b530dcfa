#pragma once

#include <QImage>
#include <QRect>
#include <QSize>

#include <cstddef>

namespace ovrano {

/// A small picture, 32-bit RGB (QImage::Format_RGB32), that copies share until one of them is written. It is
/// what rasters are made of.
///
/// The memory of a destroyed tile is kept for the next one, unless it is less than half a full tile: the page
/// faults of fresh memory cost more than writing most tiles.
class Tile {
public:
    /// Side in pixels of a full tile, the largest there is.
    static constexpr int Side = 256;

    /// Of size 0 × 0.
    Tile() = default;
    /// With pixels that are yet to be written. Throws error::OutOfMemory without memory for it, as all that
    /// follow.
    static Tile unwritten(QSize size);
    static Tile filled(QSize size, QRgb pixel);
    /// Reads a part of an image's memory, which is kept alive; the first write copies it.
    static Tile viewOf(const QImage& whole, const QRect& part);

    QSize size() const { return m_image.size(); }
    const QImage& image() const { return m_image; }
    bool sharesWith(const Tile& other) const { return m_image.constBits() == other.m_image.constBits(); }

    /// Whether writing would make a copy first.
    bool isShared() const { return !m_isOwn || !m_image.isDetached(); }

    const QRgb* row(int y) const { return reinterpret_cast<const QRgb*>(m_image.constScanLine(y)); }

    /// The pixels for writing, from now on this tile's alone, row by row with pixelsPerRow() to each. To be
    /// asked for outside inner loops.
    QRgb* pixels();
    std::ptrdiff_t pixelsPerRow() const;

    /// How many tiles' memory is kept at the moment (for tests).
    static std::size_t kept();

private:
    explicit Tile(const QImage& image, bool isOwn);

    QImage m_image;
    bool m_isOwn = false; // the memory is not another image's
};

} // namespace ovrano
