#pragma once

namespace ovrano::bench {

void stamping();
void dragging();
void opening();
void starting();
void memory();

/// What the process is started with that memory() measures: the path of a picture follows.
inline constexpr const char* MemoryOption = "--memory-with-picture";
/// Opens the picture, lifts a block, drags and stamps, and prints what it takes.
void printMemory(const char* picture);

} // namespace ovrano::bench
