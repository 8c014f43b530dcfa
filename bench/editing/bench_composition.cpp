#include "editing/block.h"
#include "editing/topics.h"
#include "support/comparison.h"
#include "support/pictures.h"

#include <QPainter>

#include <memory>

#ifdef OVRANO_BENCH_OPENCV
#include <opencv2/core.hpp>
#endif

namespace ovrano::bench {

namespace {

/// The parts of a composition in the forms that the ways want.
struct Parts {
    explicit Parts(QSize size)
        : flat(photo(size))
        , wandering(size) {
        picture.setInnerSize(size);
        picture.setPicture(Raster::fromImage(flat));
        flat.detach(); // from the raster, which looks into its memory
        region.setInnerSize(BlockSize);
        region.setPicture(Raster::fromImage(block));
        mask.setInnerSize(BlockSize);
        mask.setPicture(Raster::fromImage(maskImage));
        for (int y = 0; y < BlockSize.height(); ++y)
            for (int x = 0; x < BlockSize.width(); ++x)
                if (block.pixel(x, y) == 0xFFFFFFFFU)
                    transparent.setPixel(x, y, 0);
    }

    QImage flat;
    Wandering wandering;
    QImage block = blockPicture();
    QImage maskImage = maskPicture(block);
    QImage transparent = block.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    Surface picture{QStringLiteral("picture")};
    Surface region{QStringLiteral("region")};
    Surface mask{QStringLiteral("mask")};
};

void pixelByPixel(QImage& picture, const QImage& block, const QImage& mask, QPoint to) {
    for (int y = 0; y < block.height(); ++y)
        for (int x = 0; x < block.width(); ++x)
            picture.setPixel(to.x() + x, to.y() + y,
                             (~mask.pixel(x, y) | picture.pixel(to.x() + x, to.y() + y)) & block.pixel(x, y));
}

void twoRasterOperations(Parts& parts) {
    QPainter painter(&parts.flat);
    const QPoint to = parts.wandering.next();
    painter.setCompositionMode(QPainter::RasterOp_NotSourceOrDestination);
    painter.drawImage(to, parts.maskImage);
    painter.setCompositionMode(QPainter::RasterOp_SourceAndDestination);
    painter.drawImage(to, parts.block);
}

void overpainting(Parts& parts) {
    QPainter painter(&parts.flat);
    painter.drawImage(parts.wandering.next(), parts.transparent);
}

#ifdef OVRANO_BENCH_OPENCV
cv::Mat matrixOf(QImage& image, int type) {
    return cv::Mat(image.height(), image.width(), type, image.bits(),
                   static_cast<std::size_t>(image.bytesPerLine()));
}

void addOpenCv(Comparison& ways, const std::shared_ptr<Parts>& parts) {
    cv::setNumThreads(1);
    auto opaque = std::make_shared<QImage>(parts->maskImage.convertToFormat(QImage::Format_Grayscale8));
    opaque->invertPixels();
    ways.against("OpenCV, copy through a mask", timed([=] {
                     const QPoint to = parts->wandering.next();
                     const cv::Rect place(to.x(), to.y(), BlockSize.width(), BlockSize.height());
                     cv::Mat there = matrixOf(parts->flat, CV_8UC4)(place);
                     matrixOf(parts->block, CV_8UC4).copyTo(there, matrixOf(*opaque, CV_8UC1));
                 }));
}
#else
void addOpenCv(Comparison& ways, const std::shared_ptr<Parts>&) {
    ways.without("OpenCV", "which was not found when this was built");
}
#endif

void compose(int megapixels) {
    compare(named("composing a masked block of 600 x 600", megapixels), [=](Comparison& ways) {
        const auto parts = std::make_shared<Parts>(squareOf(megapixels));
        ways.ours(timed([=] {
            composeMasked(parts->picture, parts->region, parts->mask, parts->wandering.next(), BlockSize);
        }));
        ways.against("copying the block's rows",
                     timed([=] { copyRows(parts->flat, parts->block, parts->wandering.next()); }), 2);
        ways.against("the toolkit's painter, two raster operations",
                     timed([=] { twoRasterOperations(*parts); }));
        ways.against("the toolkit's painter, a prepared block", timed([=] { overpainting(*parts); }));
        addOpenCv(ways, parts);
        ways.against("pixel by pixel", timed([=] {
                         pixelByPixel(parts->flat, parts->block, parts->maskImage, parts->wandering.next());
                     }));
    });
}

} // namespace

void composition() {
    for (const int megapixels : GrowingMegapixels)
        compose(megapixels);
}

} // namespace ovrano::bench
