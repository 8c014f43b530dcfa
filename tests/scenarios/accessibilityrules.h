#pragma once

#include "scenarios/accessibleobject.h"

namespace ovrano::testing {

// What every window owes to somebody who does not see it. Each gives a line for every breach.

/// Each control that takes the keyboard has a title and a role that says how it is worked, and so has the
/// edit in a combo box.
QStringList unnamedControls(const AccessibleObject& window);
/// No two controls are told by the same role and title.
QStringList controlsOfOneName(const AccessibleObject& window);
/// Each label that announces a field by its colon is tied to one.
QStringList looseLabels(const AccessibleObject& window);
/// No two controls have the same letter.
QStringList doubledLetters(const AccessibleObject& window);
/// The keyboard goes through the controls as one reads: each group line by line from the left, and the
/// groups likewise.
QStringList leapsAgainstReading(const AccessibleObject& window, const std::vector<AccessibleObject>& visited);

} // namespace ovrano::testing
