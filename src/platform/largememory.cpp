#include "platform/largememory.h"

#include <QtGlobal>

#include <cstdint>

#ifdef Q_OS_LINUX
#include <sys/mman.h>
#endif

namespace ovrano {

namespace {

/// The large page of the processors that this is worth it on, in bytes.
constexpr std::uintptr_t LargePage = 2'097'152;

/// Bytes from an address to the first large page that begins there or after it.
std::size_t bytesToPage(std::uintptr_t address) {
    return (LargePage - address % LargePage) % LargePage;
}

} // namespace

void willBeWritten(void* first, std::size_t bytes) {
#ifdef Q_OS_LINUX
    // Whole pages only: what lies beside the memory is somebody else's.
    const std::size_t before = bytesToPage(reinterpret_cast<std::uintptr_t>(first));
    if (bytes < before + LargePage)
        return;
    const std::size_t whole = (bytes - before) / LargePage * LargePage;
    madvise(static_cast<char*>(first) + before, whole, MADV_HUGEPAGE); // it may fail: it is advice
#else
    Q_UNUSED(first)
    Q_UNUSED(bytes)
#endif
}

} // namespace ovrano
