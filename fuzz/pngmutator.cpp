// A changed PNG nearly always has a wrong checksum, and its decoder looks no further: most get the right
// ones.

#include "pngrepair.h"

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* bytes, std::size_t count, std::size_t most);

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* bytes, std::size_t count, std::size_t most,
                                               unsigned random) {
    const std::size_t changed = LLVMFuzzerMutate(bytes, count, most);
    if (random % 8 != 0)
        ovrano::fuzz::repairPng(bytes, changed);
    return changed;
}
