#pragma once

#include "scenarios/tour.h"

#include <QStringList>

namespace ovrano::testing {

/// What is wrong with the files that a tour left; nothing when all is well.
QStringList complaintsAbout(const Tour& tour);

} // namespace ovrano::testing
