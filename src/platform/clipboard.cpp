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
#include <utility>

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

/// The lines of a list of files that are no remarks.
QList<QUrl> urlsIn(const QByteArray& list) {
    QList<QUrl> urls;
    for (const QByteArray& line : list.split('\n'))
        if (const QByteArray url = line.trimmed(); !url.isEmpty() && !url.startsWith('#'))
            urls.append(QUrl::fromEncoded(url));
    return urls;
}

} // namespace

ClipboardOffer::ClipboardOffer(QStringList types)
    : m_types(std::move(types)) {}

ClipboardOffer ClipboardOffer::now() {
    return ClipboardOffer(announced());
}

bool ClipboardOffer::includes(ClipboardFormat format) const {
    switch (format) {
    case ClipboardFormat::Bitmap:
    case ClipboardFormat::Dib:
        return m_types.contains(ToolkitImage) || !rasterTypes().isEmpty() || !pictureFile().isEmpty();
    case ClipboardFormat::Metafile:
        return !vectorType().isEmpty();
    case ClipboardFormat::Palette:
        break;
    }
    return false;
}

bool ClipboardOffer::includesPicture() const {
    // Raster pictures have two numbers and are looked for once.
    return includes(ClipboardFormat::Metafile) || includes(ClipboardFormat::Bitmap);
}

QStringList ClipboardOffer::rasterTypes() const {
    QStringList found;
    std::copy_if(RasterTypes.begin(), RasterTypes.end(), std::back_inserter(found),
                 [this](const QString& type) { return m_types.contains(type); });
    return found;
}

QString ClipboardOffer::vectorType() const {
    return m_types.contains(VectorType) ? VectorType : QString();
}

QString ClipboardOffer::pictureFile() const {
    static const QStringList suffixes = {QStringLiteral("bmp"), QStringLiteral("gif"), QStringLiteral("jpg"),
                                         QStringLiteral("jpeg"), QStringLiteral("png")};
    if (!m_types.contains(FilesType))
        return QString();
    const QList<QUrl> urls = urlsIn(clipboardBytes(FilesType));
    const bool isPicture =
        urls.size() == 1 && urls.first().isLocalFile() &&
        suffixes.contains(QFileInfo(urls.first().fileName()).suffix(), Qt::CaseInsensitive);
    return isPicture ? urls.first().toLocalFile() : QString();
}

QImage ClipboardOffer::image() const {
    const QMimeData* data = m_types.contains(ToolkitImage) ? held() : nullptr;
    return data ? qvariant_cast<QImage>(data->imageData()) : QImage();
}

QByteArray clipboardBytes(const QString& type) {
    if (!isOurs())
        if (const auto bytes = fetchDirectly(type))
            return *bytes;
    const QMimeData* data = held();
    return data ? data->data(type) : QByteArray();
}

std::optional<Raster> ownClipboardPicture() {
    if (const auto* own = qobject_cast<const PictureMimeData*>(held()))
        return own->picture();
    return std::nullopt;
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
