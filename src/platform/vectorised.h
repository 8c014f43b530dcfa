#pragma once

// What compilers offer beyond the language to make loops over pixels fast. Nothing else in the program uses a
// built-in function or an attribute of one compiler. GCC and Clang have all of it.

#include <cstddef>
#include <cstdint>
#include <cstdlib> // tells which C library there is

/// Marks a plain loop over the pixels of a row that is worth compiling twice: for every processor of its
/// kind, and with the 256-bit vectors that most of them have. The better one is chosen when the program
/// starts.
///
/// Besides being wider, the second one does not suffer from what Qt 6.4 leaves behind: after its solid
/// fills (every repainting, QImage::fill) the upper halves of the vector registers count as used, and loops
/// compiled for 128-bit vectors run at a fifth of their speed until something clears them.
#if defined(__x86_64__) && defined(__GLIBC__) && __has_cpp_attribute(gnu::target_clones)
#define OVRANO_VECTORISED [[gnu::target_clones("avx2", "default")]]
#else
#define OVRANO_VECTORISED
#endif

/// Makes a function part of the loops that call it, also where these are compiled for several processors.
#define OVRANO_INLINED [[gnu::always_inline]] inline

namespace ovrano {

template<typename Element, std::size_t Count>
struct VectorOf {
    using Type [[gnu::vector_size(Count * sizeof(Element))]] = Element;
};

/// Count elements that are worked on at once: the usual operators go element by element, comparisons give 0
/// or -1 for each.
template<typename Element, std::size_t Count>
using Vector = typename VectorOf<Element, Count>::Type;

/// The lowest byte of each element.
template<typename Element>
OVRANO_INLINED Vector<std::uint8_t, 4> lowestBytes(Vector<Element, 4> elements) {
    return __builtin_convertvector(elements, Vector<std::uint8_t, 4>);
}

/// The first four bytes, each followed by a zero: one instruction, where converting them takes the compiler
/// ten.
OVRANO_INLINED Vector<std::uint8_t, 8> spreadByZeros(Vector<std::uint8_t, 8> bytes) {
    return __builtin_shufflevector(bytes, Vector<std::uint8_t, 8>{}, 0, 8, 1, 9, 2, 10, 3, 11);
}

/// Has the processor fetch the cache line at an address, which need not be readable, ahead of its use.
OVRANO_INLINED void prefetch(const void* address) {
    __builtin_prefetch(address);
}

} // namespace ovrano
