#pragma once

#include "document/palettereducer.h"
#include "support/comparison.h"

#include <QImage>

namespace ovrano::bench {

/// Ways to reduce a picture to 256 colours, ours and others'. What they take is their own work alone, without
/// turning the result into a picture that can be looked at.

QImage reducedByUs(const QImage& picture, Diffusion diffusion);
Way ourReduction(const QImage& picture, Diffusion diffusion);

#ifdef OVRANO_BENCH_IMAGEQUANT
QImage reducedByImagequant(const QImage& picture, int speed, Diffusion diffusion);
Way imagequantReduction(const QImage& picture, int speed, Diffusion diffusion);
#endif

#ifdef OVRANO_BENCH_LEPTONICA
Way leptonicaReduction(const QImage& picture, Diffusion diffusion);
#endif

Way toolkitReduction(const QImage& picture, Diffusion diffusion);

} // namespace ovrano::bench
