#include "platform/clipboard.h"

#include "platform/directclipboard.h"
#include "platform/picturemimedata.h"

#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMimeData>
#include <QUrl>

#include <algorithm>
#include <memory>

namespace ovrano {

namespace {

const QStringList RasterTypes = {QStringLiteral("image/png"), QStringLiteral("image/bmp"),
                                 QStringLiteral("image/x-bmp"), QStringLiteral("image/x-MS-bmp"),
                                 QStringLiteral("image/jpeg")};

const QString VectorType = QStringLiteral("image/svg+xml");

/// Null where the clipboard is empty on some platforms.
const QMimeData* held() {
    return QGuiApplication::clipboard()->mimeData();
}

/// A file copied in a file manager, when its name is a picture's. The file itself is not touched: it may be
/// a pipe or lie on a network that does not answer.
QString pictureFileIn(const QMimeData& data) {
    static const QStringList suffixes = {QStringLiteral("bmp"), QStringLiteral("gif"), QStringLiteral("jpg"),
                                         QStringLiteral("jpeg"), QStringLiteral("png")};
    const QList<QUrl> urls = data.urls();
    const bool isPicture =
        urls.size() == 1 && urls.first().isLocalFile() &&
        suffixes.contains(QFileInfo(urls.first().fileName()).suffix(), Qt::CaseInsensitive);
    return isPicture ? urls.first().toLocalFile() : QString();
}

bool offersRaster(const QMimeData& data) {
    const auto offered = [&data](const QString& type) { return data.hasFormat(type); };
    return data.hasImage() || std::any_of(RasterTypes.begin(), RasterTypes.end(), offered) ||
           !pictureFileIn(data).isEmpty();
}

} // namespace

bool clipboardOffers(ClipboardFormat format) {
    const QMimeData* data = held();
    if (!data)
        return false;
    switch (format) {
    case ClipboardFormat::Bitmap:
    case ClipboardFormat::Dib:
        return offersRaster(*data);
    case ClipboardFormat::Metafile:
        return data->hasFormat(VectorType);
    case ClipboardFormat::Palette:
        break;
    }
    return false;
}

bool clipboardOffersPicture() {
    constexpr ClipboardFormat All[] = {ClipboardFormat::Bitmap, ClipboardFormat::Metafile,
                                       ClipboardFormat::Dib, ClipboardFormat::Palette};
    return std::any_of(std::begin(All), std::end(All), clipboardOffers);
}

std::optional<Raster> ownClipboardPicture() {
    if (const auto* own = qobject_cast<const PictureMimeData*>(held()))
        return own->picture();
    return std::nullopt;
}

QStringList clipboardRasterTypes() {
    QStringList types;
    if (const QMimeData* data = held())
        std::copy_if(RasterTypes.begin(), RasterTypes.end(), std::back_inserter(types),
                     [data](const QString& type) { return data->hasFormat(type); });
    return types;
}

QString clipboardVectorType() {
    const QMimeData* data = held();
    return data && data->hasFormat(VectorType) ? VectorType : QString();
}

QByteArray clipboardBytes(const QString& type) {
    const QMimeData* data = held();
    const bool ours = QGuiApplication::clipboard()->ownsClipboard(); // nobody else would answer meanwhile
    if (!ours)
        if (const auto bytes = fetchDirectly(type))
            return *bytes;
    return data ? data->data(type) : QByteArray();
}

QString clipboardPictureFile() {
    const QMimeData* data = held();
    return data ? pictureFileIn(*data) : QString();
}

QImage clipboardImage() {
    const QMimeData* data = held();
    return data && data->hasImage() ? qvariant_cast<QImage>(data->imageData()) : QImage();
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
