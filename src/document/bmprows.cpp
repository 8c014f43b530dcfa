#include "document/bmprows.h"

#include "document/bmpheader.h"
#include "document/files.h"
#include "platform/runtimeerror.h"

#include <algorithm>
#include <utility>

namespace ovrano {

namespace {

QRgb pixelAt(const char* blueGreenRed) {
    const auto* bytes = reinterpret_cast<const uchar*>(blueGreenRed);
    return qRgb(bytes[2], bytes[1], bytes[0]);
}

} // namespace

BmpRows::BmpRows(const QString& path)
    : m_file(std::make_shared<SharedFile>(path)) {
    QFile& file = m_file->file;
    openForReading(file);
    const QByteArray header = file.read(bmp::HeaderBytes);
    if (file.error() != QFileDevice::NoError)
        throw RuntimeError(error::DeviceIo);
    const auto announced = bmp::announcedSize(header);
    if (!announced || file.size() < bmp::fileBytes(*announced))
        throw RuntimeError(error::InvalidPicture);
    m_size = *announced;
    m_row.resize(static_cast<std::size_t>(m_size.width()));
}

BmpRows::BmpRows(std::shared_ptr<SharedFile> file, QSize size)
    : m_file(std::move(file))
    , m_size(size)
    , m_row(static_cast<std::size_t>(size.width())) {}

std::unique_ptr<PixelRows> BmpRows::anotherReader() const {
    return std::unique_ptr<PixelRows>(new BmpRows(m_file, m_size));
}

const QRgb* BmpRows::row(int y) {
    if (y < m_bandFirst || y >= m_bandFirst + m_bandCount)
        readBand(y - y % bandHeight());
    const qint64 rowsBelow = m_bandFirst + m_bandCount - 1 - y;
    const char* bytes = m_band.constData() + rowsBelow * bmp::stride(m_size.width());
    for (QRgb& pixel : m_row) {
        pixel = pixelAt(bytes);
        bytes += 3;
    }
    return m_row.data();
}

void BmpRows::readBand(int firstRow) {
    const qint64 stride = bmp::stride(m_size.width());
    const int count = std::min(bandHeight(), m_size.height() - firstRow);
    const qint64 rowsBelow = m_size.height() - firstRow - count;
    m_bandCount = 0; // nothing is valid should the reading fail
    m_band.resize(count * stride);
    const std::scoped_lock lock(m_file->mutex);
    if (!m_file->file.seek(bmp::HeaderBytes + rowsBelow * stride) ||
        m_file->file.read(m_band.data(), m_band.size()) != m_band.size())
        throw RuntimeError(error::DeviceIo);
    m_bandFirst = firstRow;
    m_bandCount = count;
}

} // namespace ovrano
