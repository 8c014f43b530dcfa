#pragma once

#include "model/driver.h"
#include "model/state.h"

namespace ovrano::model {

/// What the window and the model tell differently, a line each; empty when they agree.
QString differences(Driver& driver, const State& state);

/// The same for the picture on the clipboard and the files, which are asked for only where a step may have
/// changed them.
QString clipboardDifference(const State& state);
/// Which files there are: nothing temporary is left.
QString folderDifference(const State& state);
QString fileDifference(const QString& path, const Pixels& expected);

} // namespace ovrano::model
