#pragma once

#include <cstddef>

namespace ovrano::outofmemory {

/// While this lives, large pieces of memory are refused: one of them, or all from one on. Small ones are
/// always given: a program that cannot get even these has nothing left to tell its user with.
///
/// The test program itself stands between the libraries and the memory for this (scarcememory.cpp).
class ScarceMemory {
public:
    /// What counts as large, in bytes: far less than one tile of a picture takes.
    static constexpr std::size_t Large = 65'536;

    enum class Refused { One, AllFromThere };

    /// `first`: which large piece is refused first, from 0.
    ScarceMemory(int first, Refused refused);
    ScarceMemory(const ScarceMemory&) = delete;
    ScarceMemory& operator=(const ScarceMemory&) = delete;
    ~ScarceMemory();

    /// How many large pieces have been asked for.
    int asked() const;
    bool hasRefused() const;
};

} // namespace ovrano::outofmemory
