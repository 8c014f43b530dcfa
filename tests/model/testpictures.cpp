#include "model/testpictures.h"

#include <QFile>

#include <array>

namespace ovrano::model {

Rgb colourAt(int index) {
    static constexpr std::array<Rgb, Colours> colours{WhitePixel, BlackPixel, 0xE02010,
                                                      0x10A040,   0x2040D0,   0xF0E0A0};
    return colours.at(static_cast<std::size_t>(index) % colours.size());
}

QString fileName(int index) {
    static const QStringList saved{
        QStringLiteral("photo.bmp"), QStringLiteral("a.bmp"), QStringLiteral("bmp"),
        QStringLiteral("photo.jpg"), QStringLiteral("a.jpg"), QStringLiteral("jpg"),
        QStringLiteral("photo.gif"), QStringLiteral("a.gif"), QStringLiteral("gif")};
    if (index == DamagedFile)
        return QStringLiteral("damaged.bmp");
    return index < Pictures ? QStringLiteral("picture%1.bmp").arg(index) : saved.value(index - FirstSaved);
}

QString typedName(int index) {
    static const QStringList names{QStringLiteral("photo.bmp"), QStringLiteral("a.b.bmp"),
                                   QStringLiteral("nodot"), QStringLiteral("missing/photo.bmp")};
    return names.value(index);
}

Pixels testPicture(int index) {
    const int more = index < SmallPictures ? 0 : 240;
    const int width = more + 20 + (index * 37 + 11) % 101;
    const int height = more + 20 + (index * 53 + 29) % 101;
    Pixels picture(width, height, colourAt(index));
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const int patch = (x / (3 + index)) * 7 + (y / (4 + index % 5)) * 5 + index;
            if (patch % 3 != 0)
                picture.set(x, y, colourAt(patch));
        }
    return picture;
}

QImage toImage(const Pixels& pixels) {
    QImage image(pixels.width, pixels.height, QImage::Format_RGB32);
    for (int y = 0; y < pixels.height; ++y)
        for (int x = 0; x < pixels.width; ++x)
            image.setPixel(x, y, 0xFF000000U | pixels.get(x, y));
    return image;
}

Pixels toPixels(const QImage& image) {
    const QImage plain = image.convertToFormat(QImage::Format_RGB32);
    Pixels pixels(plain.width(), plain.height(), BlackPixel);
    for (int y = 0; y < pixels.height; ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(plain.constScanLine(y));
        for (int x = 0; x < pixels.width; ++x)
            pixels.set(x, y, row[x] & 0xFFFFFFU);
    }
    return pixels;
}

Pixels toPixels(const Raster& raster) {
    // One of no width may still have a height, which an image has not.
    return raster.isEmpty() ? Pixels(raster.width(), raster.height(), BlackPixel)
                            : toPixels(raster.toImage());
}

void writeTestPictures(const QString& folder) {
    for (int i = 0; i < Pictures; ++i)
        if (!toImage(testPicture(i)).save(folder + fileName(i), "BMP"))
            qFatal("a test picture cannot be written");
    QFile damaged(folder + fileName(DamagedFile));
    if (!damaged.open(QIODevice::WriteOnly) || damaged.write("BM, and then nothing") < 0)
        qFatal("the damaged file cannot be written");
}

} // namespace ovrano::model
