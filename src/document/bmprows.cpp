#include "document/bmprows.h"

#include "document/bmpheader.h"
#include "document/files.h"
#include "platform/runtimeerror.h"

#include <algorithm>

namespace ovrano {

namespace {

/// What is read in one go: enough to make the cost of a call vanish, little enough to stay in the cache.
constexpr qint64 ChunkBytes = 262'144;

QRgb pixelAt(const char* blueGreenRed) {
    const auto* bytes = reinterpret_cast<const uchar*>(blueGreenRed);
    return qRgb(bytes[2], bytes[1], bytes[0]);
}

} // namespace

BmpRows::BmpRows(const QString& path)
    : m_file(path) {
    openForReading(m_file);
    const QByteArray header = m_file.read(bmp::HeaderBytes);
    if (m_file.error() != QFileDevice::NoError)
        throw RuntimeError(error::DeviceIo);
    const auto announced = bmp::announcedSize(header);
    if (!announced || m_file.size() < bmp::fileBytes(*announced))
        throw RuntimeError(error::InvalidPicture);
    m_size = *announced;
    m_row.resize(static_cast<std::size_t>(m_size.width()));
}

const QRgb* BmpRows::row(int y) {
    if (y < m_chunkFirst || y >= m_chunkFirst + m_chunkCount)
        readChunk(y);
    const qint64 rowsBelow = m_chunkFirst + m_chunkCount - 1 - y;
    const char* bytes = m_chunk.constData() + rowsBelow * bmp::stride(m_size.width());
    for (QRgb& pixel : m_row) {
        pixel = pixelAt(bytes);
        bytes += 3;
    }
    return m_row.data();
}

void BmpRows::readChunk(int firstRow) {
    const qint64 stride = bmp::stride(m_size.width());
    const qint64 count = std::clamp<qint64>(ChunkBytes / stride, 1, m_size.height() - firstRow);
    const qint64 rowsBelow = m_size.height() - firstRow - count;
    m_chunkCount = 0; // nothing is valid should the reading fail
    m_chunk.resize(count * stride);
    if (!m_file.seek(bmp::HeaderBytes + rowsBelow * stride) ||
        m_file.read(m_chunk.data(), m_chunk.size()) != m_chunk.size())
        throw RuntimeError(error::DeviceIo);
    m_chunkFirst = firstRow;
    m_chunkCount = static_cast<int>(count);
}

} // namespace ovrano
