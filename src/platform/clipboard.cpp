#include "platform/clipboard.h"

#include "platform/directclipboard.h"
#include "platform/picturemimedata.h"

#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMimeData>
#include <QUrl>

#include <algorithm>
#include <iterator>
#include <memory>

namespace ovrano {

namespace {

const QStringList RasterTypes = {QStringLiteral("image/png"), QStringLiteral("image/bmp"),
                                 QStringLiteral("image/x-bmp"), QStringLiteral("image/x-MS-bmp"),
                                 QStringLiteral("image/jpeg")};
const QString VectorType = QStringLiteral("image/svg+xml");
const QString FilesType = QStringLiteral("text/uri-list");
/// What the toolkit makes of a system's own picture format where there are no types.
const QString ToolkitImage = QStringLiteral("application/x-qt-image");

/// Null where the clipboard is empty on some platforms.
const QMimeData* held() {
    return QGuiApplication::clipboard()->mimeData();
}

/// What this program put there itself it can only ask itself for.
bool isOurs() {
    return QGuiApplication::clipboard()->ownsClipboard();
}

/// The types that are announced now.
QStringList announced() {
    if (!isOurs())
        if (const auto types = announcedDirectly())
            return *types;
    const QMimeData* data = held();
    return data ? data->formats() : QStringList();
}

QStringList rasterTypesAmong(const QStringList& types) {
    QStringList found;
    std::copy_if(RasterTypes.begin(), RasterTypes.end(), std::back_inserter(found),
                 [&types](const QString& type) { return types.contains(type); });
    return found;
}

/// The lines of a list of files that are no remarks.
QList<QUrl> urlsIn(const QByteArray& list) {
    QList<QUrl> urls;
    for (const QByteArray& line : list.split('\n'))
        if (const QByteArray url = line.trimmed(); !url.isEmpty() && !url.startsWith('#'))
            urls.append(QUrl::fromEncoded(url));
    return urls;
}

/// A file copied in a file manager, when its name is a picture's. The file itself is not touched: it may be
/// a pipe or lie on a network that does not answer.
QString pictureFileAmong(const QStringList& types) {
    static const QStringList suffixes = {QStringLiteral("bmp"), QStringLiteral("gif"), QStringLiteral("jpg"),
                                         QStringLiteral("jpeg"), QStringLiteral("png")};
    if (!types.contains(FilesType))
        return QString();
    const QList<QUrl> urls = urlsIn(clipboardBytes(FilesType));
    const bool isPicture =
        urls.size() == 1 && urls.first().isLocalFile() &&
        suffixes.contains(QFileInfo(urls.first().fileName()).suffix(), Qt::CaseInsensitive);
    return isPicture ? urls.first().toLocalFile() : QString();
}

bool offers(const QStringList& types, ClipboardFormat format) {
    switch (format) {
    case ClipboardFormat::Bitmap:
    case ClipboardFormat::Dib:
        return types.contains(ToolkitImage) || !rasterTypesAmong(types).isEmpty() ||
               !pictureFileAmong(types).isEmpty();
    case ClipboardFormat::Metafile:
        return types.contains(VectorType);
    case ClipboardFormat::Palette:
        break;
    }
    return false;
}

} // namespace

bool clipboardOffers(ClipboardFormat format) {
    return offers(announced(), format);
}

bool clipboardOffersPicture() {
    const QStringList types = announced();
    // Raster pictures have two numbers and are looked for once.
    return offers(types, ClipboardFormat::Metafile) || offers(types, ClipboardFormat::Bitmap);
}

std::optional<Raster> ownClipboardPicture() {
    if (const auto* own = qobject_cast<const PictureMimeData*>(held()))
        return own->picture();
    return std::nullopt;
}

QStringList clipboardRasterTypes() {
    return rasterTypesAmong(announced());
}

QString clipboardVectorType() {
    return announced().contains(VectorType) ? VectorType : QString();
}

QByteArray clipboardBytes(const QString& type) {
    if (!isOurs())
        if (const auto bytes = fetchDirectly(type))
            return *bytes;
    const QMimeData* data = held();
    return data ? data->data(type) : QByteArray();
}

QString clipboardPictureFile() {
    return pictureFileAmong(announced());
}

QImage clipboardImage() {
    const QMimeData* data = announced().contains(ToolkitImage) ? held() : nullptr;
    return data ? qvariant_cast<QImage>(data->imageData()) : QImage();
}

void putOnClipboard(const Raster& picture) {
    if (picture.isEmpty())
        return;
    auto data = std::make_unique<PictureMimeData>(picture);
    QGuiApplication::clipboard()->setMimeData(data.release()); // which owns it from now on
}

void clearClipboard() {
    QGuiApplication::clipboard()->clear();
}

} // namespace ovrano
