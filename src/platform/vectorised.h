#pragma once

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
