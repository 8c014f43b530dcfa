#pragma once

#include "model/replay.h"

#include <map>

namespace ovrano::model {

/// A random walk: sequences of steps, each from a fresh window.
struct Walk {
    int steps = 0;            // done
    std::map<Kind, int> done; // how many of each kind
    /// The shortest form of the first sequence that failed, as a test; empty when all agreed.
    QString failure;
};

Walk walk(unsigned seed, int steps);

} // namespace ovrano::model
