#pragma once

#include <QByteArray>
#include <QIODevice>

namespace ovrano {

/// Walks forward through the bytes of a device, reading a block at a time. At the end every further read
/// gives End.
class ByteCursor {
public:
    static constexpr int End = -1;

    explicit ByteCursor(QIODevice& device, qint64 start = 0);

    int next() { return fill() ? static_cast<uchar>(m_block.at(m_at++)) : End; }
    void skip(qint64 count);
    /// Moves behind the next byte of this value; false when there is none.
    bool skipPast(char value);

private:
    void goTo(qint64 position);
    bool fill();

    QIODevice& m_device;
    QByteArray m_block;
    qsizetype m_at = 0;
    bool m_ended = false;
};

} // namespace ovrano
