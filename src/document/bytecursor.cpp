#include "document/bytecursor.h"

namespace ovrano {

namespace {

constexpr qint64 BlockBytes = 65'536;

} // namespace

ByteCursor::ByteCursor(QIODevice& device, qint64 start)
    : m_device(device) {
    goTo(start);
}

void ByteCursor::goTo(qint64 position) {
    m_block.clear();
    m_at = 0;
    m_ended = m_ended || position > m_device.size() || !m_device.seek(position);
}

bool ByteCursor::fill() {
    if (m_at < m_block.size())
        return true;
    if (m_ended)
        return false;
    m_block = m_device.read(BlockBytes);
    m_at = 0;
    m_ended = m_block.isEmpty();
    return !m_ended;
}

void ByteCursor::skip(qint64 count) {
    const qint64 left = m_block.size() - m_at;
    if (count <= left)
        m_at += count;
    else
        goTo(m_device.pos() + count - left);
}

bool ByteCursor::skipPast(char value) {
    while (fill()) {
        const qsizetype found = m_block.indexOf(value, m_at);
        m_at = found < 0 ? m_block.size() : found + 1;
        if (found >= 0)
            return true;
    }
    return false;
}

} // namespace ovrano
