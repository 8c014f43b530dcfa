#include "document/clipboardpicture.h"

#include "document/decodedpicture.h"
#include "document/picturereader.h"
#include "document/vectorpicture.h"
#include "platform/clipboard.h"
#include "platform/runtimeerror.h"

#include <utility>

namespace ovrano {

namespace {

/// What a reader makes of it; nothing when it is no picture or cannot be had.
template<typename Read>
std::optional<Raster> attempt(Read&& read) {
    try {
        return read();
    } catch (const RuntimeError& caught) {
        if (caught.number() == error::OutOfMemory)
            throw;
        return std::nullopt;
    }
}

std::optional<Raster> rasterPicture() {
    for (const QString& type : clipboardRasterTypes())
        if (auto picture = attempt([&] { return decodePicture(clipboardBytes(type)); }))
            return picture;
    if (const QString path = clipboardPictureFile(); !path.isEmpty())
        return attempt([&] { return LoadPicture(path); });
    return std::nullopt;
}

std::optional<Raster> vectorPicture() {
    const QString type = clipboardVectorType();
    return type.isEmpty() ? std::nullopt : attempt([&] { return renderVectorPicture(clipboardBytes(type)); });
}

/// From a system whose own picture format the toolkit translates. It would do so with a vector picture as
/// well, and with all that this refers to.
std::optional<Raster> systemPicture() {
    if (!clipboardVectorType().isEmpty())
        return std::nullopt;
    QImage image = clipboardImage();
    if (image.isNull())
        return std::nullopt;
    requireAcceptable(image.size());
    EventYield yield;
    return toRaster(std::move(image), QImageIOHandler::TransformationNone, yield);
}

} // namespace

std::optional<Raster> clipboardPicture() {
    for (const auto& read : {ownClipboardPicture, rasterPicture, vectorPicture, systemPicture})
        if (auto picture = read())
            return picture;
    return std::nullopt;
}

} // namespace ovrano
