#include "platform/picturemimedata.h"

#include "platform/runtimeerror.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImageWriter>

namespace ovrano {

namespace {

const QString ToolkitImage = QStringLiteral("application/x-qt-image");
const QString Png = QStringLiteral("image/png");
const QString Bmp = QStringLiteral("image/bmp");

/// Elsewhere the toolkit turns its own type into the system's; here it would offer every format that it can
/// write, and a clipboard manager would fetch them all.
bool offersFilesOnly() {
    const QString platform = QGuiApplication::platformName();
    return platform == QStringLiteral("xcb") || platform.startsWith(QStringLiteral("wayland"));
}

QByteArray encoded(const Raster& picture, const QByteArray& format) {
    QBuffer buffer;
    QImageWriter writer(&buffer, format);
    // The other program waits: light compression takes a third of the time for half as much again.
    constexpr int Light = 12; // of 100
    writer.setCompression(Light);
    return writer.write(picture.toImage()) ? buffer.data() : QByteArray();
}

} // namespace

QStringList PictureMimeData::formats() const {
    QStringList offered = {Png, Bmp};
    if (!offersFilesOnly())
        offered.append(ToolkitImage);
    return offered;
}

QVariant PictureMimeData::retrieveData(const QString& type, QMetaType) const {
    QVariant data;
    // Another program asks, through the toolkit, which no exception may pass: without memory it gets nothing.
    skipOnError([&] {
        if (type == Png)
            data = encoded(m_picture, "png");
        else if (type == Bmp)
            data = encoded(m_picture, "bmp");
        else if (type == ToolkitImage)
            data = m_picture.toImage();
    });
    return data;
}

} // namespace ovrano
