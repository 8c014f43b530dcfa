#include "scenarios/landscape.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <algorithm>
#include <cmath>
#include <random>

namespace ovrano::testing {

namespace {

constexpr double Horizon = 0.58; // of the height

void paintSky(QPainter& painter, QSize size) {
    QLinearGradient sky(0, 0, 0, size.height() * Horizon);
    sky.setColorAt(0, QColor(70, 130, 200));
    sky.setColorAt(0.6, QColor(168, 205, 232));
    sky.setColorAt(1, QColor(252, 226, 186));
    painter.fillRect(QRectF(0, 0, size.width(), size.height() * Horizon), sky);
    const QPointF sun(size.width() * 0.8, size.height() * 0.42);
    QRadialGradient glow(sun, size.height() * 0.3);
    glow.setColorAt(0, QColor(255, 250, 225));
    glow.setColorAt(0.15, QColor(255, 240, 190, 200));
    glow.setColorAt(1, QColor(255, 230, 170, 0));
    painter.fillRect(QRectF(0, 0, size.width(), size.height() * Horizon), glow);
}

/// A round puff that fades towards its rim.
void paintPuff(QPainter& painter, QPointF centre, double radius) {
    QRadialGradient puff(centre, radius);
    puff.setColorAt(0, QColor(255, 255, 255, 46));
    puff.setColorAt(1, QColor(255, 255, 255, 0));
    painter.setBrush(puff);
    painter.drawEllipse(centre, radius, radius);
}

/// Clouds are heaps of puffs, wide and flat.
void paintClouds(QPainter& painter, QSize size, std::mt19937& random) {
    std::uniform_real_distribution<double> part(-1, 1);
    for (int cloud = 0; cloud < 9; ++cloud) {
        const QPointF centre(size.width() * (0.5 + 0.55 * part(random)),
                             size.height() * (0.2 + 0.16 * part(random)));
        const double width = size.width() * 0.13 * (1 + 0.5 * part(random));
        for (int puff = 0; puff < 70; ++puff) {
            const double aside = part(random) * std::abs(part(random));
            const QPointF offset(width * aside, width * 0.16 * part(random) * (1 - std::abs(aside)));
            paintPuff(painter, centre + offset, width * (0.22 - 0.12 * std::abs(aside)));
        }
    }
}

/// A range of hills whose outline is a sum of waves. `top` and `bottom` are parts of the height.
void paintHills(QPainter& painter, QSize size, double left, double right, double top, double phase,
                const QColor& colour) {
    QPainterPath outline(QPointF(size.width() * left, size.height() * Horizon));
    for (double x = left; x <= right; x += 0.004) {
        const double along = (x - left) / (right - left);
        const double dome = std::sin(along * 3.14159);
        const double rough = 0.10 * std::sin(along * 19 + phase) + 0.05 * std::sin(along * 47 + 2 * phase);
        outline.lineTo(size.width() * x, size.height() * (Horizon - (Horizon - top) * dome * (1 + rough)));
    }
    outline.lineTo(size.width() * right, size.height() * Horizon);
    painter.setBrush(colour);
    painter.drawPath(outline);
}

void paintSea(QPainter& painter, QSize size, std::mt19937& random) {
    const double top = size.height() * Horizon;
    QLinearGradient sea(0, top, 0, size.height());
    sea.setColorAt(0, QColor(150, 180, 196));
    sea.setColorAt(0.25, QColor(58, 122, 160));
    sea.setColorAt(1, QColor(14, 62, 96));
    painter.fillRect(QRectF(0, top, size.width(), size.height() - top), sea);
    std::uniform_real_distribution<double> part(0, 1);
    for (int i = 0; i < 2600; ++i) {
        const double depth = part(random);
        const double y = top + (size.height() - top) * depth * depth;
        const double length = 3 + 40 * depth * part(random);
        const bool crest = part(random) < 0.5;
        painter.setPen(QPen(crest ? QColor(225, 240, 245, 60) : QColor(6, 40, 70, 60), 1 + 2 * depth));
        const double x = size.width() * part(random);
        painter.drawLine(QPointF(x, y), QPointF(x + length, y));
    }
    painter.setPen(Qt::NoPen);
}

void addNoise(QImage& picture, std::mt19937& random) {
    std::normal_distribution<double> grain(0, 2.5);
    const auto noisy = [&](int channel) {
        return std::clamp(channel + static_cast<int>(std::lround(grain(random))), 0, 255);
    };
    for (int y = 0; y < picture.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(picture.scanLine(y));
        std::transform(row, row + picture.width(), row, [&](QRgb pixel) {
            return qRgb(noisy(qRed(pixel)), noisy(qGreen(pixel)), noisy(qBlue(pixel)));
        });
    }
}

} // namespace

QImage landscape(QSize size) {
    std::mt19937 random(1067);
    QImage picture(size, QImage::Format_RGB32);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    paintSky(painter, size);
    paintClouds(painter, size, random);
    paintHills(painter, size, -0.1, 0.55, 0.46, 1.0, QColor(122, 142, 160));
    paintHills(painter, size, 0.08, 0.72, 0.40, 2.5, QColor(78, 104, 92));
    paintHills(painter, size, 0.22, 0.5, 0.47, 4.0, QColor(48, 78, 58));
    paintSea(painter, size, random);
    painter.end();
    addNoise(picture, random);
    return picture;
}

QImage balloon(QSize size) {
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setPen(Qt::NoPen);
    painter.scale(size.width() / 180.0, size.height() / 220.0);
    const QColor stripes[] = {QColor(200, 50, 40), QColor(250, 205, 90), QColor(200, 50, 40)};
    for (int i = 0; i < 3; ++i) { // each narrower than the one behind it
        painter.setBrush(stripes[i]);
        painter.drawEllipse(QPointF(90, 85), 75 - 27 * i, 78);
    }
    painter.setPen(QPen(QColor(90, 60, 40), 2));
    painter.drawLine(45, 147, 75, 190);
    painter.drawLine(135, 147, 105, 190);
    painter.fillRect(72, 188, 36, 24, QColor(120, 80, 50));
    return picture;
}

} // namespace ovrano::testing
