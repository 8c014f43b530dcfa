#pragma once

#include <functional>

namespace ovrano::testing {

/// Runs a script in a thread of its own, as a user acts beside the program, while the program's thread goes
/// on with its events; returns when the script has ended. What the script throws is thrown here, after
/// dialogs that it left open have been closed.
void playUser(const std::function<void()>& script);

} // namespace ovrano::testing
