#pragma once

#include <QByteArray>

namespace ovrano {

/// The same vector picture without what its drawing would fetch from elsewhere: references to files and
/// addresses, and embedded pictures that are none or too large. Throws RuntimeError 481 when it is not
/// well-formed or drawing it would exceed a DrawingBudget.
QByteArray selfContainedSvg(const QByteArray& svg);

} // namespace ovrano
