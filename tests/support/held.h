#pragma once

#include <cstddef>

namespace ovrano::testing {

/// What grows in this process when something is not given back.
struct Held {
    std::size_t memory = 0; // bytes that are in memory
    int descriptors = 0;    // open files, sockets and the like
    int widgets = 0;

    static Held now();
};

} // namespace ovrano::testing
