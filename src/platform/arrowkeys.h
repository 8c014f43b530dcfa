#pragma once

#include <QKeyEvent>
#include <QPoint>

namespace ovrano {

/// How far an arrow key goes, in pixels: by one, with Shift by ten. Null for every other key, and with Ctrl
/// or Alt, which belong to commands.
QPoint arrowStep(const QKeyEvent& press);

} // namespace ovrano
