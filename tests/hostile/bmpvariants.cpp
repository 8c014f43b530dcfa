// BMP files that are not damaged, but unusual: every version of the header, every depth.

#include "bmpmaker.h"
#include "variant.h"

#include <algorithm>
#include <array>
#include <bit>

namespace ovrano::hostile {

namespace {

constexpr QSize Size(7, 5); // rows end within a group of four bytes at every depth

QRgb colourAt(int x, int y) {
    return qRgb(40 * x, 60 * y, 255 - 30 * x - 7 * y);
}

QList<QRgb> paletteOf(int count) {
    QList<QRgb> palette;
    for (int i = 0; i < count; ++i)
        palette.append(qRgb((i * 53 + 20) & 255, (i * 101 + 150) & 255, (255 - i * 31) & 255));
    return palette;
}

Variant withPalette(const QByteArray& name, BmpMaker maker, int used) {
    maker.size = Size;
    const auto index = [&](int x, int y) { return static_cast<quint32>((x + 3 * y) % used); };
    maker.store(index);
    const Raster expected = drawn(Size, [&](int x, int y) { return maker.palette.at(index(x, y)); });
    return {name, maker.bytes(), expected};
}

Variants headers() {
    Variants all;
    for (const int bytes : {12, 40, 52, 56, 64, 108, 124}) {
        BmpMaker maker;
        maker.headerBytes = bytes;
        maker.size = Size;
        maker.store(colourAt);
        const QByteArray name = "header of " + QByteArray::number(bytes) + " bytes";
        all.push_back({name + ", 24 bits", maker.bytes(), drawn(Size, colourAt)});
        BmpMaker indexed;
        indexed.headerBytes = bytes;
        indexed.bits = 8;
        indexed.palette = paletteOf(256);
        all.push_back(withPalette(name + ", 8 bits", indexed, 200));
        if (bytes == 52 || bytes == 56) // which nobody writes
            all.back().expected = Raster();
    }
    return all;
}

Variants palettes() {
    Variants all;
    for (const int bits : {1, 4, 8}) {
        for (const int count : {1 << bits, (1 << bits) / 2 + 1}) {
            BmpMaker maker;
            maker.bits = bits;
            maker.palette = paletteOf(count);
            all.push_back(withPalette(
                QByteArray::number(bits) + " bits, " + QByteArray::number(count) + " colours", maker, count));
        }
        BmpMaker implied;
        implied.bits = bits;
        implied.palette = paletteOf(1 << bits);
        implied.coloursUsed = 0;
        all.push_back(
            withPalette(QByteArray::number(bits) + " bits, colours not counted", implied, 1 << bits));
        BmpMaker apart = implied;
        apart.gap = QByteArray(50, 'x');
        all.push_back(withPalette(QByteArray::number(bits) + " bits, pixels after a gap", apart, 1 << bits));
        BmpMaker more;
        more.bits = bits;
        more.palette = paletteOf((1 << bits) + 5);
        all.push_back(
            withPalette(QByteArray::number(bits) + " bits, more colours than needed", more, 1 << bits));
        if (bits == 8) // more than a byte can tell apart
            all.back().expected = Raster();
    }
    BmpMaker twoBits;
    twoBits.bits = 2;
    twoBits.palette = paletteOf(4);
    Variant refused = withPalette("2 bits", twoBits, 4);
    refused.expected = Raster();
    all.push_back(refused);
    return all;
}

/// Some value of 0 to 255 in the bits of a mask.
quint32 inMask(int value, quint32 mask) {
    const quint32 most = mask >> std::countr_zero(mask);
    return static_cast<quint32>((quint64{most} * static_cast<quint64>(value) + 127) / 255)
           << std::countr_zero(mask);
}

struct Masks {
    const char* name;
    int headerBytes;
    int bits;
    quint32 compression;
    std::array<quint32, 3> rgb;
    bool written; // in the file, not only understood
};

/// Of every masked kind a picture of all sorts of colours, nearly as they are, and one of the brightest and
/// darkest, just as they are.
void appendMasked(Variants& all, const Masks& kind) {
    const auto pixel = [&](QRgb colour) {
        return inMask(qRed(colour), kind.rgb[0]) | inMask(qGreen(colour), kind.rgb[1]) |
               inMask(qBlue(colour), kind.rgb[2]);
    };
    BmpMaker maker;
    maker.headerBytes = kind.headerBytes;
    maker.bits = kind.bits;
    maker.compression = kind.compression;
    maker.size = Size;
    if (kind.written)
        maker.masks = {kind.rgb[0], kind.rgb[1], kind.rgb[2]};
    BmpMaker ends = maker;
    maker.store([&](int x, int y) { return pixel(colourAt(x, y)); });
    const int fewest =
        std::min({std::popcount(kind.rgb[0]), std::popcount(kind.rgb[1]), std::popcount(kind.rgb[2])});
    const int tolerance = fewest >= 8 ? 1 : 256 >> fewest;
    all.push_back({kind.name, maker.bytes(), drawn(Size, colourAt), tolerance});
    const auto extreme = [](int x, int y) {
        return qRgb((x & 1) * 255, (y & 1) * 255, ((x + y) / 2 & 1) * 255);
    };
    ends.store([&](int x, int y) { return pixel(extreme(x, y)); });
    all.push_back({QByteArray(kind.name) + ", full channels", ends.bytes(), drawn(Size, extreme)});
}

Variants masked() {
    constexpr auto Fields = BmpMaker::BitFields;
    static const Masks kinds[] = {
        {"16 bits, 5-5-5 implied", 40, 16, BmpMaker::None, {0x7C00, 0x3E0, 0x1F}, false},
        {"16 bits, 5-5-5 told", 40, 16, Fields, {0x7C00, 0x3E0, 0x1F}, true},
        {"16 bits, 5-6-5", 40, 16, Fields, {0xF800, 0x7E0, 0x1F}, true},
        {"16 bits, 5-6-5 in a header of 52", 52, 16, Fields, {0xF800, 0x7E0, 0x1F}, true},
        {"16 bits, 5-6-5 in a header of 56", 56, 16, Fields, {0xF800, 0x7E0, 0x1F}, true},
        {"16 bits, 5-6-5 in a header of 108", 108, 16, Fields, {0xF800, 0x7E0, 0x1F}, true},
        {"16 bits, 4-4-4", 40, 16, Fields, {0xF00, 0xF0, 0xF}, true},
        {"16 bits, blue on top", 40, 16, Fields, {0x1F, 0x7E0, 0xF800}, true},
        {"32 bits, implied", 40, 32, BmpMaker::None, {0xFF0000, 0xFF00, 0xFF}, false},
        {"32 bits, told", 40, 32, Fields, {0xFF0000, 0xFF00, 0xFF}, true},
        {"32 bits, red lowest", 40, 32, Fields, {0xFF, 0xFF00, 0xFF0000}, true},
        {"32 bits, in the upper bytes", 40, 32, Fields, {0xFF000000, 0xFF0000, 0xFF00}, true},
        {"32 bits, 10 a channel", 40, 32, Fields, {0x3FF00000, 0xFFC00, 0x3FF}, true},
        {"32 bits, header of 52", 52, 32, Fields, {0xFF0000, 0xFF00, 0xFF}, true},
        {"32 bits, header of 124", 124, 32, Fields, {0xFF0000, 0xFF00, 0xFF}, true},
        {"32 bits, header of 108, implied", 108, 32, BmpMaker::None, {0xFF0000, 0xFF00, 0xFF}, false},
    };
    Variants all;
    for (const Masks& kind : kinds)
        appendMasked(all, kind);
    return all;
}

/// The fourth byte is no transparency where nothing says so: many writers leave 0 there.
Variants fourthByte() {
    Variants all;
    for (const quint32 fourth : {0U, 0x80U, 0xFFU}) {
        BmpMaker maker;
        maker.bits = 32;
        maker.size = Size;
        maker.store([&](int x, int y) { return (colourAt(x, y) & 0xFFFFFFU) | fourth << 24U; });
        all.push_back(
            {"32 bits, fourth byte " + QByteArray::number(fourth), maker.bytes(), drawn(Size, colourAt)});
    }
    for (const int bytes : {56, 108, 124}) {
        BmpMaker maker;
        maker.headerBytes = bytes;
        maker.bits = 32;
        maker.compression = BmpMaker::BitFields;
        maker.masks = {0xFF0000, 0xFF00, 0xFF, 0xFF000000};
        maker.size = Size;
        const auto alpha = [](int x) { return static_cast<quint32>(x * 42); };
        maker.store([&](int x, int y) { return (colourAt(x, y) & 0xFFFFFFU) | alpha(x) << 24U; });
        const Raster expected = drawn(Size, [&](int x, int y) {
            const auto over = [&](int channel) {
                const int a = static_cast<int>(alpha(x));
                return (channel * a + 255 * (255 - a) + 127) / 255;
            };
            const QRgb colour = colourAt(x, y);
            return qRgb(over(qRed(colour)), over(qGreen(colour)), over(qBlue(colour)));
        });
        all.push_back({"transparency, header of " + QByteArray::number(bytes), maker.bytes(), expected, 2});
    }
    return all;
}

Variants topDown() {
    Variants all;
    const QSize stored(Size.width(), -Size.height());
    for (const int bits : {24, 32}) {
        BmpMaker maker;
        maker.bits = bits;
        maker.size = stored;
        maker.store(colourAt);
        all.push_back(
            {"from the top, " + QByteArray::number(bits) + " bits", maker.bytes(), drawn(Size, colourAt)});
    }
    for (const int bits : {1, 4, 8}) {
        BmpMaker maker;
        maker.bits = bits;
        maker.palette = paletteOf(1 << bits);
        maker.size = stored;
        const auto index = [&](int x, int y) { return static_cast<quint32>((x * y + y) % (1 << bits)); };
        maker.store(index);
        all.push_back({"from the top, " + QByteArray::number(bits) + " bits", maker.bytes(),
                       drawn(Size, [&](int x, int y) { return maker.palette.at(index(x, y)); })});
    }
    return all;
}

} // namespace

Variants bmpVariants() {
    Variants all;
    for (const auto& some : {headers(), palettes(), masked(), fourthByte(), topDown()})
        append(all, some);
    return all;
}

} // namespace ovrano::hostile
