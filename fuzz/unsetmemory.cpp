#include "unsetmemory.h"

#include <cstddef>
#include <cstring>
#include <malloc.h>

#if defined(__SANITIZE_ADDRESS__) || (defined(__has_feature) && __has_feature(address_sanitizer))
#define OVRANO_ADDRESS_SANITIZER
#endif

#ifdef OVRANO_ADDRESS_SANITIZER
// Of the sanitizers' runtime; not every compiler that has the function brings its header along.
extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*afterAllocation)(const volatile void*,
                                                                                 std::size_t),
                                                         void (*afterFree)(const volatile void*));
#endif

namespace ovrano::fuzz {

namespace {

#ifdef OVRANO_ADDRESS_SANITIZER

bool active = false;
unsigned char filling = 0;

void afterFree(const volatile void*) {}

/// What is larger comes from the system, as zeros that calloc() counts on.
void afterAllocation(const volatile void* memory, std::size_t bytes) {
    constexpr std::size_t MostBytes = 65'536;
    if (active && memory != nullptr && bytes <= MostBytes)
        std::memset(const_cast<void*>(memory), filling, bytes);
}

void fillWith(unsigned char byte) {
    static const int installed = __sanitizer_install_malloc_and_free_hooks(afterAllocation, afterFree);
    filling = byte;
    active = installed != 0;
}

void fillNoMore() {
    active = false;
}

#else

/// The C library fills with the complement, and with 0 not at all.
void fillWith(unsigned char byte) {
    mallopt(M_PERTURB, byte == 0xFF ? 0x01 : byte ^ 0xFF);
}

void fillNoMore() {
    mallopt(M_PERTURB, 0);
}

#endif

} // namespace

UnsetMemory::UnsetMemory(unsigned char holds) {
    fillWith(holds);
}

UnsetMemory::~UnsetMemory() {
    fillNoMore();
}

} // namespace ovrano::fuzz
