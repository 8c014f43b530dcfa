#pragma once

#include <cstddef>

namespace ovrano::testing {

/// What grows in this process when something is not given back.
struct Held {
    std::size_t allocated =
        0; // bytes that were asked for and not given back; 0 where the C library does not tell
    std::size_t resident = 0; // bytes that are in memory, those that the allocator keeps for later among them
    int threads = 0;
    int descriptors = 0; // open files, sockets and the like
    int widgets = 0;

    /// Ends the idle threads of the pools first.
    static Held now();
};

} // namespace ovrano::testing
