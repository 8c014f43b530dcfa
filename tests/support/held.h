#pragma once

#include <cstddef>

namespace ovrano::testing {

/// What grows in this process when something is not given back.
struct Held {
    std::size_t allocated =
        0; // bytes that were asked for and not given back; none where the system cannot tell
    std::size_t resident = 0; // bytes that are in memory, those that the allocator keeps for later among them
    int threads = 0;
    int descriptors = 0; // open files, sockets and the like, but for the one that each thread has
    int widgets = 0;

    static Held now();
};

/// How many threads the pools may start at any time: they do so when all others are at work, which is a
/// matter of luck.
int threadsOfPools();

} // namespace ovrano::testing
