#include "document/maskedbmp.h"

#include "document/bmplayout.h"
#include "document/decodedpicture.h"
#include "platform/runtimeerror.h"

#include <algorithm>
#include <array>
#include <bit>
#include <vector>

namespace ovrano::bmp {

namespace {

constexpr std::array<quint32, 4> Implied16 = {0x7C00, 0x03E0, 0x001F, 0};
constexpr std::array<quint32, 4> Implied32 = {0x00FF0000, 0x0000FF00, 0x000000FF, 0};

/// One channel's bits, as a number of 0 to 255.
class Channel {
public:
    Channel(quint32 mask, uchar otherwise)
        : m_mask(mask) {
        const int lowest = mask == 0 ? 0 : std::countr_zero(mask);
        const int bits = static_cast<int>(std::bit_width(mask >> lowest)); // a gap counts
        m_shift = lowest + std::max(0, bits - 8); // bits beyond the eighth cannot be shown
        const quint32 most = mask >> m_shift;
        m_bytes.fill(otherwise);
        for (quint32 value = 0; most != 0 && value <= most; ++value)
            m_bytes.at(value) = static_cast<uchar>((value * 255 + most / 2) / most);
    }

    uchar operator()(quint32 pixel) const { return m_bytes[(pixel & m_mask) >> m_shift]; }

private:
    quint32 m_mask;
    int m_shift = 0;
    std::array<uchar, 256> m_bytes = {};
};

class Channels {
public:
    explicit Channels(const std::array<quint32, 4>& masks)
        : m_red(masks[0], 0)
        , m_green(masks[1], 0)
        , m_blue(masks[2], 0)
        , m_alpha(masks[3], 0xFF) {}

    QRgb operator()(quint32 pixel) const {
        return qRgba(m_red(pixel), m_green(pixel), m_blue(pixel), m_alpha(pixel));
    }

private:
    Channel m_red, m_green, m_blue, m_alpha;
};

std::array<quint32, 4> masksOf(const Layout& layout) {
    if (layout.compression != None)
        return layout.masks;
    return layout.bitsPerPixel == 16 ? Implied16 : Implied32;
}

bool isMasked(const Layout& layout) {
    const bool isOld = layout.infoBytes < 40; // has no compression, and 24 bits at most
    const bool isUnknown = layout.infoBytes == 52 || layout.infoBytes == 56; // to the toolkit
    const bool hasMasks = layout.compression == BitFields || layout.compression == AlphaBitFields;
    if (layout.bitsPerPixel == 16 || layout.bitsPerPixel == 32)
        return !isOld && (layout.compression == None || hasMasks);
    return isUnknown && layout.bitsPerPixel == 24 && layout.compression == None;
}

/// Pixels of so many bytes, the lowest one first.
template<int Bytes>
void convert(const uchar* row, int width, const Channels& channels, QRgb* out) {
    for (int x = 0; x < width; ++x, row += Bytes) {
        quint32 pixel = 0;
        for (int byte = 0; byte < Bytes; ++byte)
            pixel |= quint32{row[byte]} << (8 * byte);
        out[x] = channels(pixel);
    }
}

QImage read(QIODevice& device, const Layout& layout, EventYield& yield) {
    const std::array<quint32, 4> masks = masksOf(layout);
    const Channels channels(masks);
    const auto convertRow = layout.bitsPerPixel == 16   ? convert<2>
                            : layout.bitsPerPixel == 24 ? convert<3>
                                                        : convert<4>;
    QImage image = bareCanvas(layout.size(), masks[3] == 0 ? QImage::Format_RGB32 : QImage::Format_ARGB32);
    std::vector<uchar> row(static_cast<std::size_t>((layout.width * layout.bitsPerPixel + 31) / 32 * 4));
    const auto stride = static_cast<qint64>(row.size());
    device.seek(layout.pixelOffset);
    for (int i = 0; i < image.height(); ++i) {
        if (device.read(reinterpret_cast<char*>(row.data()), stride) != stride)
            throw RuntimeError(error::InvalidPicture);
        const int y = layout.fromTop ? i : image.height() - 1 - i;
        convertRow(row.data(), image.width(), channels, reinterpret_cast<QRgb*>(image.scanLine(y)));
        yield();
    }
    return image;
}

} // namespace

std::optional<QImage> readMasked(QIODevice& device, EventYield& yield) {
    const Layout layout = layoutOf(device);
    return isMasked(layout) ? std::optional(read(device, layout, yield)) : std::nullopt;
}

} // namespace ovrano::bmp
