#pragma once

#include <QStringList>
#include <QWidget>

namespace ovrano::testing {

/// What a user would find wrong with the way that a window's controls stand: one that lies over another, one
/// that is outside its parent or narrower or lower than what it shows needs. Only for the program's thread.
QStringList layoutComplaints(const QWidget& window);

/// Text that is hard to read: a control whose text's contrast to its background, by the luminance formula of
/// WCAG 2, is under 4.5 (disabled controls may be paler).
QStringList contrastComplaints(const QWidget& window);

} // namespace ovrano::testing
