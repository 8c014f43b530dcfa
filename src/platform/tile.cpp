#include "platform/tile.h"

#include "platform/runtimeerror.h"

#include <algorithm>
#include <cstdlib>
#include <mutex>
#include <vector>

namespace ovrano {

namespace {

constexpr std::size_t FullBytes = sizeof(QRgb) * Tile::Side * Tile::Side;
constexpr std::size_t CacheLine = 64; // bytes

/// A pool of tile memory, all of one size. Returned memory is kept up to the amount in use, so that a closed
/// picture gives its memory back to the system. Pictures may be destroyed in any thread.
class TileMemory {
public:
    /// Null when there is none.
    void* take() {
        const std::scoped_lock lock(m_mutex);
        void* memory = nullptr;
        if (m_kept.empty()) {
            memory = std::aligned_alloc(CacheLine, FullBytes);
        } else {
            memory = m_kept.back(); // the last one is the likeliest to be in the processor's cache
            m_kept.pop_back();
        }
        m_inUse += memory ? 1U : 0U;
        return memory;
    }

    void giveBack(void* memory) noexcept {
        const std::scoped_lock lock(m_mutex);
        --m_inUse;
        if (m_kept.size() < m_kept.capacity() && m_kept.size() < std::max(LeastKept, m_inUse))
            m_kept.push_back(memory);
        else
            std::free(memory);
    }

    std::size_t kept() {
        const std::scoped_lock lock(m_mutex);
        return m_kept.size();
    }

    /// It outlives every picture, also those that go after main().
    static TileMemory& instance() {
        static auto* memory = new TileMemory;
        return *memory;
    }

private:
    static constexpr std::size_t LeastKept = 64;  // 16 MB
    static constexpr std::size_t MostKept = 1024; // 256 MB, beside as much in use

    TileMemory() { m_kept.reserve(MostKept); }

    std::mutex m_mutex;
    std::vector<void*> m_kept;
    std::size_t m_inUse = 0;
};

/// Whether a tile gets the memory of a full one: less than half of it may go unused.
bool isPooled(QSize size) {
    if (size.width() > Tile::Side || size.height() > Tile::Side)
        return false;
    return 2 * sizeof(QRgb) * static_cast<std::size_t>(size.width()) *
               static_cast<std::size_t>(size.height()) >
           FullBytes;
}

QImage pooledImage(QSize size) {
    void* memory = TileMemory::instance().take();
    if (!memory)
        throw RuntimeError(error::OutOfMemory);
    const auto bytesPerLine = qsizetype{sizeof(QRgb)} * size.width();
    return QImage(
        static_cast<uchar*>(memory), size.width(), size.height(), bytesPerLine, QImage::Format_RGB32,
        [](void* own) { TileMemory::instance().giveBack(own); }, memory);
}

} // namespace

Tile::Tile(const QImage& image, bool isOwn)
    : m_image(image)
    , m_isOwn(isOwn) {}

Tile Tile::unwritten(QSize size) {
    if (isPooled(size))
        return Tile(pooledImage(size), true);
    const QImage image(size, QImage::Format_RGB32);
    if (image.isNull())
        throw RuntimeError(error::OutOfMemory);
    return Tile(image, true);
}

Tile Tile::filled(QSize size, QRgb pixel) {
    // Not QImage::fill(): on some processors it leaves the upper halves of the vector registers in use, which
    // slows down every loop that follows.
    Tile tile = unwritten(size);
    std::fill_n(tile.pixels(), tile.pixelsPerRow() * size.height(), pixel);
    return tile;
}

Tile Tile::viewOf(const QImage& whole, const QRect& part) {
    const uchar* first =
        whole.constScanLine(part.top()) + sizeof(QRgb) * static_cast<std::size_t>(part.left());
    const QImage view(
        first, part.width(), part.height(), whole.bytesPerLine(), QImage::Format_RGB32,
        [](void* kept) { delete static_cast<QImage*>(kept); }, new QImage(whole));
    return Tile(view, false);
}

QRgb* Tile::pixels() {
    if (isShared()) {
        Tile copy = unwritten(size());
        QRgb* out = copy.pixels();
        for (int y = 0; y < size().height(); ++y)
            std::copy_n(row(y), size().width(), out + y * copy.pixelsPerRow());
        *this = copy;
    }
    return reinterpret_cast<QRgb*>(m_image.bits());
}

std::ptrdiff_t Tile::pixelsPerRow() const {
    return m_image.bytesPerLine() / qsizetype{sizeof(QRgb)};
}

std::size_t Tile::kept() {
    return TileMemory::instance().kept();
}

} // namespace ovrano
