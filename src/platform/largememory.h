#pragma once

#include <cstddef>

namespace ovrano {

/// Says that fresh memory, of `bytes` from `first` on, is about to be written whole, so that the system gives
/// it in large pages where it has them: otherwise a fault for every 4 KB takes a quarter of the time in which
/// a large picture is decoded. What is not worth it is left as it is.
void willBeWritten(void* first, std::size_t bytes);

} // namespace ovrano
