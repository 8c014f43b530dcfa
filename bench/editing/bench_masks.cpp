#include "editing/mask.h"
#include "editing/topics.h"
#include "support/comparison.h"

#include <QPainter>

#include <cstring>
#include <memory>

#ifdef OVRANO_BENCH_OPENCV
#include <opencv2/imgproc.hpp>
#endif

namespace ovrano::bench {

namespace {

constexpr QSize Size(1500, 1500);

/// Ink on white, and single pixels of another colour strewn about so that no tile is without work.
QImage inkOnWhite() {
    QImage image(Size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setBrush(QColor(10, 20, 30));
    for (int x = 0; x < Size.width(); x += 100)
        painter.drawEllipse(QRect(x, 0, 60, Size.height()));
    painter.end();
    for (int y = 50; y < Size.height(); y += 100)
        for (int x = 50; x < Size.width(); x += 100)
            image.setPixel(x, y, 0xFFFF0000U);
    return image;
}

struct Parts {
    Parts() { surface.setInnerSize(Size); }

    /// The surface as before the work, its tiles shared with where they came from.
    void restore() { surface.setPicture(raster); }

    QImage flat = inkOnWhite();
    QImage out{Size, QImage::Format_RGB32};
    Raster raster = Raster::fromImage(flat);
    Surface surface{QStringLiteral("surface")};
};

void copyBytes(Parts& parts) {
    std::memcpy(parts.out.bits(), parts.flat.constBits(), static_cast<std::size_t>(parts.flat.sizeInBytes()));
}

/// White stays white, all else becomes black.
void pixelByPixel(Parts& parts) {
    for (int y = 0; y < Size.height(); ++y)
        for (int x = 0; x < Size.width(); ++x)
            parts.out.setPixel(x, y, parts.flat.pixel(x, y) == 0xFFFFFFFFU ? 0xFFFFFFFFU : 0xFF000000U);
}

#ifdef OVRANO_BENCH_OPENCV
void addOpenCv(Comparison& ways, const std::shared_ptr<Parts>& parts) {
    cv::setNumThreads(1);
    const auto found = std::make_shared<cv::Mat>();
    ways.against("OpenCV, inRange and cvtColor", timed([=] {
                     const cv::Mat flat(Size.height(), Size.width(), CV_8UC4, parts->flat.bits());
                     cv::Mat out(Size.height(), Size.width(), CV_8UC4, parts->out.bits());
                     cv::inRange(flat, cv::Scalar::all(255), cv::Scalar::all(255), *found);
                     cv::cvtColor(*found, out, cv::COLOR_GRAY2BGRA);
                 }));
}
#else
void addOpenCv(Comparison& ways, const std::shared_ptr<Parts>&) {
    ways.without("OpenCV", "which was not found when this was built");
}
#endif

void addCopying(Comparison& ways, const std::shared_ptr<Parts>& parts) {
    ways.against("copying the same bytes", timed([=] { copyBytes(*parts); }), 1.2);
}

} // namespace

void masks() {
    compare("CreateMask, 1500 x 1500", [](Comparison& ways) {
        const auto parts = std::make_shared<Parts>();
        ways.ours(timed([=] { parts->restore(); }, [=] { CreateMask(parts->surface, Black); }));
        addCopying(ways, parts);
        addOpenCv(ways, parts);
        ways.against("the toolkit, createMaskFromColor", timed([=] {
                         const QImage mask = parts->flat.createMaskFromColor(0xFFFFFFFFU, Qt::MaskOutColor);
                     }));
        ways.against("pixel by pixel", timed([=] { pixelByPixel(*parts); }));
    });
    compare("WhiteNonPaintArea, 1500 x 1500", [](Comparison& ways) {
        const auto parts = std::make_shared<Parts>();
        ways.ours(
            timed([=] { parts->restore(); }, [=] { WhiteNonPaintArea(parts->surface, rgb(10, 20, 30)); }));
        addCopying(ways, parts);
    });
}

} // namespace ovrano::bench
