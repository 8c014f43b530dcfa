#include "scenarios/tourcheck.h"

#include <QImageReader>

#include <algorithm>
#include <cstdlib>

namespace ovrano::testing {

namespace {

/// Largest mean difference per channel that a lossy format may make.
constexpr double JpegLoss = 4;
constexpr double GifLoss = 10;

constexpr int LeastInk = 10'000; // pixels; the text covers about three times as many

QImage read(const QString& path, QStringList& complaints) {
    const QByteArray format = QImageReader::imageFormat(path); // by content
    const QImage picture = QImageReader(path, format).read().convertToFormat(QImage::Format_RGB32);
    if (picture.isNull())
        complaints.append(path + QStringLiteral(" cannot be read"));
    else if (picture.size() != Tour::PhotoSize)
        complaints.append(path + QStringLiteral(" has another size than the photo"));
    else if (format != QFileInfo(path).suffix().toLatin1().replace("jpg", "jpeg"))
        complaints.append(path + QStringLiteral(" is of another format: ") + QString::fromLatin1(format));
    return picture;
}

/// Calls visit(point, first, second) for each pixel of two pictures of the same size.
template<typename Visit>
void comparePixels(const QImage& first, const QImage& second, Visit&& visit) {
    for (int y = 0; y < first.height(); ++y) {
        const auto* a = reinterpret_cast<const QRgb*>(first.constScanLine(y));
        const auto* b = reinterpret_cast<const QRgb*>(second.constScanLine(y));
        for (int x = 0; x < first.width(); ++x)
            visit(QPoint(x, y), a[x], b[x]);
    }
}

double meanDifference(const QImage& first, const QImage& second) {
    double sum = 0;
    comparePixels(first, second, [&](QPoint, QRgb a, QRgb b) {
        sum += std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) + std::abs(qBlue(a) - qBlue(b));
    });
    return sum / (3.0 * first.width() * first.height());
}

/// One of the layers' colours: the chosen one, brightened by up to one step for each twip of depth.
bool isInk(QRgb pixel) {
    constexpr int Steps = Tour::Depth * 15;
    const int step = qGreen(pixel) - greenOf(Tour::TextColour);
    const int red = std::min(redOf(Tour::TextColour), 255 - Steps) + step;
    return step >= 0 && step < Steps && qBlue(pixel) == blueOf(Tour::TextColour) + step &&
           (qRed(pixel) == red || step == 0);
}

void checkInk(const QImage& photo, const QImage& result, const QRect& placed, QStringList& complaints) {
    int ink = 0;
    int strayed = 0;
    int foreign = 0;
    comparePixels(photo, result, [&](QPoint at, QRgb before, QRgb after) {
        if (before == after)
            return;
        ++ink;
        strayed += placed.contains(at) ? 0 : 1;
        foreign += isInk(after) ? 0 : 1;
    });
    if (ink < LeastInk)
        complaints.append(QStringLiteral("only %1 pixels of text are on the photo").arg(ink));
    if (strayed > 0)
        complaints.append(QStringLiteral("%1 pixels changed beside the text").arg(strayed));
    if (foreign > 0)
        complaints.append(QStringLiteral("%1 pixels have a colour that is not the text's").arg(foreign));
}

void checkLoss(const QImage& result, const QImage& saved, double allowed, const QString& name,
               QStringList& complaints) {
    const double loss = meanDifference(result, saved);
    if (loss > allowed)
        complaints.append(QStringLiteral("%1 differs by %2 from the picture").arg(name).arg(loss));
}

} // namespace

QStringList complaintsAbout(const Tour& tour) {
    QStringList complaints;
    const QImage photo = read(tour.photoPath(), complaints);
    const QImage bmp = read(tour.resultPath(QStringLiteral("bmp")), complaints);
    const QImage jpeg = read(tour.resultPath(QStringLiteral("jpg")), complaints);
    const QImage gif = read(tour.resultPath(QStringLiteral("gif")), complaints);
    if (!complaints.isEmpty())
        return complaints;
    checkInk(photo, bmp, tour.placed(), complaints);
    checkLoss(bmp, jpeg, JpegLoss, QStringLiteral("the JPEG"), complaints);
    checkLoss(bmp, gif, GifLoss, QStringLiteral("the GIF"), complaints);
    return complaints;
}

} // namespace ovrano::testing
