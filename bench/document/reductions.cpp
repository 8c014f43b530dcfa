#include "document/reductions.h"

#include "document/imagerows.h"

#include <cstring>
#include <memory>
#include <vector>

#ifdef OVRANO_BENCH_IMAGEQUANT
#include <libimagequant.h>
#endif
#ifdef OVRANO_BENCH_LEPTONICA
#include <allheaders.h>
#endif

namespace ovrano::bench {

namespace {

/// A picture of rows of indices that follow each other without gaps.
QImage indexed(const std::uint8_t* indices, QSize size, const QList<QRgb>& palette) {
    QImage image(size, QImage::Format_Indexed8);
    image.setColorTable(palette);
    for (int y = 0; y < size.height(); ++y)
        std::memcpy(image.scanLine(y), indices + qsizetype{y} * size.width(), std::size_t(size.width()));
    return image.convertToFormat(QImage::Format_RGB32);
}

IndexedPicture reduce(const QImage& picture, Diffusion diffusion) {
    ImageRows rows(picture);
    return reduceTo256(rows, diffusion);
}

} // namespace

QImage reducedByUs(const QImage& picture, Diffusion diffusion) {
    const IndexedPicture reduced = reduce(picture, diffusion);
    return indexed(reduced.indices.data(), reduced.size,
                   QList<QRgb>(reduced.palette.begin(), reduced.palette.end()));
}

Way ourReduction(const QImage& picture, Diffusion diffusion) {
    return timed([=] { reduce(picture, diffusion); });
}

#ifdef OVRANO_BENCH_IMAGEQUANT

namespace {

class Quantised {
public:
    Quantised(const QImage& picture, int speed, Diffusion diffusion)
        : m_size(picture.size())
        , m_indices(static_cast<std::size_t>(picture.width()) * static_cast<std::size_t>(picture.height())) {
        liq_attr* attributes = liq_attr_create();
        liq_set_speed(attributes, speed);
        // Red and blue change places, here and back in image().
        liq_image* image =
            liq_image_create_rgba(attributes, picture.constBits(), picture.width(), picture.height(), 0);
        liq_result* result = nullptr;
        if (liq_image_quantize(image, attributes, &result) != LIQ_OK)
            qFatal("libimagequant fails");
        liq_set_dithering_level(result, diffusion == Diffusion::On ? 1 : 0);
        liq_write_remapped_image(result, image, m_indices.data(), m_indices.size());
        m_palette = *liq_get_palette(result);
        liq_result_destroy(result);
        liq_image_destroy(image);
        liq_attr_destroy(attributes);
    }

    QImage image() const {
        QList<QRgb> palette;
        for (unsigned int i = 0; i < m_palette.count; ++i) {
            const liq_color& colour = m_palette.entries[i];
            palette.append(qRgb(colour.b, colour.g, colour.r));
        }
        return indexed(m_indices.data(), m_size, palette);
    }

private:
    QSize m_size;
    std::vector<std::uint8_t> m_indices;
    liq_palette m_palette;
};

} // namespace

QImage reducedByImagequant(const QImage& picture, int speed, Diffusion diffusion) {
    return Quantised(picture, speed, diffusion).image();
}

Way imagequantReduction(const QImage& picture, int speed, Diffusion diffusion) {
    return timed([=] { const Quantised quantised(picture, speed, diffusion); });
}

#endif

#ifdef OVRANO_BENCH_LEPTONICA

namespace {

std::shared_ptr<Pix> shared(Pix* picture) {
    return {picture, [](Pix* last) { pixDestroy(&last); }};
}

std::shared_ptr<Pix> leptonicaPicture(const QImage& picture) {
    const std::shared_ptr<Pix> copy = shared(pixCreate(picture.width(), picture.height(), 32));
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            pixSetRGBPixel(copy.get(), x, y, qRed(pixel), qGreen(pixel), qBlue(pixel));
        }
    return copy;
}

} // namespace

Way leptonicaReduction(const QImage& picture, Diffusion diffusion) {
    const std::shared_ptr<Pix> copy = leptonicaPicture(picture);
    return timed([=] {
        shared(pixMedianCutQuantGeneral(copy.get(), diffusion == Diffusion::On, 8, MaxColours, 0, 1, 0));
    });
}

#endif

Way toolkitReduction(const QImage& picture, Diffusion diffusion) {
    const Qt::ImageConversionFlags flags =
        diffusion == Diffusion::On ? Qt::DiffuseDither : Qt::ThresholdDither;
    return timed([=] { const QImage reduced = picture.convertToFormat(QImage::Format_Indexed8, flags); });
}

} // namespace ovrano::bench
