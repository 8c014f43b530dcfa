// BMP files whose header does not fit to what follows.

#include "bmpmaker.h"
#include "variant.h"

#include <climits>

namespace ovrano::hostile {

namespace {

constexpr QSize Size(7, 5);

QRgb grey(int x, int y) {
    return qRgb(x * 30, x * 30 + y, y * 40);
}

BmpMaker plain() {
    BmpMaker maker;
    maker.size = Size;
    maker.store(grey);
    return maker;
}

BmpMaker indexed(int colours) {
    BmpMaker maker;
    maker.size = Size;
    maker.bits = 8;
    for (int i = 0; i < colours; ++i)
        maker.palette.append(qRgb(200 + i, 10 * i, 90));
    return maker;
}

/// With another number, of 32 bits, at a place of the file.
QByteArray with(QByteArray content, qsizetype at, quint32 number) {
    qToLittleEndian(number, content.data() + at);
    return content;
}

enum At {
    FileBytes = 2,
    Offset = 10,
    HeaderBytes = 14,
    Width = 18,
    Height = 22,
    Compression = 30,
    PixelBytes = 34,
    ColoursUsed = 46
};

Variants wrongNumbers() {
    const QByteArray whole = plain().bytes();
    const Raster right = drawn(Size, grey);
    Variants all;
    // Lengths that nobody needs are often wrong.
    for (const quint32 length : {0U, 1U, 60U, 0xFFFFFFFFU}) {
        all.push_back(
            {"length of the file " + QByteArray::number(length), with(whole, FileBytes, length), right});
        all.push_back(
            {"length of the pixels " + QByteArray::number(length), with(whole, PixelBytes, length), right});
    }
    for (const quint32 offset : {1000U, 0x7FFFFFFFU, 0xFFFFFFFFU})
        all.push_back(
            {"pixels beyond the end " + QByteArray::number(offset), with(whole, Offset, offset), Raster()});
    for (const quint32 offset : {0U, 20U, 53U})
        all.push_back(
            {"pixels among the headers " + QByteArray::number(offset), with(whole, Offset, offset), right});
    for (const quint32 compression : {4U, 5U, 6U, 11U, 99U})
        all.push_back({"compression " + QByteArray::number(compression),
                       with(whole, Compression, compression), Raster()});
    for (const quint32 length : {0U, 1U, 16U, 39U, 41U, 0xFFFFFFFFU})
        all.push_back(
            {"header of " + QByteArray::number(length), with(whole, HeaderBytes, length), Raster()});
    for (const int side : {0, INT_MIN, INT_MAX, 100'000}) {
        all.push_back(
            {"width " + QByteArray::number(side), with(whole, Width, static_cast<quint32>(side)), Raster()});
        all.push_back({"height " + QByteArray::number(side), with(whole, Height, static_cast<quint32>(side)),
                       Raster()});
    }
    all.push_back({"negative width", with(whole, Width, static_cast<quint32>(-7)), Raster()});
    all.push_back(
        {"-2^31 on both sides", with(with(whole, Width, 0x80000000U), Height, 0x80000000U), Raster()});
    all.push_back({"runs of 24-bit pixels", with(whole, Compression, 1), Raster()});
    return all;
}

/// Pixels of colours that are not there are white.
Variants beyondThePalette() {
    BmpMaker maker = indexed(5);
    const auto index = [](int x, int y) { return static_cast<quint32>(x + 40 * y); };
    maker.store(index);
    return {{"colours that are not there", maker.bytes(), drawn(Size, [&](int x, int y) {
                 const quint32 one = index(x, y);
                 return one < 5 ? maker.palette.at(one) : qRgb(255, 255, 255);
             })}};
}

Variants wrongPalettes() {
    Variants all;
    BmpMaker maker = indexed(16);
    maker.store([](int x, int) { return static_cast<quint32>(x); });
    const QByteArray whole = maker.bytes();
    for (const quint32 count : {257U, 100'000U, 0xFFFFFFFFU})
        all.push_back(
            {QByteArray::number(count) + " colours announced", with(whole, ColoursUsed, count), Raster()});
    return all;
}

/// Pictures of other formats within.
Variants packedInside() {
    Variants all;
    for (const quint32 compression : {quint32{BmpMaker::Jpeg}, quint32{BmpMaker::Png}}) {
        BmpMaker maker;
        maker.size = Size;
        maker.bits = 0;
        maker.compression = compression;
        maker.pixels = QByteArray(300, 'x');
        all.push_back({"another format within, " + QByteArray::number(compression), maker.bytes(), Raster()});
    }
    return all;
}

} // namespace

Variants bmpDamage() {
    Variants all;
    for (const auto& some : {wrongNumbers(), beyondThePalette(), wrongPalettes(), packedInside()})
        append(all, some);
    return all;
}

} // namespace ovrano::hostile
