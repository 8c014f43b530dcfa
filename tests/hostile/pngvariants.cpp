// PNG files: every kind and depth, and damaged ones.

#include "pngmaker.h"
#include "variant.h"

namespace ovrano::hostile {

namespace {

constexpr QSize Size(13, 10); // all passes of an interlaced picture have pixels

struct Depth {
    PngMaker::Kind kind;
    int bits;
};

/// Somehow spread over what so many bits can hold.
unsigned channelAt(int x, int y, int channel, int bits) {
    const unsigned spread = static_cast<unsigned>(x * 7919 + y * 104'729 + channel * 1'299'709);
    return (spread ^ spread >> 7U) & ((1U << bits) - 1);
}

int channelsOf(PngMaker::Kind kind) {
    static constexpr int Counts[] = {1, 0, 3, 1, 2, 0, 4};
    return Counts[kind];
}

QList<unsigned> channelsAt(const Depth& depth, int x, int y) {
    QList<unsigned> channels;
    for (int channel = 0; channel < channelsOf(depth.kind); ++channel)
        channels.append(channelAt(x, y, channel, depth.bits));
    return channels;
}

int toByte(unsigned value, int bits) {
    const unsigned most = (1U << bits) - 1;
    return static_cast<int>((value * 255 + most / 2) / most);
}

int overWhite(int channel, int alpha) {
    return (channel * alpha + 255 * (255 - alpha) + 127) / 255;
}

QRgb greyOver(int grey, int alpha) {
    const int shown = overWhite(grey, alpha);
    return qRgb(shown, shown, shown);
}

QList<QRgb> paletteOf(int count) {
    QList<QRgb> palette;
    for (int i = 0; i < count; ++i)
        palette.append(qRgb((i * 61 + 7) & 255, (i * 37 + 70) & 255, (i * 83 + 140) & 255));
    return palette;
}

QByteArray paletteChunk(const QList<QRgb>& palette) {
    QByteArray content;
    for (const QRgb colour : palette)
        for (const int channel : {qRed(colour), qGreen(colour), qBlue(colour)})
            content += static_cast<char>(channel);
    return pngChunk("PLTE", content);
}

QRgb shownAt(const Depth& depth, int x, int y) {
    const QList<unsigned> channels = channelsAt(depth, x, y);
    const auto byte = [&](qsizetype channel) { return toByte(channels.at(channel), depth.bits); };
    switch (depth.kind) {
    case PngMaker::Grey:
        return greyOver(byte(0), 255);
    case PngMaker::GreyAlpha:
        return greyOver(byte(0), byte(1));
    case PngMaker::Colours:
        return qRgb(byte(0), byte(1), byte(2));
    case PngMaker::ColoursAlpha:
        return qRgb(overWhite(byte(0), byte(3)), overWhite(byte(1), byte(3)), overWhite(byte(2), byte(3)));
    default:
        return paletteOf(1 << depth.bits).at(static_cast<int>(channels.at(0)));
    }
}

PngMaker makerOf(const Depth& depth) {
    PngMaker maker;
    maker.size = Size;
    maker.kind = depth.kind;
    maker.bits = depth.bits;
    if (depth.kind == PngMaker::Indexed)
        maker.before = paletteChunk(paletteOf(1 << depth.bits));
    return maker;
}

QByteArray bytesOf(const PngMaker& maker) {
    return maker.bytes([&](int x, int y) { return channelsAt({maker.kind, maker.bits}, x, y); });
}

Raster shown(const Depth& depth) {
    return drawn(Size, [&](int x, int y) { return shownAt(depth, x, y); });
}

QByteArray nameOf(const Depth& depth) {
    static const QByteArray names[] = {"grey",           "", "colours",          "palette",
                                       "grey and alpha", "", "colours and alpha"};
    return names[depth.kind] + ", " + QByteArray::number(depth.bits) + " bits";
}

Variants kinds() {
    static constexpr Depth Depths[] = {
        {PngMaker::Grey, 1},       {PngMaker::Grey, 2},         {PngMaker::Grey, 4},
        {PngMaker::Grey, 8},       {PngMaker::Grey, 16},        {PngMaker::Colours, 8},
        {PngMaker::Colours, 16},   {PngMaker::Indexed, 1},      {PngMaker::Indexed, 2},
        {PngMaker::Indexed, 4},    {PngMaker::Indexed, 8},      {PngMaker::GreyAlpha, 8},
        {PngMaker::GreyAlpha, 16}, {PngMaker::ColoursAlpha, 8}, {PngMaker::ColoursAlpha, 16}};
    Variants all;
    for (const Depth& depth : Depths) {
        PngMaker maker = makerOf(depth);
        all.push_back({nameOf(depth), bytesOf(maker), shown(depth), 1});
        maker.interlaced = true;
        all.push_back({nameOf(depth) + ", interlaced", bytesOf(maker), shown(depth), 1});
        for (maker.filter = 1; maker.filter <= 4; ++maker.filter)
            all.push_back({nameOf(depth) + ", filter " + QByteArray::number(maker.filter), bytesOf(maker),
                           shown(depth), 1});
    }
    return all;
}

/// Chunks that change what is shown.
Variants transparency() {
    Variants all;
    const Depth indexed{PngMaker::Indexed, 4};
    PngMaker palette = makerOf(indexed);
    palette.before += pngChunk("tRNS", QByteArray("\0\x80\xFF", 3));
    all.push_back({"palette with transparency", bytesOf(palette),
                   drawn(Size,
                         [&](int x, int y) {
                             static constexpr int Alphas[] = {0, 0x80, 0xFF};
                             const unsigned index = channelAt(x, y, 0, 4);
                             const int alpha = index < 3 ? Alphas[index] : 255;
                             const QRgb colour = shownAt(indexed, x, y);
                             return qRgb(overWhite(qRed(colour), alpha), overWhite(qGreen(colour), alpha),
                                         overWhite(qBlue(colour), alpha));
                         }),
                   1});
    const Depth grey{PngMaker::Grey, 4};
    PngMaker oneGrey = makerOf(grey);
    oneGrey.before = pngChunk("tRNS", QByteArray("\0\5", 2));
    all.push_back({"one grey is transparent", bytesOf(oneGrey),
                   drawn(Size,
                         [&](int x, int y) {
                             return channelAt(x, y, 0, 4) == 5 ? qRgb(255, 255, 255) : shownAt(grey, x, y);
                         }),
                   1});
    const Depth colours{PngMaker::Colours, 8};
    PngMaker oneColour = makerOf(colours);
    QByteArray first;
    for (const unsigned channel : channelsAt(colours, 3, 4))
        appendBig(first, static_cast<quint16>(channel));
    oneColour.before = pngChunk("tRNS", first);
    all.push_back({"one colour is transparent", bytesOf(oneColour),
                   drawn(Size,
                         [&](int x, int y) {
                             const bool isFirst = channelsAt(colours, x, y) == channelsAt(colours, 3, 4);
                             return isFirst ? qRgb(255, 255, 255) : shownAt(colours, x, y);
                         }),
                   1});
    return all;
}

Variants parts() {
    Variants all;
    const Depth colours{PngMaker::Colours, 8};
    PngMaker maker = makerOf(colours);
    maker.chunkBytes = 1;
    all.push_back({"a chunk for each byte", bytesOf(maker), shown(colours)});
    maker = makerOf(colours);
    maker.before = pngChunk("IDAT", QByteArray());
    all.push_back({"an empty chunk of pixels", bytesOf(maker), shown(colours)});
    maker.before = pngChunk("tEXt", QByteArray("Comment\0un texte", 16)) + pngChunk("xxXx", "unknown") +
                   pngChunk("pHYs", QByteArray("\0\0\1\0\0\0\1\0\1", 9));
    all.push_back({"other chunks", bytesOf(maker), shown(colours)});
    maker.before = pngChunk("acTL", QByteArray("\0\0\0\2\0\0\0\0", 8));
    maker.after = pngChunk("fdAT", QByteArray(30, 'x'));
    all.push_back({"animation's first picture", bytesOf(maker), shown(colours)});
    const Depth indexed{PngMaker::Indexed, 8};
    PngMaker few = makerOf(indexed);
    few.before = paletteChunk(paletteOf(100));
    all.push_back({"colours that are not there", bytesOf(few), drawn(Size, [&](int x, int y) {
                       return channelAt(x, y, 0, 8) < 100 ? shownAt(indexed, x, y) : paletteOf(1).at(0);
                   })});
    return all;
}

/// A file whose byte at a place is another one.
QByteArray changedAt(QByteArray content, qsizetype at) {
    content[at] = static_cast<char>(content[at] ^ 0x55);
    return content;
}

Variants damagedChunks() {
    const PngMaker maker = makerOf({PngMaker::Colours, 8});
    const QByteArray whole = bytesOf(maker);
    const qsizetype pixels = whole.indexOf("IDAT");
    Variants all;
    all.push_back({"header's checksum", changedAt(whole, 29), Raster()});
    all.push_back({"pixels' checksum", changedAt(whole, whole.indexOf("IEND") - 5), Raster()});
    all.push_back({"a packed byte", changedAt(whole, pixels + 60), Raster()});
    all.push_back({"length of the pixels", changedAt(whole, pixels - 1), Raster()});
    PngMaker critical = maker;
    critical.before = pngChunk("XxXX", "what must be understood");
    all.push_back({"unknown chunk that matters", bytesOf(critical), Raster()});
    PngMaker noPalette = makerOf({PngMaker::Indexed, 8});
    noPalette.before.clear();
    all.push_back({"no palette", bytesOf(noPalette), Raster()});
    all.push_back({"no pixels", maker.header() + pngChunk("IEND", QByteArray()), Raster()});
    PngMaker later = maker;
    later.before =
        pngChunk("iCCP", "broken") + pngChunk("gAMA", QByteArray(4, '\0')) + pngChunk("cHRM", "short");
    all.push_back({"broken chunks that do not matter", bytesOf(later), shown({PngMaker::Colours, 8})});
    return all;
}

Variants damagedPixels() {
    const Depth depth{PngMaker::Colours, 8};
    const PngMaker maker = makerOf(depth);
    const QByteArray rows = maker.rows([&](int x, int y) { return channelsAt(depth, x, y); });
    Variants all;
    all.push_back(
        {"too few rows", maker.bytesOfPacked(PngMaker::packed(rows.left(rows.size() / 2))), Raster()});
    all.push_back({"a byte too few", maker.bytesOfPacked(PngMaker::packed(rows.chopped(1))), Raster()});
    all.push_back({"too many rows", maker.bytesOfPacked(PngMaker::packed(rows + rows)), shown(depth)});
    PngMaker interlaced = maker;
    interlaced.interlaced = true;
    const QByteArray passes = interlaced.rows([&](int x, int y) { return channelsAt(depth, x, y); });
    all.push_back({"too few passes",
                   interlaced.bytesOfPacked(PngMaker::packed(passes.left(passes.size() / 3))), Raster()});
    all.push_back({"not packed", maker.bytesOfPacked(rows), Raster()});
    PngMaker filter = maker;
    filter.filter = 9;
    all.push_back({"unknown filter", bytesOf(filter), Raster()});
    return all;
}

Variants wrongHeaders() {
    Variants all;
    const auto add = [&](const char* name, const QSize& size, int bits, PngMaker::Kind kind) {
        PngMaker maker;
        maker.size = size;
        maker.bits = bits;
        maker.kind = kind;
        all.push_back({name, maker.bytesOfPacked(PngMaker::packed(QByteArray(500, '\0'))), Raster()});
    };
    add("huge", QSize(0x7FFFFFFF, 0x7FFFFFFF), 8, PngMaker::Colours);
    add("large", QSize(30'000, 30'000), 8, PngMaker::Colours);
    add("no width", QSize(0, 5), 8, PngMaker::Colours);
    add("no height", QSize(5, 0), 8, PngMaker::Colours);
    add("negative", QSize(-5, 5), 8, PngMaker::Colours);
    add("3 bits", QSize(5, 5), 3, PngMaker::Grey);
    add("colours of 4 bits", QSize(5, 5), 4, PngMaker::Colours);
    add("kind that does not exist", QSize(5, 5), 8, static_cast<PngMaker::Kind>(5));
    return all;
}

} // namespace

Variants pngVariants() {
    Variants all;
    for (const auto& some : {kinds(), transparency(), parts()})
        append(all, some);
    return all;
}

Variants pngDamage() {
    Variants all;
    for (const auto& some : {damagedChunks(), damagedPixels(), wrongHeaders()})
        append(all, some);
    return all;
}

} // namespace ovrano::hostile
