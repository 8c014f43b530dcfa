#pragma once

#include <QByteArray>

namespace ovrano::fuzz {

/// Whether a vector picture is so large, or draws so much, that a fuzzer's time is better spent on others.
bool isLargeDrawing(const QByteArray& svg);

} // namespace ovrano::fuzz
