#include "document/gifencoder.h"

#include "platform/runtimeerror.h"
#include "platform/yield.h"

#include <algorithm>
#include <bit>
#include <exception>
#include <gif_lib.h>
#include <memory>

namespace ovrano {

namespace {

constexpr int MaxSide = 65535;
constexpr int BitsPerChannel = 8;

/// Passes the bytes through the library. It is C and no exception may cross it, so an exception of the sink
/// is kept and thrown again afterwards.
struct Output {
    const ByteSink& sink;
    std::exception_ptr failure;
};

/// The library's write function; returning fewer bytes than given reports a failure.
int send(GifFileType* gif, const GifByteType* bytes, int count) {
    auto& output = *static_cast<Output*>(gif->UserData);
    try {
        if (!output.failure)
            output.sink(bytes, static_cast<std::size_t>(count));
    } catch (...) {
        output.failure = std::current_exception();
    }
    return output.failure ? 0 : count;
}

struct FreeColourMap {
    void operator()(ColorMapObject* map) const { GifFreeMapObject(map); }
};
using ColourMap = std::unique_ptr<ColorMapObject, FreeColourMap>;

struct CloseGif {
    void operator()(GifFileType* gif) const { EGifCloseFile(gif, nullptr); }
};
using Gif = std::unique_ptr<GifFileType, CloseGif>;

/// Apart from writing, whose failure the sink reports, only memory can be short.
void require(bool done) {
    if (!done)
        throw RuntimeError(error::OutOfMemory);
}

GifColorType toGifColour(QRgb colour) {
    return {static_cast<GifByteType>(qRed(colour)), static_cast<GifByteType>(qGreen(colour)),
            static_cast<GifByteType>(qBlue(colour))};
}

/// The entries beyond the palette stay black.
ColourMap makeColourMap(const Palette& palette) {
    const std::size_t entries = std::max<std::size_t>(2, std::bit_ceil(palette.size()));
    ColourMap map(GifMakeMapObject(static_cast<int>(entries), nullptr));
    require(map != nullptr);
    std::transform(palette.begin(), palette.end(), map->Colors, toGifColour);
    return map;
}

void putHeader(GifFileType* gif, const IndexedPicture& picture) {
    const ColourMap map = makeColourMap(picture.palette);
    require(EGifPutScreenDesc(gif, picture.size.width(), picture.size.height(), BitsPerChannel, 0,
                              map.get()) == GIF_OK);
    require(EGifPutImageDesc(gif, 0, 0, picture.size.width(), picture.size.height(), false, nullptr) ==
            GIF_OK);
}

void putRows(GifFileType* gif, const IndexedPicture& picture) {
    EventYield yield;
    std::vector<GifPixelType> row(static_cast<std::size_t>(picture.size.width()));
    for (int y = 0; y < picture.size.height(); ++y) {
        std::copy_n(picture.row(y), row.size(), row.begin()); // the library writes into what it is given
        require(EGifPutLine(gif, row.data(), picture.size.width()) == GIF_OK);
        yield();
    }
}

/// The end mark is written when the file is closed, at the end of the scope.
void put(Output& output, const IndexedPicture& picture) {
    const Gif gif(EGifOpen(&output, send, nullptr));
    require(gif != nullptr);
    putHeader(gif.get(), picture);
    putRows(gif.get(), picture);
}

} // namespace

void requireGifSize(QSize size) {
    if (std::max(size.width(), size.height()) > MaxSide)
        throw RuntimeError(
            error::InvalidPropertyValue,
            QStringLiteral("L'image est trop grande pour le format GIF (%1 pixels de côté au plus)")
                .arg(MaxSide));
}

void writeGif(const IndexedPicture& picture, const ByteSink& sink) {
    requireGifSize(picture.size);
    Output output{sink, nullptr};
    try {
        put(output, picture);
    } catch (const RuntimeError&) {
        if (!output.failure)
            throw;
    }
    if (output.failure)
        std::rethrow_exception(output.failure);
}

} // namespace ovrano
