#include "bodies.h"
#include "document/gifencoder.h"
#include "document/imagerows.h"
#include "document/palettereducer.h"
#include "document/picturereader.h"
#include "feedback.h"
#include "finding.h"

#include <algorithm>
#include <cstring>
#include <gif_lib.h>
#include <memory>
#include <set>

namespace ovrano::fuzz {

namespace {

/// How a picture is made of bytes: its size, what its pixels are, whether errors are diffused. Many colours
/// take long to reduce, so that the pictures are tiny but for those of a mark.
struct Recipe {
    explicit Recipe(const QByteArray& bytes)
        : size(sideOf(bytes, 0), sideOf(bytes, 1))
        , kind(at(bytes, 2) % Kinds)
        , diffusion(at(bytes, 2) & 0x80 ? Diffusion::Off : Diffusion::On)
        , colours(bytes.mid(3)) {}

    enum Kind { Raw, Repeated, Ramps, Noise, Kinds };

    QRgb pixel(int x, int y) const {
        const int place = y * size.width() + x;
        const qsizetype first = qsizetype{3} * place;
        switch (kind) {
        case Raw: // what is not told is black
            return qRgb(at(colours, first), at(colours, first + 1), at(colours, first + 2));
        case Repeated:
            return repeated(place);
        case Ramps:
            return qRgb(x * at(colours, 0) / 16, y * at(colours, 1) / 16, (x + y) * at(colours, 2) / 32);
        default:
            return repeated(place) ^ (static_cast<QRgb>(place) * 2'654'435'761U >> at(colours, 0) % 24);
        }
    }

    const QSize size;
    const int kind;
    const Diffusion diffusion;
    const QByteArray colours;

private:
    static int at(const QByteArray& bytes, qsizetype place) {
        return place < bytes.size() ? static_cast<uchar>(bytes[place]) : 0;
    }
    static int sideOf(const QByteArray& bytes, qsizetype place) {
        return 1 + at(bytes, place) % (at(bytes, 2) == 0xFF ? 30 : 16);
    }
    QRgb repeated(int place) const {
        const int count = std::max<int>(1, static_cast<int>(colours.size()) / 3);
        const int one = place % count * 3;
        return qRgb(at(colours, one), at(colours, one + 1), at(colours, one + 2));
    }
};

QImage imageOf(const Recipe& recipe) {
    QImage image(recipe.size, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            reinterpret_cast<QRgb*>(image.scanLine(y))[x] = recipe.pixel(x, y) | 0xFF000000U;
    return image;
}

std::size_t coloursOf(const QImage& image) {
    std::set<QRgb> colours;
    for (int y = 0; y < image.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        colours.insert(row, row + image.width());
    }
    return colours.size();
}

QImage imageOf(const IndexedPicture& picture) {
    QImage image(picture.size, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            require(picture.row(y)[x] < picture.palette.size(), "an index beyond the palette");
            image.setPixel(x, y, picture.palette[picture.row(y)[x]]);
        }
    return image;
}

QByteArray gifOf(const IndexedPicture& picture) {
    QByteArray bytes;
    writeGif(picture, [&](const void* some, std::size_t count) {
        bytes.append(static_cast<const char*>(some), static_cast<qsizetype>(count));
    });
    return bytes;
}

struct CloseGif {
    void operator()(GifFileType* gif) const { DGifCloseFile(gif, nullptr); }
};

int take(GifFileType* gif, GifByteType* out, int count) {
    auto& left = *static_cast<QByteArrayView*>(gif->UserData);
    const auto now = std::min<qsizetype>(count, left.size());
    std::copy_n(left.data(), now, out);
    left = left.sliced(now);
    return static_cast<int>(now);
}

/// What another reader than the program's own makes of it.
QImage readByLibrary(const QByteArray& content) {
    QByteArrayView left(content);
    const std::unique_ptr<GifFileType, CloseGif> gif(DGifOpen(&left, take, nullptr));
    require(gif != nullptr && DGifSlurp(gif.get()) == GIF_OK, "the second reader refuses it");
    require(gif->ImageCount == 1, "not one frame");
    const SavedImage& frame = gif->SavedImages[0];
    QImage image(frame.ImageDesc.Width, frame.ImageDesc.Height, QImage::Format_RGB32);
    const GifByteType* index = frame.RasterBits;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x, ++index) {
            require(*index < gif->SColorMap->ColorCount, "an index beyond the written palette");
            const GifColorType& colour = gif->SColorMap->Colors[*index];
            image.setPixel(x, y, qRgb(colour.Red, colour.Green, colour.Blue));
        }
    return image;
}

} // namespace

void writeGifAndRead(const QByteArray& bytes) {
    const Recipe recipe(bytes);
    const QImage original = imageOf(recipe);
    ImageRows rows(original);
    const IndexedPicture picture = reduceTo256(rows, recipe.diffusion);
    require(picture.size == recipe.size, "reducing colours changed the size");
    require(!picture.palette.empty() && picture.palette.size() <= std::size_t{MaxColours}, "palette's size");
    const QImage expected = imageOf(picture);
    const std::size_t colours = coloursOf(original);
    if (colours <= std::size_t{MaxColours})
        require(expected == original, "few colours were not kept");
    const QByteArray gif = gifOf(picture);
    require(decodePicture(gif).toImage() == expected, "read back with other pixels");
    require(readByLibrary(gif) == expected, "the second reader sees other pixels");
    note(colours);
}

} // namespace ovrano::fuzz
