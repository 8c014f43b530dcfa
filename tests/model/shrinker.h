#pragma once

#include "model/step.h"

#include <functional>

namespace ovrano::model {

/// A part of the steps that still fails and fails no longer when any one step, or any two of them where
/// there are few, are left out.
std::vector<Step> shrunk(std::vector<Step> steps, const std::function<bool(const std::vector<Step>&)>& fails);

} // namespace ovrano::model
