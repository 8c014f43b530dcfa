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

std::optional<Raster> rasterPicture(const ClipboardOffer& offer) {
    for (const QString& type : offer.rasterTypes())
        if (auto picture = attempt([&] { return decodePicture(clipboardBytes(type)); }))
            return picture;
    if (const QString path = offer.pictureFile(); !path.isEmpty())
        return attempt([&] { return LoadPicture(path); });
    return std::nullopt;
}

std::optional<Raster> vectorPicture(const ClipboardOffer& offer) {
    const QString type = offer.vectorType();
    return type.isEmpty() ? std::nullopt : attempt([&] { return renderVectorPicture(clipboardBytes(type)); });
}

/// From a system whose own picture format the toolkit translates. It would do so with a vector picture as
/// well, and with all that this refers to.
std::optional<Raster> systemPicture(const ClipboardOffer& offer) {
    if (!offer.vectorType().isEmpty())
        return std::nullopt;
    QImage image = offer.image();
    if (image.isNull())
        return std::nullopt;
    requireAcceptable(image.size());
    EventYield yield;
    return toRaster(std::move(image), QImageIOHandler::TransformationNone, yield);
}

} // namespace

std::optional<Raster> clipboardPicture() {
    if (auto own = ownClipboardPicture())
        return own;
    const ClipboardOffer offer = ClipboardOffer::now();
    for (const auto& read : {rasterPicture, vectorPicture, systemPicture})
        if (auto picture = read(offer))
            return picture;
    return std::nullopt;
}

} // namespace ovrano
