// BMP files of run-length codes, right ones and such that break the rules.

#include "bmpmaker.h"
#include "variant.h"

namespace ovrano::hostile {

namespace {

constexpr QSize Size(6, 3);
constexpr QRgb Ground = qRgb(250, 240, 10); // of what the codes leave out: the first colour
const QList<QRgb> Palette = {Ground, qRgb(200, 0, 0), qRgb(0, 180, 0), qRgb(0, 0, 220)};

const QByteArray RowEnd("\0\0", 2);
const QByteArray PictureEnd("\0\1", 2);

QByteArray move(int right, int up) {
    return QByteArray("\0\2", 2) + static_cast<char>(right) + static_cast<char>(up);
}

QByteArray run(int count, int value) {
    return QByteArray(1, static_cast<char>(count)) + static_cast<char>(value);
}

/// Pixels one by one; of 4 bits, two in a byte.
QByteArray literal(const QByteArray& indices, bool halves) {
    QByteArray code(1, '\0');
    code.append(static_cast<char>(indices.size()));
    BitPacker packer;
    for (const char index : indices)
        packer.add(static_cast<unsigned char>(index), halves ? 4 : 8);
    packer.fillByte();
    code += packer.bytes();
    return packer.bytes().size() % 2 == 0 ? code : code + '\0';
}

BmpMaker makerOf(const QByteArray& codes, bool halves) {
    BmpMaker maker;
    maker.size = Size;
    maker.bits = halves ? 4 : 8;
    maker.compression = halves ? BmpMaker::Runs4 : BmpMaker::Runs8;
    maker.palette = Palette;
    maker.pixels = codes;
    return maker;
}

/// Rows of indices from the top, as text.
Raster pictureOf(const QList<QByteArray>& rows) {
    return drawn(Size, [&](int x, int y) { return Palette.at(rows.at(y).at(x) - '0'); });
}

struct Codes {
    const char* name;
    QByteArray bytes;
    QList<QByteArray> rows; // none: must be refused
};

Variants variantsOf(const QList<Codes>& all, bool halves) {
    Variants variants;
    for (const Codes& one : all)
        variants.push_back({QByteArray(halves ? "4-bit runs: " : "8-bit runs: ") + one.name,
                            makerOf(one.bytes, halves).bytes(),
                            one.rows.isEmpty() ? Raster() : pictureOf(one.rows)});
    return variants;
}

/// A value of a run: two pixels in turns where they have 4 bits.
int both(int index, bool halves) {
    return halves ? index * 16 + index : index;
}

QList<Codes> wellFormed(bool halves) {
    const QByteArray rowOf1 = run(6, both(1, halves));
    const QByteArray rowOf2 = run(6, both(2, halves));
    const QByteArray odd = literal(QByteArray("\1\2\3", 3), halves);
    return {
        {"whole rows",
         rowOf1 + RowEnd + rowOf2 + RowEnd + rowOf1 + PictureEnd,
         {"111111", "222222", "111111"}},
        {"ends of all rows",
         rowOf1 + RowEnd + rowOf2 + RowEnd + rowOf2 + RowEnd + PictureEnd,
         {"222222", "222222", "111111"}},
        {"without the end of the picture",
         rowOf1 + RowEnd + rowOf2 + RowEnd + rowOf2 + RowEnd,
         {"222222", "222222", "111111"}},
        {"literal pixels",
         odd + odd + RowEnd + odd + run(3, both(0, halves)) + RowEnd + rowOf1 + PictureEnd,
         {"111111", "123000", "123123"}},
        {"moves",
         run(1, both(1, halves)) + move(2, 1) + run(2, both(2, halves)) + move(0, 1) +
             run(1, both(3, halves)) + PictureEnd,
         {"000003", "000220", "100000"}},
        {"rows left short",
         run(2, both(1, halves)) + RowEnd + RowEnd + run(1, both(3, halves)) + PictureEnd,
         {"300000", "000000", "110000"}},
        {"nothing but the end", PictureEnd, {"000000", "000000", "000000"}},
    };
}

/// Pixels beyond a row's end are left out; the rest is as it should be.
QList<Codes> beyondTheRules(bool halves) {
    const QByteArray rowOf1 = run(6, both(1, halves));
    const QByteArray rest = RowEnd + run(6, both(2, halves)) + RowEnd + run(6, both(2, halves)) + PictureEnd;
    return {
        {"run beyond the row", run(200, both(1, halves)) + rest, {"222222", "222222", "111111"}},
        {"literal beyond the row",
         run(4, both(1, halves)) + literal(QByteArray(5, '\1'), halves) + rest,
         {"222222", "222222", "111111"}},
        {"rows beyond the picture",
         rowOf1 + rest.chopped(2) + (RowEnd + rowOf1).repeated(4) + PictureEnd,
         {"222222", "222222", "111111"}},
        {"no end", rowOf1 + RowEnd + run(6, both(2, halves)), {}},
        {"ends within a code", rowOf1 + RowEnd + QByteArray(1, '\6'), {}},
        {"ends within literals", rowOf1 + RowEnd + QByteArray("\0\5\1\1", 4), {}},
        {"no codes", QByteArray(), {}},
    };
}

} // namespace

Variants bmpRunVariants() {
    Variants all;
    for (const bool halves : {false, true}) {
        append(all, variantsOf(wellFormed(halves), halves));
        append(all, variantsOf(beyondTheRules(halves), halves));
    }
    // Two colours in turns, which only 4-bit runs have.
    append(all, variantsOf({{"two colours in turns",
                             run(5, 0x12) + RowEnd + run(6, 0x33) + RowEnd + run(6, 0) + PictureEnd,
                             {"000000", "333333", "121210"}}},
                           true));
    return all;
}

} // namespace ovrano::hostile
