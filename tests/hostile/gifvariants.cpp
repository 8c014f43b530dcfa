// GIF files that are not damaged, but unusual, and damaged ones.

#include "gifmaker.h"
#include "variant.h"

namespace ovrano::hostile {

namespace {

constexpr QRgb Nothing = qRgb(255, 255, 255); // was drawn there

QList<QRgb> paletteOf(int count) {
    QList<QRgb> palette;
    for (int i = 0; i < count; ++i)
        palette.append(qRgb((i * 71 + 5) & 255, (i * 29 + 90) & 255, (i * 113 + 200) & 255));
    return palette;
}

int indexAt(int x, int y, int colours) {
    return (x * 3 + y * 5) % colours;
}

GifMaker::Frame frameAt(const QRect& place, int colours) {
    GifMaker::Frame frame;
    frame.place = place;
    for (int y = 0; y < place.height(); ++y)
        for (int x = 0; x < place.width(); ++x)
            frame.indices.append(static_cast<char>(indexAt(x, y, colours)));
    return frame;
}

/// One frame over the whole screen, with 4 colours.
GifMaker ordinary(QSize size = QSize(11, 21)) {
    GifMaker maker;
    maker.screen = size;
    maker.palette = paletteOf(4);
    maker.frames = {frameAt(QRect(QPoint(0, 0), size), 4)};
    return maker;
}

Raster shown(QSize size, const QList<QRgb>& palette) {
    const int colours = static_cast<int>(palette.size());
    return drawn(size, [&](int x, int y) { return palette.at(indexAt(x, y, colours)); });
}

Raster shown(const GifMaker& maker) {
    return shown(maker.screen, maker.palette);
}

Variants codeSizes() {
    Variants all;
    for (int bits = 2; bits <= 8; ++bits) {
        GifMaker maker = ordinary(QSize(40, 30));
        maker.palette = paletteOf(1 << bits);
        maker.frames = {frameAt(QRect(0, 0, 40, 30), 1 << bits)};
        maker.frames[0].codeBits = bits;
        all.push_back({QByteArray::number(bits) + " bits a pixel", maker.bytes(), shown(maker)});
        maker.frames[0].interlaced = true;
        all.push_back({QByteArray::number(bits) + " bits, interlaced", maker.bytes(), shown(maker)});
        maker.frames[0].blockBytes = 1;
        all.push_back({QByteArray::number(bits) + " bits, blocks of a byte", maker.bytes(), shown(maker)});
    }
    // More bits than colours need.
    GifMaker wide = ordinary();
    wide.frames[0].codeBits = 7;
    all.push_back({"wide codes", wide.bytes(), shown(wide)});
    return all;
}

Variants heads() {
    Variants all;
    GifMaker maker = ordinary();
    for (const char* version : {"87a", "89a"}) {
        maker.version = version;
        all.push_back({QByteArray("version ") + version, maker.bytes(), shown(maker)});
    }
    maker.before = gifExtension(0xFE, "Un commentaire") + gifExtension(0xFE, QByteArray(700, 'x'));
    all.push_back({"remarks", maker.bytes(), shown(maker)});
    maker.before = gifExtension(0xFF, "NETSCAPE2.0") + gifExtension(0x01, QByteArray(12, '\3')) +
                   gifExtension(0x77, "unknown");
    all.push_back({"other extensions", maker.bytes(), shown(maker)});
    maker = ordinary();
    maker.terminated = false;
    all.push_back({"no end mark", maker.bytes(), shown(maker)});
    maker = ordinary();
    maker.frames[0].endCode = false;
    all.push_back({"no end code", maker.bytes(), shown(maker)});
    return all;
}

Variants palettes() {
    Variants all;
    GifMaker local = ordinary();
    local.frames[0].palette = paletteOf(8).mid(4);
    all.push_back({"palette of the frame", local.bytes(), shown(local.screen, local.frames[0].palette)});
    local.palette.clear();
    all.push_back({"palette of the frame only", local.bytes(), shown(local.screen, local.frames[0].palette)});
    GifMaker few = ordinary();
    few.palette = paletteOf(2);
    all.push_back({"colours that are not there", few.bytes(), drawn(few.screen, [&](int x, int y) {
                       const int index = indexAt(x, y, 4);
                       return index < 2 ? few.palette.at(index) : Nothing;
                   })});
    return all;
}

/// What a frame leaves free has the background's colour.
Variants places() {
    Variants all;
    const QSize screen(20, 16);
    for (const QRect& place : {QRect(0, 0, 20, 8), QRect(5, 3, 9, 7), QRect(19, 15, 1, 1)}) {
        GifMaker maker = ordinary(screen);
        maker.frames = {frameAt(place, 4)};
        Raster expected = drawn(screen, [&](int, int) { return maker.palette.at(maker.background); });
        expected.copyFrom(shown(place.size(), maker.palette), QRect(QPoint(0, 0), place.size()),
                          place.topLeft());
        all.push_back({"frame at " + QByteArray::number(place.x()) + ", " + QByteArray::number(place.y()),
                       maker.bytes(), expected});
    }
    GifMaker beyond = ordinary(QSize(11, 9));
    beyond.frames = {frameAt(QRect(4, 3, 20, 30), 4)};
    Raster part = drawn(beyond.screen, [&](int, int) { return beyond.palette.at(beyond.background); });
    part.copyFrom(shown(QSize(20, 30), beyond.palette), QRect(0, 0, 7, 6), QPoint(4, 3));
    all.push_back({"frame beyond the screen", beyond.bytes(), part});
    GifMaker noScreen = ordinary();
    noScreen.screen = QSize(0, 0);
    all.push_back({"size left to the frame", noScreen.bytes(), shown(ordinary())});
    GifMaker twice = ordinary();
    twice.frames.append(twice.frames[0]);
    twice.frames[1].indices.fill('\1');
    all.push_back({"two frames", twice.bytes(), shown(twice)});
    GifMaker seeThrough = ordinary();
    seeThrough.frames[0].transparent = 2;
    all.push_back({"transparent colour", seeThrough.bytes(), drawn(seeThrough.screen, [&](int x, int y) {
                       const int index = indexAt(x, y, 4);
                       return index == 2 ? Nothing : seeThrough.palette.at(index);
                   })});
    return all;
}

Variants wrongCodes() {
    Variants all;
    for (const int bits : {0, 9, 11, 12, 13, 255}) {
        GifMaker maker = ordinary();
        maker.frames[0].codes = QByteArray(40, '\x14');
        maker.frames[0].codeBits = bits;
        all.push_back({"codes of " + QByteArray::number(bits), maker.bytes(), Raster()});
    }
    GifMaker tooFew = ordinary();
    tooFew.frames[0].indices.truncate(0);
    tooFew.frames[0].codes = QByteArray("\x84\x51", 2); // a few pixels and the end code
    all.push_back({"end code too early", tooFew.bytes(), Raster()});
    GifMaker noCodes = ordinary();
    noCodes.frames[0].codes = QByteArray("\x2C", 1); // the clear code, then the end code
    all.push_back({"end code at once", noCodes.bytes(), Raster()});
    return all;
}

Variants wrongParts() {
    Variants all;
    GifMaker noPalette = ordinary();
    noPalette.palette.clear();
    all.push_back({"no palette", noPalette.bytes(), Raster()});
    GifMaker open = ordinary();
    open.frames[0].terminated = false;
    open.terminated = false;
    all.push_back({"codes without an end", open.bytes(), Raster()});
    GifMaker empty = ordinary();
    empty.frames.clear();
    all.push_back({"no frame", empty.bytes(), Raster()});
    GifMaker version = ordinary();
    version.version = "90z";
    all.push_back({"unknown version", version.bytes(), Raster()});
    GifMaker huge = ordinary();
    huge.screen = QSize(16'000, 16'000);
    all.push_back({"small frame on a huge screen", huge.bytes(), Raster()});
    GifMaker noSize = ordinary();
    noSize.screen = QSize(0, 0);
    noSize.frames[0].place = QRect(0, 0, 0, 0);
    noSize.frames[0].codes = "\x2C";
    all.push_back({"no size", noSize.bytes(), Raster()});
    return all;
}

} // namespace

Variants gifVariants() {
    Variants all;
    for (const auto& some : {codeSizes(), heads(), palettes(), places()})
        append(all, some);
    return all;
}

Variants gifDamage() {
    Variants all = wrongCodes();
    append(all, wrongParts());
    return all;
}

} // namespace ovrano::hostile
