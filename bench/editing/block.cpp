#include "editing/block.h"

#include <QPainter>

#include <cstring>

namespace ovrano::bench {

QImage blockPicture() {
    QImage block(BlockSize, QImage::Format_RGB32);
    block.fill(Qt::white);
    QPainter painter(&block);
    painter.setPen(Qt::NoPen);
    for (int stripe = 0; stripe < BlockSize.height(); stripe += 40) {
        painter.setBrush(QColor(20 + stripe / 3, 64, 128));
        painter.drawEllipse(QRect(20, stripe, BlockSize.width() - 40, 32));
    }
    return block;
}

QImage maskPicture(const QImage& block) {
    QImage mask = block;
    for (int y = 0; y < mask.height(); ++y)
        for (int x = 0; x < mask.width(); ++x)
            mask.setPixel(x, y, mask.pixel(x, y) == 0xFFFFFFFFU ? 0xFFFFFFFFU : 0xFF000000U);
    return mask;
}

void copyRows(QImage& picture, const QImage& block, QPoint to) {
    uchar* bits = picture.bits();
    for (int y = 0; y < block.height(); ++y)
        std::memcpy(bits + (to.y() + y) * picture.bytesPerLine() + 4 * to.x(), block.constScanLine(y),
                    static_cast<std::size_t>(block.bytesPerLine()));
}

} // namespace ovrano::bench
