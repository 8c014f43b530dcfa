#include "document/yieldingdevice.h"

#include <algorithm>

namespace ovrano {

namespace {

/// What a fast decoder turns into pixels well within a frame.
constexpr qint64 MostBytesAtOnce = qint64{256} * 1024;

} // namespace

YieldingDevice::YieldingDevice(QIODevice& source, EventYield& yield)
    : m_source(source)
    , m_yield(yield) {
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

qint64 YieldingDevice::readData(char* data, qint64 maxSize) {
    m_yield();
    if (!m_source.seek(pos()))
        return -1;
    qint64 done = 0;
    while (done < maxSize) {
        const qint64 now = m_source.read(data + done, std::min(maxSize - done, MostBytesAtOnce));
        if (now <= 0)
            break;
        done += now;
        if (done < maxSize)
            m_yield();
    }
    return done;
}

} // namespace ovrano
