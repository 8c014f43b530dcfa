#include "bmpmaker.h"

#include "variant.h"

namespace ovrano::hostile {

namespace {

constexpr int FileHeaderBytes = 14;
constexpr int OldHeader = 12;   // with 16-bit sizes
constexpr int PlainHeader = 40; // without masks

} // namespace

void BmpMaker::appendMasks(QByteArray& header) const {
    for (const quint32 mask : masks)
        appendLittle(header, mask);
}

QByteArray BmpMaker::infoHeader() const {
    QByteArray header;
    appendLittle(header, static_cast<quint32>(headerBytes));
    if (headerBytes == OldHeader) {
        for (const int field : {size.width(), size.height(), 1, bits})
            appendLittle(header, static_cast<quint16>(field));
        return header;
    }
    appendLittle(header, qint32{size.width()});
    appendLittle(header, qint32{size.height()});
    appendLittle(header, quint16{1}); // planes
    appendLittle(header, static_cast<quint16>(bits));
    appendLittle(header, compression);
    appendLittle(header, static_cast<quint32>(pixels.size()));
    appendLittle(header, quint32{2835}); // pixels a metre
    appendLittle(header, quint32{2835});
    appendLittle(header, coloursUsed.value_or(static_cast<quint32>(palette.size())));
    appendLittle(header, quint32{0}); // important colours
    if (headerBytes > PlainHeader && headerBytes != 64)
        appendMasks(header);
    if (headerBytes >= 108) {
        header.resize(56, '\0');
        appendLittle(header, quint32{0x73524742}); // "sRGB"
    }
    header.resize(headerBytes, '\0');
    if (headerBytes == PlainHeader)
        appendMasks(header);
    return header;
}

QByteArray BmpMaker::colours() const {
    QByteArray table;
    for (const QRgb colour : palette) {
        table.append(static_cast<char>(qBlue(colour)));
        table.append(static_cast<char>(qGreen(colour)));
        table.append(static_cast<char>(qRed(colour)));
        if (headerBytes != OldHeader)
            table.append('\0');
    }
    return table;
}

QByteArray BmpMaker::bytes() const {
    const QByteArray head = infoHeader() + colours() + gap;
    QByteArray file = "BM";
    appendLittle(file, static_cast<quint32>(FileHeaderBytes + head.size() + pixels.size()));
    appendLittle(file, quint32{0});
    appendLittle(file, pixelOffset.value_or(static_cast<quint32>(FileHeaderBytes + head.size())));
    return file + head + pixels;
}

void BmpMaker::store(const std::function<quint32(int x, int y)>& value) {
    const int rows = qAbs(size.height());
    const auto addPixel = [&](BitPacker& row, quint32 pixel) {
        if (bits < 8)
            row.add(pixel, bits);
        else
            for (int shift = 0; shift < bits; shift += 8)
                row.add(pixel >> shift & 0xFF, 8);
    };
    for (int i = 0; i < rows; ++i) {
        const int y = size.height() < 0 ? i : rows - 1 - i;
        BitPacker row;
        for (int x = 0; x < size.width(); ++x)
            addPixel(row, value(x, y));
        row.fillByte();
        pixels += row.bytes();
        pixels.append((4 - row.bytes().size() % 4) % 4, '\0');
    }
}

} // namespace ovrano::hostile
