#include "support/pictures.h"

#include "scenarios/landscape.h"

#include <QPainter>
#include <QRadialGradient>

#include <cmath>
#include <random>

namespace ovrano::bench {

namespace {

/// Adds to each channel what a sensor does.
void addNoise(QImage& image, double sigma) {
    std::mt19937 random(1);
    std::normal_distribution<double> noise(0, sigma);
    const auto noisy = [&](int channel) { return qBound(0, static_cast<int>(channel + noise(random)), 255); };
    for (int y = 0; y < image.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            row[x] = qRgb(noisy(qRed(row[x])), noisy(qGreen(row[x])), noisy(qBlue(row[x])));
    }
}

void paintBlob(QPainter& painter, QPointF centre, double radius, QColor colour) {
    QRadialGradient gradient(centre, radius);
    gradient.setColorAt(0, colour);
    colour.setAlpha(0);
    gradient.setColorAt(1, colour);
    painter.setPen(Qt::NoPen);
    painter.setBrush(gradient);
    painter.drawEllipse(centre, radius, radius);
}

QFont letters(int pixels) {
    QFont font(QStringLiteral("Liberation Sans"));
    font.setPixelSize(pixels);
    return font;
}

} // namespace

QSize squareOf(int megapixels) {
    const int side = static_cast<int>(std::lround(1000 * std::sqrt(megapixels)));
    return QSize(side, side);
}

std::string named(const std::string& work, int megapixels) {
    return work + ", " + std::to_string(megapixels) + " MP";
}

QImage photo(QSize size) {
    return testing::landscape(size).convertToFormat(QImage::Format_RGB32);
}

QImage portrait(QSize size) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(QColor(84, 92, 104));
    QPainter painter(&image);
    painter.scale(size.width() / 4.0, size.height() / 3.0);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(222, 178, 152));
    painter.drawEllipse(QPointF(2, 1.4), 0.9, 1.2);
    paintBlob(painter, QPointF(1.7, 1.0), 0.8, QColor(248, 214, 188));
    paintBlob(painter, QPointF(1.55, 1.6), 0.4, QColor(228, 140, 124, 150));
    paintBlob(painter, QPointF(2.45, 1.6), 0.4, QColor(220, 132, 118, 150));
    paintBlob(painter, QPointF(2.6, 2.0), 0.8, QColor(140, 90, 74, 160));
    paintBlob(painter, QPointF(2, 2.1), 0.25, QColor(190, 60, 66, 190));
    paintBlob(painter, QPointF(1.65, 1.2), 0.13, QColor(50, 34, 30));
    paintBlob(painter, QPointF(2.35, 1.2), 0.13, QColor(50, 34, 30));
    painter.end();
    addNoise(image, 1.5);
    return image;
}

QImage gradientSky(QSize size) {
    QImage image(size, QImage::Format_RGB32);
    QLinearGradient sky(0, 0, 0, size.height());
    sky.setColorAt(0, QColor(24, 60, 130));
    sky.setColorAt(0.6, QColor(120, 170, 220));
    sky.setColorAt(1, QColor(250, 224, 190));
    QPainter painter(&image);
    painter.fillRect(image.rect(), sky);
    painter.end();
    addNoise(image, 1);
    return image;
}

QImage screenshot(QSize size) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(QColor(239, 240, 241));
    QPainter painter(&image);
    painter.setFont(letters(14));
    for (int y = 0; y < size.height(); y += 300)
        for (int x = 0; x < size.width(); x += 400) {
            const int kind = (x / 400 + y / 300) % 5;
            painter.fillRect(x + 8, y + 8, 384, 26, QColor(61 + 20 * kind, 174 - 20 * kind, 233 - 30 * kind));
            painter.fillRect(x + 8, y + 34, 384, 256, Qt::white);
            painter.setPen(Qt::black);
            for (int line = 0; line < 12; ++line)
                painter.drawText(x + 16, y + 54 + 20 * line,
                                 QStringLiteral("Ligne %1 : un petit texte lisse, %2").arg(line).arg(x * y));
            QLinearGradient button(0, y + 250, 0, y + 280);
            button.setColorAt(0, QColor(250, 250, 250));
            button.setColorAt(1, QColor(200, 205, 210));
            painter.fillRect(x + 300, y + 250, 80, 30, button);
        }
    return image;
}

} // namespace ovrano::bench
