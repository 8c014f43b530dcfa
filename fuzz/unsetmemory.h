#pragma once

#include <QtGlobal>

namespace ovrano::fuzz {

/// While this lives, memory that is allocated and not set holds a given byte: what a decoder forgets to
/// write differs with it. Blocks beyond 64 KB may hold anything.
class UnsetMemory {
public:
    explicit UnsetMemory(unsigned char holds);
    Q_DISABLE_COPY_MOVE(UnsetMemory)
    ~UnsetMemory();
};

} // namespace ovrano::fuzz
