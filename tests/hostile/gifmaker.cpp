#include "gifmaker.h"

#include "variant.h"

#include <bit>

namespace ovrano::hostile {

namespace {

constexpr int HasTable = 0x80;
constexpr int Interlaced = 0x40;

/// What a descriptor tells of a table: that it is there, and its size as a power of two.
int tableFlags(const QList<QRgb>& palette) {
    if (palette.isEmpty())
        return 0;
    return HasTable | (static_cast<int>(std::bit_width(static_cast<unsigned>(palette.size()))) - 2);
}

QByteArray tableOf(const QList<QRgb>& palette) {
    QByteArray table;
    for (const QRgb colour : palette)
        for (const int channel : {qRed(colour), qGreen(colour), qBlue(colour)})
            table.append(static_cast<char>(channel));
    return table;
}

/// The numbers of a file's rows as an interlaced one stores them.
QList<int> rowOrder(int height, bool interlaced) {
    QList<int> order;
    const auto pass = [&](int first, int step) {
        for (int y = first; y < height; y += step)
            order.append(y);
    };
    if (!interlaced) {
        pass(0, 1);
        return order;
    }
    for (const auto& [first, step] : {std::pair(0, 8), std::pair(4, 8), std::pair(2, 4), std::pair(1, 2)})
        pass(first, step);
    return order;
}

/// Codes of one size, the first one in the lowest bits.
class CodePacker {
public:
    explicit CodePacker(int bits)
        : m_bits(bits) {}
    void add(unsigned code) {
        m_waiting |= quint64{code} << m_count;
        m_count += m_bits;
        while (m_count >= 8)
            takeByte();
    }
    QByteArray finished() {
        if (m_count > 0)
            takeByte();
        return m_bytes;
    }

private:
    void takeByte() {
        m_bytes.append(static_cast<char>(m_waiting & 0xFF));
        m_waiting >>= 8U;
        m_count -= 8;
    }

    const int m_bits;
    quint64 m_waiting = 0;
    int m_count = 0;
    QByteArray m_bytes;
};

QByteArray codesOf(const GifMaker::Frame& frame) {
    const unsigned clear = 1U << frame.codeBits;
    const qsizetype beforeGrowing = qMax(1, static_cast<int>(clear) - 2);
    CodePacker packer(frame.codeBits + 1);
    qsizetype sinceClear = beforeGrowing;
    for (const int y : rowOrder(frame.place.height(), frame.interlaced))
        for (int x = 0; x < frame.place.width(); ++x) {
            if (sinceClear++ == beforeGrowing) {
                packer.add(clear);
                sinceClear = 1;
            }
            packer.add(static_cast<unsigned char>(frame.indices.at(qsizetype{y} * frame.place.width() + x)));
        }
    if (frame.endCode)
        packer.add(clear + 1);
    return packer.finished();
}

QByteArray inBlocks(const QByteArray& bytes, int blockBytes) {
    QByteArray blocks;
    for (qsizetype at = 0; at < bytes.size(); at += blockBytes) {
        const QByteArray block = bytes.mid(at, blockBytes);
        blocks += static_cast<char>(block.size()) + block;
    }
    return blocks;
}

QByteArray bytesOf(const GifMaker::Frame& frame) {
    QByteArray bytes;
    if (frame.transparent)
        bytes += gifExtension(0xF9, QByteArray("\1\0\0", 3) + static_cast<char>(*frame.transparent));
    bytes += ',';
    for (const int field : {frame.place.x(), frame.place.y(), frame.place.width(), frame.place.height()})
        appendLittle(bytes, static_cast<quint16>(field));
    bytes += static_cast<char>(tableFlags(frame.palette) | (frame.interlaced ? Interlaced : 0));
    bytes += tableOf(frame.palette);
    bytes += static_cast<char>(frame.codeBits);
    bytes += inBlocks(frame.codes.isEmpty() ? codesOf(frame) : frame.codes, frame.blockBytes);
    return frame.terminated ? bytes + '\0' : bytes;
}

} // namespace

QByteArray gifExtension(int kind, const QByteArray& block) {
    return QByteArray("!") + static_cast<char>(kind) + inBlocks(block, 255) + '\0';
}

QByteArray GifMaker::bytes() const {
    QByteArray file = "GIF" + version;
    appendLittle(file, static_cast<quint16>(screen.width()));
    appendLittle(file, static_cast<quint16>(screen.height()));
    file += static_cast<char>(tableFlags(palette) | 0x70);
    file += static_cast<char>(background);
    file += '\0'; // square pixels
    file += tableOf(palette) + before;
    for (const Frame& frame : frames)
        file += bytesOf(frame);
    return terminated ? file + ';' : file;
}

} // namespace ovrano::hostile
