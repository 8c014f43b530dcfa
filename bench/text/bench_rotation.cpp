#include "support/comparison.h"
#include "support/pictures.h"
#include "text/rotation.h"
#include "text/topics.h"

#include <QPainter>

#include <cmath>
#include <cstring>
#include <memory>
#include <numbers>
#include <optional>

#ifdef OVRANO_BENCH_OPENCV
#include <opencv2/imgproc.hpp>
#endif

namespace ovrano::bench {

namespace {

constexpr double Degrees = 37;

enum class Content { Photo, Text };

/// Letters all over, on white.
QImage textPicture(QSize size) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QFont font(QStringLiteral("Liberation Sans"));
    font.setPixelSize(size.height() * 2 / 3);
    font.setStyleStrategy(QFont::NoAntialias);
    QPainter painter(&image);
    painter.setFont(font);
    painter.setPen(QColor(0, 64, 128));
    painter.drawText(QRect(QPoint(0, 0), size), Qt::AlignCenter, QStringLiteral("Votre texte"));
    return image;
}

/// A source and the square that it is turned into, for us and for the others.
struct Turning {
    Turning(QSize size, Content content)
        : flat(content == Content::Photo ? photo(size) : textPicture(size)) {
        source.setInnerSize(size);
        source.setPicture(Raster::fromImage(flat));
        const int side = SizeToRotateRegion(source);
        square.setInnerSize(QSize(side, side));
        flatSquare = QImage(side, side, QImage::Format_RGB32);
        flatSquare.fill(Qt::white);
    }

    QImage flat;
    QImage flatSquare;
    Surface source{QStringLiteral("source")};
    Surface square{QStringLiteral("square")};
};

void ours(Turning& turning) {
    RotatePicture(turning.source, turning.square, Degrees, true, White, false, 0, 0);
}

void byPainter(Turning& turning) {
    QPainter painter(&turning.flatSquare);
    const QPointF half(0.5, 0.5); // pixels are turned about the middle of one, as we do it
    painter.translate(turning.flatSquare.width() / 2 + half.x(), turning.flatSquare.height() / 2 + half.y());
    painter.rotate(-Degrees);
    painter.translate(-turning.flat.width() / 2 - half.x(), -turning.flat.height() / 2 - half.y());
    painter.drawImage(0, 0, turning.flat);
}

/// That the same picture comes out, but for roundings, so that equal work is compared.
void requireSame(Turning& turning, const char* way) {
    constexpr double Roundings = 0.1; // of all pixels: where the sides are long, a few digits are not enough
    const QImage ours = turning.square.Image().toImage();
    qint64 different = 0;
    for (int y = 0; y < ours.height(); ++y)
        for (int x = 0; x < ours.width(); ++x)
            different += ours.pixel(x, y) != turning.flatSquare.pixel(x, y);
    if (double(different) > Roundings * ours.width() * ours.height())
        qFatal("%s gives another picture: %lld pixels differ", way, static_cast<long long>(different));
}

void fillAndCopy(Turning& turning) {
    auto* pixels = reinterpret_cast<QRgb*>(turning.flatSquare.bits());
    std::fill_n(pixels, turning.flatSquare.sizeInBytes() / 4, 0xFFFFFFFFU);
    std::memcpy(pixels, turning.flat.constBits(), static_cast<std::size_t>(turning.flat.sizeInBytes()));
}

/// A quarter of the plane from radius and angle, four pixels a step.
class PlainLoop {
public:
    explicit PlainLoop(Turning& turning)
        : m_from(turning.flat)
        , m_to(turning.flatSquare) {}

    void run() {
        const int half = m_to.width() / 2;
        for (int row = 0; row <= half; ++row)
            for (int column = 0; column <= half; ++column)
                step(row, column);
    }

private:
    void step(int o, int i) {
        const double theta = Degrees / 180 * std::numbers::pi;
        const double a = o == 0 ? std::numbers::pi / 2 : std::atan(double(i) / o);
        const double r = std::sqrt(double(o) * o + double(i) * i);
        const double c = r * std::cos(theta + a);
        const double s = r * std::sin(theta + a);
        const double x = m_from.width() / 2;
        const double y = m_from.height() / 2;
        copy(x + c, y + s, o, i);
        copy(x - c, y - s, -o, -i);
        copy(x + s, y - c, i, -o);
        copy(x - s, y + c, -i, o);
    }

    void copy(double x, double y, int dx, int dy) {
        const QPoint from(qRound(x), qRound(y));
        const QPoint to(m_to.width() / 2 + dx, m_to.height() / 2 + dy);
        if (!m_from.rect().contains(from) || !m_to.rect().contains(to))
            return;
        const QRgb pixel = m_from.pixel(from);
        if (pixel != 0xFFFFFFFFU)
            m_to.setPixel(to, pixel);
    }

    const QImage& m_from;
    QImage& m_to;
};

#ifdef OVRANO_BENCH_OPENCV
void addOpenCv(Comparison& ways, const std::shared_ptr<Turning>& turning, int repetitions) {
    cv::setNumThreads(1);
    ways.against("OpenCV, warpAffine, one thread", timed([=] {
                     QImage& flat = turning->flat;
                     QImage& square = turning->flatSquare;
                     const cv::Mat from(flat.height(), flat.width(), CV_8UC4, flat.bits());
                     cv::Mat to(square.height(), square.width(), CV_8UC4, square.bits());
                     cv::Mat map = cv::getRotationMatrix2D(cv::Point2d(flat.width() / 2, flat.height() / 2),
                                                           Degrees, 1);
                     map.at<double>(0, 2) += (square.width() - flat.width()) / 2;
                     map.at<double>(1, 2) += (square.height() - flat.height()) / 2;
                     cv::warpAffine(from, to, map, to.size(), cv::INTER_NEAREST, cv::BORDER_TRANSPARENT);
                 }),
                 {}, repetitions);
}
#else
void addOpenCv(Comparison& ways, const std::shared_ptr<Turning>&, int) {
    ways.without("OpenCV", "which was not found when this was built");
}
#endif

void turn(const std::string& work, QSize size, Content content, double toPainter, bool withPlain) {
    compare(work, [=](Comparison& ways) {
        const auto turning = std::make_shared<Turning>(size, content);
        const int repetitions = size.width() * size.height() > 10'000'000 ? 7 : Comparison::Repetitions;
        ours(*turning);
        byPainter(*turning);
        requireSame(*turning, "the painter");
        ways.ours(timed([=] { ours(*turning); }), repetitions);
        ways.against("the toolkit's painter", timed([=] { byPainter(*turning); }), toPainter, repetitions);
        if (withPlain) {
            turning->flatSquare.fill(Qt::white);
            PlainLoop(*turning).run();
            requireSame(*turning, "the plain loop");
            ways.against("the plain loop", timed([=] { PlainLoop(*turning).run(); }), 0.06, 5);
        }
        addOpenCv(ways, turning, repetitions);
        ways.against("filling the square and copying the source", timed([=] { fillAndCopy(*turning); }), {},
                     repetitions);
    });
}

} // namespace

void rotations() {
    for (const QSize size : {QSize(1200, 300), QSize(4000, 1000)}) {
        const std::string sides = std::to_string(size.width()) + " x " + std::to_string(size.height());
        turn("RotatePicture, 37 degrees, text, " + sides, size, Content::Text, 0.8, true);
        turn("RotatePicture, 37 degrees, photo, " + sides, size, Content::Photo, 0.8, true);
    }
    for (const int megapixels : GrowingMegapixels)
        turn(named("RotatePicture, 37 degrees, photo", megapixels), squareOf(megapixels), Content::Photo,
             megapixels >= 16 ? 0.75 : 0.8, megapixels < 16);
}

} // namespace ovrano::bench
