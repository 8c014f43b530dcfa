#pragma once

#include "editing/mask.h"
#include "platform/surface.h"

#include <QImage>

namespace ovrano::bench {

constexpr QSize BlockSize(600, 600);

/// A block as a turned text leaves one: ink over half of it, white elsewhere.
QImage blockPicture();

/// 0 where the block is opaque, white elsewhere.
QImage maskPicture(const QImage& block);

/// Another place each time, so that no step finds its pixels in the cache of the one before by chance.
class Wandering {
public:
    /// Within a picture of this size.
    explicit Wandering(QSize picture)
        : m_room(picture - BlockSize) {}

    QPoint next() {
        m_step += 1;
        return QPoint(m_step * 37 % m_room.width(), m_step * 23 % m_room.height());
    }

private:
    QSize m_room;
    int m_step = 0;
};

/// Copies the rows of a block into a picture: what moving a block costs at least.
void copyRows(QImage& picture, const QImage& block, QPoint to);

} // namespace ovrano::bench
