#pragma once

#include <QtGlobal>

namespace ovrano::fuzz {

/// Tells the fuzzer that something was met, by a number of any size: bytes that meet something new are kept
/// to go on from, as those are that reach a new line of the program. The decoders are compiled without the
/// fuzzer's own counters, so what they do must show here.
void note(quint64 met);

} // namespace ovrano::fuzz
