#include "platform/raster.h"
#include "support/comparison.h"
#include "support/pictures.h"

#include <QApplication>

#include <cstring>
#include <memory>

using namespace ovrano;
using namespace ovrano::bench;

// What all rooms build on: pictures as values.

namespace {

void copies(int megapixels) {
    compare(named("a second copy of a picture", megapixels), [=](Comparison& ways) {
        const QImage flat = photo(squareOf(megapixels));
        const Raster raster = Raster::fromImage(flat);
        ways.ours(timed([=] { const Raster copy(raster); }));
        ways.against("copying the pixels", timed([=] { const QImage copy = flat.copy(); }));
    });
}

void shiftedCopy() {
    compare("copying a whole picture to an odd place, 12 MP", [](Comparison& ways) {
        const QImage flat = photo(TwelveMegapixels);
        const Raster source = Raster::fromImage(flat);
        auto target = std::make_shared<Raster>(source.size() + QSize(7, 5), White);
        auto bytes = std::make_shared<QImage>(flat.copy());
        ways.ours(timed([=] { target->copyFrom(source, source.rect(), QPoint(7, 5)); }));
        ways.against("copying the bytes", timed([=] {
                         std::memcpy(bytes->bits(), flat.constBits(),
                                     static_cast<std::size_t>(flat.sizeInBytes()));
                     }));
    });
}

} // namespace

OVRANO_BENCH_MAIN(QApplication) {
    for (const int megapixels : GrowingMegapixels)
        copies(megapixels);
    shiftedCopy();
}
