#pragma once

#include "platform/raster.h"

#include <QByteArray>
#include <QtEndian>

#include <vector>

namespace ovrano::hostile {

/// A file that a program somewhere might have written, and what opening it must give.
struct Variant {
    QByteArray name;
    QByteArray content;
    Raster expected;   // empty: must be refused
    int tolerance = 0; // steps that a channel may be off
};

using Variants = std::vector<Variant>;

inline void append(Variants& all, const Variants& more) {
    all.insert(all.end(), more.begin(), more.end());
}

Variants bmpVariants();
Variants bmpRunVariants();
Variants bmpDamage();
Variants gifVariants();
Variants gifDamage();
Variants jpegVariants();
Variants jpegOrientations();
Variants jpegDamage();
Variants pngVariants();
Variants pngDamage();

/// All of them, each named after its format.
Variants allVariants();

/// What files are made of: numbers with their lower or their higher byte first.
template<typename Number>
void appendLittle(QByteArray& bytes, Number number) {
    char buffer[sizeof number];
    qToLittleEndian(number, buffer);
    bytes.append(buffer, sizeof number);
}

template<typename Number>
void appendBig(QByteArray& bytes, Number number) {
    char buffer[sizeof number];
    qToBigEndian(number, buffer);
    bytes.append(buffer, sizeof number);
}

/// A picture whose pixels are colour(x, y).
template<typename Colour>
Raster drawn(QSize size, Colour&& colour) {
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, colour(x, y));
    return Raster::fromImage(image);
}

/// Packs numbers of 1 to 16 bits into bytes, the first one in the highest bits.
class BitPacker {
public:
    void add(unsigned value, int bits) {
        for (int bit = bits - 1; bit >= 0; --bit)
            addBit(value >> bit & 1U);
    }
    void fillByte() {
        while (m_used != 0)
            addBit(0);
    }
    const QByteArray& bytes() const { return m_bytes; }

private:
    void addBit(unsigned bit) {
        if (m_used == 0)
            m_bytes.append('\0');
        m_bytes.back() = static_cast<char>(static_cast<unsigned char>(m_bytes.back()) | bit << (7 - m_used));
        m_used = (m_used + 1) % 8;
    }

    QByteArray m_bytes;
    int m_used = 0; // bits of the last byte
};

} // namespace ovrano::hostile
