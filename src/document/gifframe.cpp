#include "document/gifframe.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <optional>

namespace ovrano {

namespace {

constexpr int MostCodeBits = 12;
constexpr int MostPixelBits = 8;

/// The codes of a frame: numbers of growing width, packed from the lowest bits on, in blocks of a length byte
/// and that many bytes.
class CodeReader {
public:
    explicit CodeReader(ByteCursor& cursor)
        : m_cursor(cursor) {}

    std::optional<unsigned> next(int bits) {
        for (; m_count < bits; m_count += 8) {
            const int byte = nextByte();
            if (byte == ByteCursor::End)
                return std::nullopt;
            m_waiting |= static_cast<unsigned>(byte) << m_count;
        }
        const unsigned code = m_waiting & ((1U << bits) - 1);
        m_waiting >>= bits;
        m_count -= bits;
        return code;
    }

    /// To the end of the last block; false when there is none.
    bool skipRest() {
        m_cursor.skip(m_leftInBlock);
        return skipGifBlocks(m_cursor);
    }

private:
    int nextByte() {
        if (m_leftInBlock == 0)
            m_leftInBlock = std::max(0, m_cursor.next());
        if (m_leftInBlock == 0) // the empty block behind the last one, or the file's end
            return ByteCursor::End;
        --m_leftInBlock;
        return m_cursor.next();
    }

    ByteCursor& m_cursor;
    int m_leftInBlock = 0;
    unsigned m_waiting = 0;
    int m_count = 0; // bits of m_waiting
};

/// How many pixels each code stands for: those below `m_clear` for one, those above for one more than the
/// code read before them.
class CodeLengths {
public:
    explicit CodeLengths(int pixelBits)
        : m_pixelBits(pixelBits)
        , m_clear(1U << pixelBits) {
        clear();
    }

    bool isClear(unsigned code) const { return code == m_clear; }
    bool isEnd(unsigned code) const { return code == m_clear + 1; }
    int codeBits() const { return m_codeBits; }

    void clear() {
        m_next = m_clear + 2;
        m_codeBits = m_pixelBits + 1;
        m_before = 0;
    }

    /// 0 for a code that stands for nothing yet.
    qint64 take(unsigned code) {
        const qint64 length = code < m_clear ? 1 : lengthOf(code);
        if (length > 0 && m_before > 0)
            add(m_before + 1);
        m_before = length;
        return length;
    }

private:
    qint64 lengthOf(unsigned code) const {
        if (code < m_next)
            return m_lengths.at(code);
        return code == m_next && m_before > 0 ? m_before + 1 : 0;
    }
    void add(qint64 length) {
        if (m_next == m_lengths.size())
            return; // full until it is cleared
        m_lengths.at(m_next++) = length;
        if (m_next == 1U << m_codeBits && m_codeBits < MostCodeBits)
            ++m_codeBits;
    }

    const int m_pixelBits;
    const unsigned m_clear;
    std::array<qint64, 1U << MostCodeBits> m_lengths = {};
    unsigned m_next = 0;
    int m_codeBits = 0;
    qint64 m_before = 0; // pixels of the code before, 0 behind a clear code
};

} // namespace

QSize gifScreenSize(QIODevice& device) {
    constexpr qsizetype HeadBytes = 10;
    const QByteArray head = device.peek(HeadBytes);
    if (head.size() < HeadBytes)
        return QSize(0, 0);
    return QSize(qFromLittleEndian<quint16>(head.constData() + 6),
                 qFromLittleEndian<quint16>(head.constData() + 8));
}

bool skipGifBlocks(ByteCursor& cursor) {
    for (;;) {
        const int length = cursor.next();
        if (length <= 0)
            return length == 0;
        cursor.skip(length);
    }
}

bool gifCodesAreWhole(ByteCursor& cursor, qint64 pixels) {
    const int pixelBits = cursor.next();
    if (pixelBits < 1 || pixelBits > MostPixelBits)
        return false;
    CodeReader reader(cursor);
    CodeLengths lengths(pixelBits);
    while (pixels > 0) {
        const auto code = reader.next(lengths.codeBits());
        if (!code || lengths.isEnd(*code))
            return false;
        if (lengths.isClear(*code)) {
            lengths.clear();
            continue;
        }
        const qint64 length = lengths.take(*code);
        if (length == 0)
            return false;
        pixels -= length;
    }
    return reader.skipRest();
}

} // namespace ovrano
