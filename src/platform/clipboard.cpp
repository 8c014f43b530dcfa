#include "platform/clipboard.h"

#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMimeData>
#include <QUrl>

#include <algorithm>

namespace ovrano {

namespace {

const QStringList RasterTypes = {QStringLiteral("image/png"), QStringLiteral("image/bmp"),
                                 QStringLiteral("image/x-bmp"), QStringLiteral("image/x-MS-bmp"),
                                 QStringLiteral("image/jpeg")};

/// A file copied in a file manager, when its name is a picture's. The file itself is not touched: it may be
/// a pipe or lie on a network that does not answer.
bool isPictureFile(const QMimeData& data) {
    static const QStringList suffixes = {QStringLiteral("bmp"), QStringLiteral("gif"), QStringLiteral("jpg"),
                                         QStringLiteral("jpeg"), QStringLiteral("png")};
    const QList<QUrl> urls = data.urls();
    return urls.size() == 1 && urls.first().isLocalFile() &&
           suffixes.contains(QFileInfo(urls.first().fileName()).suffix(), Qt::CaseInsensitive);
}

bool offersRaster(const QMimeData& data) {
    const auto offered = [&data](const QString& type) { return data.hasFormat(type); };
    return data.hasImage() || std::any_of(RasterTypes.begin(), RasterTypes.end(), offered) ||
           isPictureFile(data);
}

} // namespace

bool clipboardOffers(ClipboardFormat format) {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    if (!data)
        return false;
    switch (format) {
    case ClipboardFormat::Bitmap:
    case ClipboardFormat::Dib:
        return offersRaster(*data);
    case ClipboardFormat::Metafile:
        return data->hasFormat(QStringLiteral("image/svg+xml"));
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

} // namespace ovrano
