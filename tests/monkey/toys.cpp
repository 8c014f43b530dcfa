#include "monkey/toys.h"

#include "monkey/randomdialogs.h"

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QUrl>

namespace ovrano::monkey {

namespace {

constexpr const char* Drawing = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"90\" height=\"60\">"
                                "<circle cx=\"40\" cy=\"30\" r=\"25\" fill=\"#c04000\"/></svg>";

QImage gradient(QSize size) {
    QImage image(size, QImage::Format_RGB32);
    QPainter painter(&image);
    QLinearGradient colours(QPointF(0, 0), QPointF(size.width(), size.height()));
    colours.setColorAt(0, QColor(20, 60, 140));
    colours.setColorAt(0.6, QColor(240, 200, 90));
    colours.setColorAt(1, Qt::white);
    painter.fillRect(image.rect(), colours);
    return image;
}

QByteArray encoded(const QImage& image, const char* format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

void write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("%s cannot be written", qPrintable(path));
}

QByteArray anyBytes(QRandomGenerator& chance, int count) {
    QByteArray bytes(count, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(chance.bounded(256));
    return bytes;
}

} // namespace

QImage knownPicture() {
    return gradient(QSize(123, 77));
}

QString knownFile(const QString& folder) {
    QString path = folder + QStringLiteral("/connue.bmp");
    write(path, encoded(knownPicture(), "BMP"));
    return path;
}

void layOut(const QString& folder) {
    const auto path = [&](const char* name) { return folder + QLatin1Char('/') + QLatin1String(name); };
    knownFile(folder);
    write(path("point.png"), encoded(gradient(QSize(1, 1)), "PNG"));
    write(path("photo.jpg"), encoded(gradient(QSize(1600, 1200)), "JPEG"));
    write(path("grande.jpg"), encoded(gradient(QSize(4000, 3000)), "JPEG"));
    write(path("bande.png"), encoded(gradient(QSize(6000, 3)), "PNG"));
    write(path("mur.bmp"), encoded(gradient(QSize(3, 5000)), "BMP"));
    write(path("coupée.bmp"), encoded(gradient(QSize(200, 100)), "BMP").first(5000));
    write(path("coupée.jpg"), encoded(gradient(QSize(900, 700)), "JPEG").first(2000));
    write(path("vide.gif"), QByteArray());
    write(path("texte.bmp"), "BM et puis rien de plus");
    write(path("dessin.svg"), Drawing);
}

std::unique_ptr<QMimeData> anyClipboard(QRandomGenerator& chance, const QString& folder) {
    auto data = std::make_unique<QMimeData>();
    switch (chance.bounded(7)) {
    case 0:
    case 1:
        data->setImageData(gradient(QSize(1 + chance.bounded(700), 1 + chance.bounded(500))));
        break;
    case 2:
        data->setText(QStringLiteral("Été 2026\nà la plage 🌊"));
        break;
    case 3:
        data->setData(QStringLiteral("image/bmp"), "BM" + anyBytes(chance, chance.bounded(4000)));
        break;
    case 4:
        data->setData(QStringLiteral("image/svg+xml"), Drawing);
        break;
    case 5:
        data->setUrls({QUrl::fromLocalFile(anyFile(chance, folder))});
        break;
    default:
        data->setData(QStringLiteral("image/png"), encoded(gradient(QSize(300, 200)), "PNG").first(600));
        break;
    }
    return data;
}

QPalette anyPalette(QRandomGenerator& chance) {
    switch (chance.bounded(4)) {
    case 0:
        return QPalette(QColor(239, 239, 239));
    case 1:
        return QPalette(QColor(50, 50, 50));
    case 2: {
        QPalette contrast(Qt::black);
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
            contrast.setColor(role, Qt::white);
        return contrast;
    }
    default: {
        QPalette any;
        for (int role = 0; role < QPalette::NColorRoles; ++role)
            any.setColor(static_cast<QPalette::ColorRole>(role), QColor::fromRgb(chance.generate()));
        return any;
    }
    }
}

} // namespace ovrano::monkey
