#pragma once

#include <cstddef>

namespace ovrano {

/// Tells the system that `bytes` of fresh memory from `first` on are about to be written, so that it uses
/// large pages. With small ones, a page fault for every 4 KB takes a quarter of the time to decode a large
/// picture. Does nothing for less than one large page.
void willBeWritten(void* first, std::size_t bytes);

} // namespace ovrano
